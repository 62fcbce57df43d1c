// Checks a .mif file and its .mid file.
#pragma once

#include "app/crs/ReadClause.h"
#include "app/mif/FindingCounter.h"
#include "app/mif/HeaderPass.h"
#include "app/mif/MifHeader.h"
#include "app/mif/ObjectPass.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace app {

// Receives how much of a pair has been read, from 0 to 1.
using ProgressSink = std::function<void(double)>;

struct PairCheckOptions {
    std::uint64_t maxPerCode = 100;  // findings of one code that are passed on; 0: all
    TabRewriting tabRewriting = TabRewriting::Off;
    std::string charset = {};  // in place of the header's, by its name in headers; empty: its own
    std::optional<shr::Box2d> possible = {};  // coordinates; absent: those of the declared system
    // What is wrong with the clause for this program; those that no finding is about become
    // findings.
    std::vector<ClauseFault> faultsOfClause = {};
    ProgressSink progress = {};  // empty: nobody asks
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
// `progress` needs the number of objects in the file. Throws Failure when the module can't be
// loaded.
void CheckByImport(const std::filesystem::path& mif, const std::string& modulePath,
                   FindingSink& sink, FindingCounts& counts, std::uint64_t objects = 0,
                   const ProgressSink& progress = {});

}  // namespace app
