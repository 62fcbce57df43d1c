#include "app/Commands.h"

namespace app {

// The library of the others is not built for this system; nor is what identifies systems.
void AddCommands(CLI::App& program, CommandContext& context, const std::string& /*wanted*/,
                 const std::vector<std::string>& /*arguments*/) {
    for (const CommandEntry& entry : Commands()) {
        entry.add(program, context);
    }
}

}  // namespace app
