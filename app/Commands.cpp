#include "app/Commands.h"

#include "app/InfoCommand.h"

#include <array>

namespace app {
namespace {

constexpr std::array kCommands{
    CommandEntry{"info", AddInfoCommand},
};

}  // namespace

std::span<const CommandEntry> AllCommands() {
    return kCommands;
}

}  // namespace app
