#include "app/Commands.h"

#include "app/InfoCommand.h"
#include "app/ReplayCommand.h"
#include "app/TraceCommand.h"
#include "app/options/OptionsCommand.h"
#ifdef QOLF_HAS_CONVERT
#include "app/convert/ConvertCommand.h"
#endif
#ifdef QOLF_HAS_CHECK
#include "app/check/CheckCommand.h"
#endif
#ifdef QOLF_HAS_DRAW
#include "app/draw/DrawCommand.h"
#endif

#include <array>

namespace app {
namespace {

constexpr std::array kCommands{
    CommandEntry{"info", AddInfoCommand},
#ifdef QOLF_HAS_CONVERT
    CommandEntry{"convert", AddConvertCommand},
#endif
    CommandEntry{"trace", AddTraceCommand},     CommandEntry{"replay", AddReplayCommand},
#ifdef QOLF_HAS_DRAW
    CommandEntry{"draw", AddDrawCommand},
#endif
#ifdef QOLF_HAS_CHECK
    CommandEntry{"check", AddCheckCommand},
#endif
    CommandEntry{"options", AddOptionsCommand},
};

}  // namespace

std::span<const CommandEntry> AllCommands() {
    return kCommands;
}

}  // namespace app
