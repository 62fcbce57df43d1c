// What qolf-commands.so is made of: its one exported function.
#include "app/CommandLibrary.h"
#include "app/check/CheckRun.h"
#include "app/convert/ConvertCommand.h"
#include "app/draw/DrawArguments.h"
#include "app/options/OptionsRun.h"

#include <array>

namespace {

constexpr std::array kCommands{
    app::CommandEntry{"convert", app::AddConvertCommand},
    app::CommandEntry{"draw", app::AddDrawCommand},
    app::CommandEntry{"check", app::AddCheckCommand},
    app::CommandEntry{"options", app::AddOptionsCommand},
};

constexpr app::CommandLibrary kLibrary{QOLF_VERSION, kCommands, app::Identify};

}  // namespace

extern "C" __attribute__((visibility("default"))) const app::CommandLibrary* QolfCommands() {
    return &kLibrary;
}
