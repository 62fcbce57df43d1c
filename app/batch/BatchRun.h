// Converts many files in processes of their own.
#pragma once

#include "app/base/Output.h"
#include "app/base/Reporter.h"
#include "app/batch/BatchPlan.h"

#include <cstddef>
#include <functional>
#include <vector>

namespace app {

struct BatchOptions {
    std::vector<BatchItem> items;
    std::size_t jobs = 0;  // processes at a time; 0: one a processor
    bool resume = false;   // leave out what is done already, redo the rest, and remove what a
                           // killed run has left half done
    IfExists ifExists = IfExists::Refuse;

    // Converts one file, in a process of its own, and gives the exit code. What it throws is an
    // error of that file.
    std::function<int(const BatchItem& item, IfExists ifExists, Reporter& reporter)> convert;
};

// Makes the folders of the outputs and converts the items. A file that fails is one line on the
// reporter and hinders no other; a note at the end counts. 0 when all were converted, else 1. A
// signal that ends the program ends the processes first, and then this one. Throws Failure.
int RunBatch(const BatchOptions& options, Reporter& reporter);

}  // namespace app
