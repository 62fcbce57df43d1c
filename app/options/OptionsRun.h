// qolf options: the filters' stored options, as a list and as the filters' own pages.
#pragma once

#include "app/Commands.h"

namespace app {

void AddOptionsCommand(CLI::App& program, CommandContext& context);

}  // namespace app
