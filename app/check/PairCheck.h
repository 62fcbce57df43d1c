// Checks a .mif file and its .mid file.
#pragma once

#include "app/check/HeaderCheck.h"
#include "app/check/Report.h"

#include <cstdint>
#include <filesystem>
#include <string>

namespace app::check {

struct PairCheckOptions {
    std::uint64_t maxPerCode = 100;  // findings of one code that are passed on; 0: all
    TabRewriting tabRewriting = TabRewriting::Off;
};

// Passes the findings on to the sink, those of the .mif file first, and answers how many there are.
// Never fails on contents: a file that can't be read is a finding.
CodeCounts CheckPair(const std::filesystem::path& mif, const PairCheckOptions& options,
                     FindingSink& sink);

// Runs the module's import over the file and passes its warnings, or the error that stopped it, on.
// Throws Failure when the module can't be loaded.
void CheckByImport(const std::filesystem::path& mif, const std::string& modulePath,
                   FindingSink& sink, CodeCounts& counts);

}  // namespace app::check
