// Which code page the module and this program read a MIF file's texts in: the host's code page 0.
#pragma once

#include "app/base/Reporter.h"
#include "app/mif/MifHeader.h"

#include <string>

namespace app {

// Sets it to an encoding that a user named. Throws UsageError for one that the system does not
// know.
void SetEncoding(const std::string& encoding);

// Sets it for a file: as `encoding` says unless that is empty, by a byte-order mark, as UTF-8 when
// all letters beyond ASCII are valid UTF-8 (`areLettersUtf8`), else by the header's charset, which
// is believed in any case when its characters have two bytes. Notes and warnings begin with `name`.
void SetCodePageFor(const MifHeader& header, const std::string& encoding, bool areLettersUtf8,
                    const std::string& name, Reporter& reporter);

// Whether texts are of that code page even when their bytes look like UTF-8: it was asked for, or
// its characters have two bytes, which may look so by chance.
bool AreLettersBelieved(const MifHeader& header, const std::string& encoding);

}  // namespace app
