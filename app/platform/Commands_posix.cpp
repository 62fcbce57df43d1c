#include "app/CommandLibrary.h"
#include "app/Commands.h"

#include <algorithm>
#include <span>

namespace app {
namespace {

bool IsOwn(const std::string& name) {
    return std::ranges::any_of(Commands(),
                               [&name](const CommandEntry& entry) { return entry.name == name; });
}

}  // namespace

void AddCommands(CLI::App& program, CommandContext& context, const std::string& wanted) {
    context.identify = [](const CoordinateSystem& system) {
        return LoadCommandLibrary().identify(system);
    };
    context.systemOfOption = [](const std::string& option, const std::string& definition,
                                Reporter& reporter) {
        return LoadCommandLibrary().systemOfOption(option, definition, reporter);
    };
    context.runStats = [](const StatsOptions& options, Reporter& reporter) {
        return LoadCommandLibrary().runStats(options, reporter);
    };
    const std::span<const CommandEntry> commands =
        IsOwn(wanted) ? Commands() : LoadCommandLibrary().commands;
    for (const CommandEntry& entry : commands) {
        entry.add(program, context);
    }
}

}  // namespace app
