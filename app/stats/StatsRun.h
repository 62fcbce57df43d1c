// qolf info --stats: what the layers of files hold.
#pragma once

#include "app/base/Reporter.h"
#include "app/feature/Source.h"

#include <string>
#include <vector>

namespace app {

struct StatsOptions {
    std::vector<std::string> files;  // of any format
    std::string where;               // --where; empty: every object
    bool json = false;
    SourceOptions source;
};

// Prints the statistics of each layer of each file to standard output, as a table or as one JSON
// document. Returns the exit code: 1 when any of the files could not be read. Throws UsageError for
// a question that is no expression and a file of no known format; Failure when standard output
// can't be written.
int RunStats(const StatsOptions& options, Reporter& reporter);

}  // namespace app
