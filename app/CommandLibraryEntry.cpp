// What qolf-commands.so is made of: the list of all subcommands, behind its one exported function.
#include "app/CommandLibrary.h"

#include <array>

namespace {

// In the order of the help text. A program that starts faster without this library has its rows
// again (platform/Commands_posix.cpp).
constexpr std::array kCommands{
    app::CommandEntry{"info", app::AddInfoCommand},
    app::CommandEntry{"convert", app::AddConvertCommand},
    app::CommandEntry{"trace", app::AddTraceCommand},
    app::CommandEntry{"replay", app::AddReplayCommand},
    app::CommandEntry{"draw", app::AddDrawCommand},
    app::CommandEntry{"check", app::AddCheckCommand},
    app::CommandEntry{"options", app::AddOptionsCommand},
};

constexpr app::CommandLibrary kLibrary{QOLF_VERSION, kCommands, app::Identify};

}  // namespace

extern "C" __attribute__((visibility("default"))) const app::CommandLibrary* QolfCommands() {
    return &kLibrary;
}
