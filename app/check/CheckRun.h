// qolf check: finds what is wrong with MIF files, and repairs what has one right repair.
#pragma once

#include "app/base/Output.h"
#include "app/base/Reporter.h"
#include "app/crs/CoordinateSystem.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace app {

// The options as given on the command line.
struct CheckArguments {
    std::vector<std::string> files;
    bool json = false;
    bool strict = false;
    bool codes = false;
    bool overwrite = false;
    std::uint64_t maxPerCode = 100;
    std::string fix;
    std::string encoding;
    std::string assumedCrs;
    bool asIs = false;
};

struct CheckOptions {
    std::vector<std::filesystem::path> files = {};
    bool json = false;
    bool strict = false;
    std::uint64_t maxPerCode = 100;  // findings of one code shown for a file; 0: all
    std::filesystem::path fix = {};  // the repaired copy; empty: none
    IfExists ifExists = IfExists::Refuse;
    std::string encoding = {};  // of the files' texts, whatever their headers say
    bool asIs = false;          // what the files are to the module is all that matters
    std::string modulePath = {};
    SystemPtr assumedSystem = {};  // of the files, whatever their clauses say; null: their own
};

// Throws UsageError, which names the option and what it takes.
CheckOptions CheckedCheckOptions(const CheckArguments& arguments);

// Prints every finding's code with its meaning; returns the exit code.
int PrintCodes();

// Returns the exit code: 0 clean, 1 errors, 3 warnings with `strict`.
int RunCheck(const CheckOptions& options, Reporter& reporter);

}  // namespace app
