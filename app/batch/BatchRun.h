// Converts many files in processes of their own.
#pragma once

#include "app/base/Output.h"
#include "app/base/Reporter.h"
#include "app/batch/BatchPlan.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace app {

// How the conversion of a file has ended.
struct BatchOutcome {
    std::optional<std::uint64_t> features;  // that were written; absent when that is not known
    double seconds = 0.0;                   // that it took; 0 when its process was killed
    std::string error;                      // empty: it is done
};

// What the conversion of a file returns.
struct ConvertedItem {
    int exitCode = 0;
    std::optional<std::uint64_t> features = {};
};

struct BatchOptions {
    std::vector<BatchItem> items;
    std::size_t jobs = 0;  // processes at a time; 0: one a processor
    bool resume = false;   // skip what is done, redo the rest, and remove what a killed run has
                           // left behind
    IfExists ifExists = IfExists::Refuse;

    bool ownsOutputs = false;  // no other run makes these outputs, on whatever machine: what is
                               // left of them anywhere is abandoned when this one resumes

    // Converts one file. Called in a process of its own; what it throws counts as that file's
    // error.
    std::function<ConvertedItem(const BatchItem& item, IfExists ifExists, Reporter& reporter)>
        convert;

    // Whether `resume` leaves the file out.
    std::function<bool(const BatchItem& item)> isDone = IsDone;

    // Called for each conversion that has ended, but for those that an interruption has ended.
    // Empty: nobody asks.
    std::function<void(const BatchItem& item, const BatchOutcome& outcome)> onEnd = {};
};

// In a process that RunBatch has started by running the command line anew, does its one item, of
// which `options.items` needs to know nothing, and returns the exit code. Absent in any other.
std::optional<int> RunBatchTask(const BatchOptions& options);

// Makes the folders of the outputs and converts the items. A file that fails gives one line on the
// reporter, and the others go on; a note at the end counts them. Returns 0 when all were converted,
// else 1. A signal that ends the program ends its processes first. Throws Failure.
int RunBatch(const BatchOptions& options, Reporter& reporter);

}  // namespace app
