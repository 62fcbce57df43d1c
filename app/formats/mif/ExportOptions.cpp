#include "app/formats/mif/ExportOptions.h"

#include "app/run/ImportRun.h"
#include "host/zeio/IoManager.h"
#include "standalone/IoHost.h"
#include "standalone/Text.h"

#include <array>
#include <memory>

namespace app {
namespace {

struct Option {
    const wchar_t* name;
    bool ObjectChoices::*choice;
};
constexpr std::array<Option, 3> kOptions{{{L"AreasToCurves", &ObjectChoices::areasToCurves},
                                          {L"RenderText", &ObjectChoices::hasTexts},
                                          {L"RenderMarkers", &ObjectChoices::hasPoints}}};

}  // namespace

ObjectChoices ObjectChoicesOf(const TargetOptions& options) {
    const std::unique_ptr<standalone::OptionStore> store = OpenOptionStore(options.noStore);
    zeio::IoHost host(*store);
    zeio::IoManager manager(host);
    const std::wstring text = standalone::Widen(options.optionString.value_or(""));
    ObjectChoices choices;
    bool usesDefaults = false;
    bool forgets = false;
    manager.GetStringOption(text, L"Defaults", usesDefaults);
    manager.GetStringOption(text, L"ForgetOptions", forgets);
    for (const Option& option : kOptions) {
        bool& choice = choices.*option.choice;
        if (!usesDefaults) {
            manager.GetOption(option.name, choice, true);
        }
        manager.GetStringOption(text, option.name, choice);
        if (options.optionString) {
            manager.SetOption(option.name, choice, !forgets);
        }
    }
    return choices;
}

}  // namespace app
