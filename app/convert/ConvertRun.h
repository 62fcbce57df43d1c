// A conversion from one or several inputs to one output.
#pragma once

#include "app/base/Reporter.h"
#include "app/convert/ConvertOptions.h"

namespace app {

// Converts the inputs of the options to their output, and says what could not be kept. Returns the
// exit code. Throws Failure and UsageError.
int RunConvert(const ConvertOptions& options, Reporter& reporter);

}  // namespace app
