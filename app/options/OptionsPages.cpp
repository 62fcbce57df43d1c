#include "app/options/OptionsPages.h"

namespace app {

std::string HelpText(const std::wstring& topic) {
    const std::string areas =
        "Areas as curves: an area becomes a polyline for each of its rings.\n";
    if (topic == L"Mif-Import.htm") {
        return areas + "Ignore styles: pens and brushes of the file are left out.\n";
    }
    return areas + "Render text: texts are written.\n"
                   "Render marker symbols: markers are written, each as a point.\n";
}

}  // namespace app
