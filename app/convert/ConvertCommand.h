// qolf convert.
#pragma once

#include "app/Commands.h"

namespace app {

void AddConvertCommand(CLI::App& program, CommandContext& context);

}  // namespace app
