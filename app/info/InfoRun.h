// qolf info: prints what is in MIF files.
#pragma once

#include "app/base/Reporter.h"
#include "app/crs/DescribeCoordSys.h"
#include "app/feature/Source.h"

#include <functional>
#include <string>
#include <vector>

namespace app {

struct InfoOptions {
    std::vector<std::string> files;
    bool json = false;        // one JSON object in place of text
    bool count = false;       // pass over the whole file and count its objects
    bool asIs = false;        // what the module makes of the files is all that matters
    std::string encoding;     // of all texts, whatever the headers say; empty: as they say
    std::string modulePath;   // empty: the module is looked for (Module.h)
    SystemPtr assumedSystem;  // of all files, whatever their headers say; null: their own
    CrsIdentifier identify;   // for a system that only PROJ's register knows; called for no other

    // Opens a file of another format than MIF; gives no source for a pair. Empty: all are pairs.
    std::function<SourceWithFormat(const std::string& file, const SourceOptions&)> openUnlessPair;
};

// Prints the facts of all files on standard output, errors by the reporter. A file that can't be
// read does not keep the others from being printed. Returns the exit code: 1 when any of the files
// could not be read.
int RunInfo(const InfoOptions& options, Reporter& reporter);

}  // namespace app
