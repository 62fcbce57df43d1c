// What became of a batch whose parts ran on their own: qolf batch-report.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace app {

// A file that has no output.
struct OpenFile {
    std::string input;
    std::string output;     // below the output folder
    std::size_t shard = 0;  // the part that has it
    std::string reason;     // why it failed; empty: it is missing
};

struct BatchSummary {
    std::size_t shards = 0;
    std::uint64_t files = 0;
    std::uint64_t done = 0;
    std::uint64_t bytes = 0;     // of the inputs of what is done
    std::uint64_t features = 0;  // of what is done
    double seconds = 0.0;        // of work, added up over all processes
    std::vector<OpenFile> failed;
    std::vector<OpenFile> missing;  // never run, or without the output that its log names

    bool IsComplete() const { return done == files; }
};

// Merges the plan and the logs of an output folder. A file counts as done when some log says so and
// its output is there; otherwise the last error is its reason. Throws Failure when there is no
// plan.
BatchSummary SummaryOf(const std::filesystem::path& folder);

struct BatchReportOptions {
    std::string folder;
    bool json = false;
    std::uint64_t most = 100;  // files shown that failed, and as many that are missing; 0: all
};

// Prints the summary. Returns the exit code: 0 when the batch is complete, else 1. Throws Failure.
int RunBatchReport(const BatchReportOptions& options);

}  // namespace app
