// Converts many files in processes of their own.
#pragma once

#include "app/base/Output.h"
#include "app/base/Reporter.h"
#include "app/batch/BatchPlan.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <vector>

namespace app {

struct BatchOptions {
    std::vector<BatchItem> items;
    std::size_t jobs = 0;  // processes at a time; 0: one a processor
    bool resume = false;   // skip what is done, redo the rest, and remove what a killed run has
                           // left behind
    IfExists ifExists = IfExists::Refuse;

    // Converts one file and returns the exit code. Called in a process of its own; what it throws
    // counts as that file's error.
    std::function<int(const BatchItem& item, IfExists ifExists, Reporter& reporter)> convert;
};

// In a process that RunBatch has started by running the command line anew, does its one item, of
// which `options.items` needs to know nothing, and returns the exit code. Absent in any other.
std::optional<int> RunBatchTask(const BatchOptions& options);

// Makes the folders of the outputs and converts the items. A file that fails gives one line on the
// reporter, and the others go on; a note at the end counts them. Returns 0 when all were converted,
// else 1. A signal that ends the program ends its processes first. Throws Failure.
int RunBatch(const BatchOptions& options, Reporter& reporter);

}  // namespace app
