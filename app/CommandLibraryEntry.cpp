// What qolf-commands.so is made of: the list of all subcommands, behind its one exported function.
#include "app/CommandLibrary.h"
#include "app/crs/Definitions.h"

extern "C" __attribute__((visibility("default"))) const app::CommandLibrary* QolfCommands() {
    static const app::CommandLibrary library{
        QOLF_VERSION,  app::Commands(),    app::Identify,      app::SystemOfOption,
        app::RunStats, app::ResolveInputs, app::OpenUnlessPair};
    return &library;
}
