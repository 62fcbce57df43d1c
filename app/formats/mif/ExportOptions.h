// The options of an export, as the option string has them.
#pragma once

#include "app/feature/Target.h"
#include "app/formats/mif/ObjectWriter.h"

namespace app {

// Returns what the option string means for what is written, with the module's own rules. Stored
// options are for the module's own runs: what someone stored last month drops no object here.
ObjectChoices ObjectChoicesOf(const TargetOptions& options);

}  // namespace app
