#include "app/Commands.h"

namespace app {

// The library of the others is not built for this system; nor is what identifies systems.
void AddCommands(CLI::App& program, CommandContext& context, const std::string& /*wanted*/) {
    AddInfoCommand(program, context);
    AddTraceCommand(program, context);
    AddReplayCommand(program, context);
    AddOptionsCommand(program, context);
}

}  // namespace app
