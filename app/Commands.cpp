#include "app/Commands.h"

#include "app/info/InfoRun.h"
#include "app/trace/ReplayRun.h"
#include "app/trace/TraceRun.h"
#ifdef QOLF_HAS_COMMAND_LIBRARY
#include "app/CommandLibrary.h"
#else
#include "app/options/OptionsRun.h"
#endif

#include <algorithm>
#include <array>
#include <string_view>

namespace app {
namespace {

// Null stands for a command of the command library.
constexpr std::array kCommands{
#ifdef QOLF_HAS_COMMAND_LIBRARY
    CommandEntry{"info", AddInfoCommand},   CommandEntry{"convert", nullptr},
    CommandEntry{"trace", AddTraceCommand}, CommandEntry{"replay", AddReplayCommand},
    CommandEntry{"draw", nullptr},          CommandEntry{"check", nullptr},
    CommandEntry{"options", nullptr},
#else
    CommandEntry{"info", AddInfoCommand},
    CommandEntry{"trace", AddTraceCommand},
    CommandEntry{"replay", AddReplayCommand},
    CommandEntry{"options", AddOptionsCommand},
#endif
};

bool IsOurOwn(std::string_view name) {
    return std::any_of(kCommands.begin(), kCommands.end(), [name](const CommandEntry& entry) {
        return entry.name == name && entry.add != nullptr;
    });
}

#ifdef QOLF_HAS_COMMAND_LIBRARY
void AddFromLibrary(std::string_view name, CLI::App& program, CommandContext& context) {
    for (const CommandEntry& entry : LoadCommandLibrary().commands) {
        if (entry.name == name) {
            entry.add(program, context);
        }
    }
}
#else
void AddFromLibrary(std::string_view /*name*/, CLI::App& /*program*/, CommandContext& /*context*/) {
}
#endif

}  // namespace

void AddCommands(CLI::App& program, CommandContext& context, const std::string& wanted) {
    const bool needsLibrary = !IsOurOwn(wanted);
    for (const CommandEntry& entry : kCommands) {
        if (entry.add != nullptr) {
            entry.add(program, context);
        } else if (needsLibrary) {
            AddFromLibrary(entry.name, program, context);
        }
    }
}

}  // namespace app
