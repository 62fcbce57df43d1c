// Checks a .mif file and its .mid file.
#pragma once

#include "app/mif/FindingCounter.h"
#include "app/mif/HeaderPass.h"
#include "app/mif/MifHeader.h"
#include "app/mif/ObjectPass.h"

#include <cstdint>
#include <filesystem>
#include <string>

namespace app {

struct PairCheckOptions {
    std::uint64_t maxPerCode = 100;  // findings of one code that are passed on; 0: all
    TabRewriting tabRewriting = TabRewriting::Off;
    std::string charset = {};  // in place of the header's, by its name in headers; empty: its own
};

// What was found in a pair.
struct CheckedPair {
    bool isReadable = false;  // the .mif file was read as far as it goes
    FindingCounts findings{};
    MifHeader header;
    MifCounts objects;
    std::uint64_t rows = 0;  // of the .mid file
};

// Passes the findings on to the sink, those of the .mif file first. Never fails on contents: a file
// that can't be read is a finding.
CheckedPair CheckPair(const std::filesystem::path& mif, const PairCheckOptions& options,
                      FindingSink& sink);

// Runs the module's import over the file and passes its warnings, or the error that stopped it, on.
// Throws Failure when the module can't be loaded.
void CheckByImport(const std::filesystem::path& mif, const std::string& modulePath,
                   FindingSink& sink, FindingCounts& counts);

}  // namespace app
