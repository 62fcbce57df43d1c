// The export's options, which users store or give to a single run.
#pragma once

#include "app/feature/Target.h"
#include "app/formats/mif/ObjectWriter.h"

namespace app {

// Returns what the options mean for what is written, with the module's own rules: its defaults or
// the stored options, then those of the option string, which are stored unless it says
// ForgetOptions.
ObjectChoices ObjectChoicesOf(const TargetOptions& options);

}  // namespace app
