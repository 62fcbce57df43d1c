// A conversion from one or several inputs to one output.
#pragma once

#include "app/base/Reporter.h"
#include "app/convert/ConvertOptions.h"

#include <cstdint>
#include <optional>

namespace app {

// Converts the inputs of the options to their output, and says what could not be kept. Returns the
// exit code, and in `features` how many were written: absent where only the module counts them.
// Throws Failure and UsageError.
int RunConvert(const ConvertOptions& options, Reporter& reporter,
               std::optional<std::uint64_t>* features = nullptr);

}  // namespace app
