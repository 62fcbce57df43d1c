// qolf info: what a file holds, as the module and the header tell it.
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
    bool json = false;
    bool count = false;  // run a whole import and count
    bool asIs = false;
    std::string encoding;
    std::string modulePath;
    SystemPtr assumedSystem;  // of all files, whatever their headers say; null: their own
    CrsIdentifier identify;   // for a system that only PROJ's register knows; called for no other

    // Opens a file of another format than MIF; gives no source for a pair. Empty: all are pairs.
    std::function<SourceWithFormat(const std::string& file, const SourceOptions&)> openUnlessPair;
};

// The exit code: 1 when any of the files could not be read.
int RunInfo(const InfoOptions& options, Reporter& reporter);

}  // namespace app
