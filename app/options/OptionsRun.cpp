#include "app/options/OptionsRun.h"

#include "app/base/Errors.h"
#include "app/base/Output.h"
#include "app/base/Paths.h"
#include "app/options/OptionsPages.h"
#include "app/run/Module.h"
#include "host/platform/Stdio.h"
#include "host/zeio/IoManager.h"
#include "standalone/IoHost.h"
#include "standalone/OptionStore.h"
#include "standalone/Text.h"

#include <array>
#include <memory>
#include <string>

namespace app {

namespace {

constexpr const char* kFooter = R"(
Without a subcommand the options are listed. AreasToCurves serves import and export alike.

Examples:
  qolf options
  qolf options set RenderText=no
  qolf options export          the export's page, in the terminal
  qolf options reset)";

struct KnownOption {
    const char* name;
    bool defaultValue;
    const char* meaning;
};

constexpr std::array kOptions = {
    KnownOption{"AreasToCurves", false, "read and write areas as polylines"},
    KnownOption{"IgnoreStyles", false, "import: leave out pens and brushes"},
    KnownOption{"RenderText", true, "export: take texts"},
    KnownOption{"RenderMarkers", true, "export: take marker symbols"},
};

const KnownOption* FindOption(const std::string& name) {
    for (const KnownOption& option : kOptions) {
        if (platform::CompareNoCase(option.name, name.c_str()) == 0) {
            return &option;
        }
    }
    return nullptr;
}

int ListOptions() {
    const standalone::OptionStore store(standalone::OptionStore::UserFile());
    OutputFile out("-", IfExists::Overwrite);
    for (const KnownOption& option : kOptions) {
        const std::optional<bool> stored = store.Get(standalone::Widen(option.name));
        std::string line = option.name;
        line.resize(15, ' ');
        line += stored.value_or(option.defaultValue) ? "yes" : "no ";
        line.resize(20, ' ');
        line += std::string(option.meaning) + (stored ? "" : " (default)") + "\n";
        out.Write(line);
    }
    out.Finish();
    return 0;
}

[[noreturn]] void FailStoring() {
    throw Failure(PathText(standalone::OptionStore::UserFile()) +
                  ": the options could not be written");
}

int SetOptions(const std::vector<std::string>& settings) {
    standalone::OptionStore store(standalone::OptionStore::UserFile());
    zeio::IoHost host(store);
    for (const std::string& setting : settings) {
        const std::string name = setting.substr(0, setting.find('='));
        const KnownOption* option = FindOption(name);
        if (option == nullptr) {
            throw UsageError("there is no option \"" + name + "\"; qolf options lists them");
        }
        bool value = false;
        if (!host.GetStringOption(standalone::Widen(setting), standalone::Widen(option->name),
                                  value)) {
            throw UsageError("\"" + setting + "\": a value is yes or no");
        }
        if (!store.Set(standalone::Widen(option->name), value, /*persistent=*/true)) {
            FailStoring();
        }
    }
    return 0;
}

int ResetOptions() {
    standalone::OptionStore store(standalone::OptionStore::UserFile());
    if (!store.Clear()) {
        FailStoring();
    }
    return 0;
}

int ShowPage(bool isImport, const std::string& modulePath, Reporter& reporter) {
    standalone::OptionStore store(standalone::OptionStore::UserFile());
    const Module module(modulePath);
    OptionsHost host(store, module.Library());
    zeio::IoManager manager(host);
    bool isAccepted = false;
    if (isImport) {
        const ImportFilterPtr filter = module.NewImportFilter(manager);
        isAccepted = ShowImportOptions(*filter);
    } else {
        const ExportFilterPtr filter = module.NewExportFilter(manager);
        isAccepted = ShowExportOptions(*filter);
    }
    reporter.Note(isAccepted ? "the options are stored" : "nothing was changed");
    return 0;
}

}  // namespace

void AddOptionsCommand(CLI::App& program, CommandContext& context) {
    CLI::App* command = program.add_subcommand("options", "Show and change the filters' options");
    command->footer(kFooter);
    command->require_subcommand(0, 1);
    // The subcommands' callbacks run before this one and must not be undone by it.
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
    for (const bool isImport : {true, false}) {
        command
            ->add_subcommand(isImport ? "import" : "export",
                             isImport ? "Show the import's page" : "Show the export's page")
            ->callback([choose, isImport, &context] {
                choose([isImport, &context] {
                    return ShowPage(isImport, context.modulePath, context.reporter);
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
