// qolf replay: hands a list of translation objects to the export filter.
#pragma once

#include "app/base/Reporter.h"

#include <optional>
#include <string>

namespace app {

struct ReplayOptions {
    std::string input;      // "-": standard input
    std::string output;     // a .mif file
    bool trace = false;     // print the filter's calls and answers to standard output
    bool noExtent = false;  // tell the filter that the extent is not known
    bool noStore = false;
    bool overwrite = false;
    std::optional<std::string> optionString;
    std::string encoding;  // of the texts written; "": Windows-1252
    std::string modulePath;
};

// Exports the objects of the input, which is read twice: for the extent, then to send the objects.
// Returns the exit code. Throws Failure, naming the line, for an input that can't be read; nothing
// is written then.
int RunReplay(const ReplayOptions& options, Reporter& reporter);

}  // namespace app
