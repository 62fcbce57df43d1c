// Writes repaired copies of MIF files.
#pragma once

#include "app/base/Output.h"
#include "app/check/PairCheck.h"
#include "app/mif/FindingCodes.h"
#include "app/mif/FindingCounter.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace app {

// One repair, for people.
struct Repair {
    FindingCode code = FindingCode::FileUnreadable;
    std::filesystem::path file;  // of the input
    std::uint64_t line = 0;
    std::string what;  // "count 5 becomes 4"
};

struct RepairReport {
    std::uint64_t count = 0;      // all repairs
    std::vector<Repair> repairs;  // the first of each code, at most kMaxListed a code
    bool hasMid = false;          // the copy has a .mid file

    static constexpr std::uint64_t kMaxListed = 100;
};

// Called before each of the two times that the input is read; the result hears how much of it has
// been read. Empty: nobody asks.
using NextPassWatch = std::function<ProgressSink()>;

// Writes a copy of input and its .mid to output with everything repaired that has one right repair;
// both files appear or none. When there is nothing to repair, nothing is written. Memory is bounded
// by the largest object. Throws Failure when a file can't be read or written, when output exists
// and may not be replaced, and when it is the input.
RepairReport RepairMif(const std::filesystem::path& input, const std::filesystem::path& output,
                       IfExists ifExists, const NextPassWatch& nextPass = {});

}  // namespace app
