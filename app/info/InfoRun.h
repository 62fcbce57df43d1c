// qolf info: what a file holds, as the module and the header tell it.
#pragma once

#include "app/Commands.h"

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
};

void AddInfoCommand(CLI::App& program, CommandContext& context);

// The exit code: 1 when any of the files could not be read.
int RunInfo(const InfoOptions& options, Reporter& reporter);

}  // namespace app
