#include "app/CommandLibrary.h"
#include "app/Commands.h"

#include <algorithm>
#include <array>
#include <span>

namespace app {
namespace {

// Rows of the list that start without the command library, and so in a few milliseconds.
constexpr std::array kOwnCommands{
    CommandEntry{"info", AddInfoCommand},
    CommandEntry{"trace", AddTraceCommand},
    CommandEntry{"replay", AddReplayCommand},
};

bool IsOwn(const std::string& name) {
    return std::any_of(kOwnCommands.begin(), kOwnCommands.end(),
                       [&name](const CommandEntry& entry) { return entry.name == name; });
}

}  // namespace

void AddCommands(CLI::App& program, CommandContext& context, const std::string& wanted) {
    context.identify = [](const CoordinateSystem& system) {
        return LoadCommandLibrary().identify(system);
    };
    const std::span<const CommandEntry> commands =
        IsOwn(wanted) ? std::span<const CommandEntry>(kOwnCommands) : LoadCommandLibrary().commands;
    for (const CommandEntry& entry : commands) {
        entry.add(program, context);
    }
}

}  // namespace app
