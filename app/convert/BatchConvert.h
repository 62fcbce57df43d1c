// Converts many files, each in a process of its own.
#pragma once

#include "app/base/Reporter.h"
#include "app/convert/ConvertOptions.h"

namespace app {

// Converts every input of the options to a file in their output folder. Returns the exit code: 1
// when any file failed. Throws Failure and UsageError.
int ConvertMany(const ConvertOptions& options, Reporter& reporter);

}  // namespace app
