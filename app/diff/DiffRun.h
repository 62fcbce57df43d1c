// qolf diff: whether two files hold the same features with the same values.
#pragma once

#include "app/base/Reporter.h"
#include "app/feature/Source.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace app {

struct DiffOptions {
    std::string left;  // files of any format
    std::string right;
    std::string layer;                // of both; empty: all, by their names
    std::string key;                  // --key; empty: features are compared in their order
    std::optional<double> tolerance;  // --tolerance, in units of the first file's coordinates;
                                      // absent: 0, or a millimetre where coordinates are moved
    std::vector<std::string> select;  // columns to compare; empty: all
    std::string where;                // objects to compare; empty: all
    int segments = 64;                // edges of a full turn, where only one file has curves
    std::uint64_t most = 100;         // features that are printed of a layer; 0: all
    bool json = false;
    std::string assumedCrs;  // of MIF files; empty: their own
    SourceOptions source;
};

// Prints what differs to standard output; nothing when nothing does, unless as JSON. Returns the
// exit code: 0 when the files hold the same, 1 when they don't. Throws Failure and UsageError.
int RunDiff(const DiffOptions& options, Reporter& reporter);

}  // namespace app
