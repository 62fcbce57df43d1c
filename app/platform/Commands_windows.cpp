#include "app/Commands.h"
#include "app/crs/Definitions.h"

namespace app {

// All commands are in the program itself, with all libraries: there is nothing to load.
void AddCommands(CLI::App& program, CommandContext& context, const std::string& /*wanted*/) {
    context.identify = Identify;
    context.systemOfOption = SystemOfOption;
    for (const CommandEntry& entry : Commands()) {
        entry.add(program, context);
    }
}

}  // namespace app
