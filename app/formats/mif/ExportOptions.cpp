#include "app/formats/mif/ExportOptions.h"

#include "standalone/IoHost.h"
#include "standalone/OptionStore.h"
#include "standalone/Text.h"

#include <array>

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
    standalone::OptionStore inMemory;
    zeio::IoHost host(inMemory);
    const std::wstring text = standalone::Widen(options.optionString.value_or(""));
    ObjectChoices choices;
    for (const Option& option : kOptions) {
        host.GetStringOption(text, option.name, choices.*option.choice);
    }
    return choices;
}

}  // namespace app
