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

[[noreturn]] void FailStoring() {
    throw Failure(PathText(standalone::OptionStore::UserFile()) +
                  ": the options could not be written");
}

}  // namespace

std::vector<std::string> OptionNames() {
    std::vector<std::string> names;
    for (const KnownOption& option : kOptions) {
        names.emplace_back(option.name);
    }
    return names;
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
        if (name.size() == setting.size()) {
            throw UsageError("\"" + setting + "\" lacks a value: " + option->name + "=yes or " +
                             option->name + "=no");
        }
        if (!host.GetStringOption(standalone::Widen(setting), standalone::Widen(option->name),
                                  value)) {
            throw UsageError("\"" + setting + "\": the value must be yes or no");
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

int ShowPage(OptionsPage page, const std::string& modulePath, Reporter& reporter) {
    standalone::OptionStore store(standalone::OptionStore::UserFile());
    const Module module(modulePath);
    OptionsHost host(store, module.Library());
    zeio::IoManager manager(host);
    bool isAccepted = false;
    if (page == OptionsPage::Import) {
        const ImportFilterPtr filter = module.NewImportFilter(manager);
        isAccepted = ShowImportOptions(*filter);
    } else {
        const ExportFilterPtr filter = module.NewExportFilter(manager);
        isAccepted = ShowExportOptions(*filter);
    }
    reporter.Note(isAccepted ? "the options are stored" : "nothing was changed");
    return 0;
}

}  // namespace app
