#include "app/Commands.h"
#include "app/crs/Definitions.h"
#include "app/inputs/Inputs.h"
#include "app/stats/StatsRun.h"

namespace app {

// All commands are in the program itself, with all libraries: there is nothing to load.
void AddCommands(CLI::App& program, CommandContext& context, const std::string& /*wanted*/,
                 const std::vector<std::string>& /*arguments*/) {
    context.identify = Identify;
    context.systemOfOption = SystemOfOption;
    context.runStats = RunStats;
    context.resolveInputs = ResolveInputs;
    context.openUnlessPair = OpenUnlessPair;
    for (const CommandEntry& entry : Commands()) {
        entry.add(program, context);
    }
}

}  // namespace app
