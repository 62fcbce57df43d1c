// qolf check: finds what is wrong with MIF files, and repairs what has one right repair.
#pragma once

#include "app/Commands.h"
#include "app/base/Output.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace app {

struct CheckOptions {
    std::vector<std::filesystem::path> files = {};
    bool json = false;
    bool strict = false;
    std::uint64_t maxPerCode = 100;  // findings of one code shown for a file; 0: all
    std::filesystem::path fix = {};  // the repaired copy; empty: none
    IfExists ifExists = IfExists::Refuse;
    std::string modulePath = {};
};

void AddCheckCommand(CLI::App& program, CommandContext& context);

// Answers the exit code: 0 clean, 1 errors, 3 warnings with strict.
int RunCheck(const CheckOptions& options, Reporter& reporter);

}  // namespace app
