// The options of qolf options.
#include "app/commands/Command.h"
#include "app/options/OptionsRun.h"

#include <CLI/CLI.hpp>

#include <memory>

namespace app {
namespace {

constexpr const char* kOptionsFooter = R"(
Without a subcommand the options are listed. AreasToCurves serves import and export alike.
They act on the module's own runs alone: trace, replay, convert --as-is, and hosts.

Examples:
  qolf options
  qolf options set RenderText=no
  qolf options export          the export's page, in the terminal
  qolf options reset)";

}  // namespace

void AddOptionsCommand(CLI::App& program, CommandContext& context) {
    CLI::App* command = program.add_subcommand("options", "Show and change the filters' options");
    command->footer(kOptionsFooter);
    command->require_subcommand(0, 1);
    // The callbacks of the subcommands run before this command's own, which must not undo them.
    auto isChosen = std::make_shared<bool>(false);
    const auto choose = [isChosen, &context](std::function<int()> work) {
        *isChosen = true;
        context.run = std::move(work);
    };
    auto settings = std::make_shared<std::vector<std::string>>();
    CLI::App* set = command->add_subcommand("set", "Store options: NAME=yes or NAME=no");
    set->add_option("settings", *settings, "What to store")->type_name("NAME=VALUE")->required();
    set->callback([choose, settings] { choose([settings] { return SetOptions(*settings); }); });
    command->add_subcommand("reset", "Forget what is stored")->callback([choose] {
        choose([] { return ResetOptions(); });
    });
    for (const OptionsPage page : {OptionsPage::Import, OptionsPage::Export}) {
        const bool isImport = page == OptionsPage::Import;
        command
            ->add_subcommand(isImport ? "import" : "export",
                             isImport ? "Show the import's page" : "Show the export's page")
            ->callback([choose, page, &context] {
                choose([page, &context] {
                    return ShowPage(page, context.modulePath, context.reporter);
                });
            });
    }
    command->callback([isChosen, &context] {
        if (!*isChosen) {
            context.run = [] { return ListOptions(); };
        }
    });
}

}  // namespace app
