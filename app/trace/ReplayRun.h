// qolf replay: hands a list of translation objects to the export filter.
#pragma once

#include "app/base/Reporter.h"

#include <optional>
#include <string>

namespace app {

struct ReplayOptions {
    std::string input;   // "-": standard input
    std::string output;  // a .mif file
    bool trace = false;
    bool noExtent = false;
    bool noStore = false;
    bool overwrite = false;
    std::optional<std::string> optionString;
    std::string encoding;  // of the texts written; "": Windows-1252
    std::string modulePath;
};

int RunReplay(const ReplayOptions& options, Reporter& reporter);

}  // namespace app
