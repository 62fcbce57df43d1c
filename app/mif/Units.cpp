#include "app/mif/Units.h"

#include "app/mif/Words.h"

#include <algorithm>
#include <array>

namespace app {
namespace {

constexpr double kSurveyFeet = 3937.0 / 1200.0;

constexpr std::array kUnits = {
    Unit{"m", 1.0, true},
    Unit{"meters", 1.0, true},
    Unit{"f", kSurveyFeet, true},
    Unit{"feet", kSurveyFeet, true},
    Unit{"survey ft", kSurveyFeet, true},
    Unit{"survey feet", kSurveyFeet, true},
    Unit{"us survey ft", kSurveyFeet, true},
    Unit{"mi", 1.0 / 1609.344, false},
    Unit{"km", 0.001, false},
    Unit{"in", 1.0 / 0.0254, false},
    Unit{"ft", 1.0 / 0.3048, false},
    Unit{"yd", 1.0 / 0.9144, false},
    Unit{"mm", 1000.0, false},
    Unit{"cm", 100.0, false},
    Unit{"nmi", 1.0 / 1852.0, false},
    Unit{"li", kSurveyFeet / 0.66, false},
    Unit{"ch", kSurveyFeet / 66.0, false},
    Unit{"rd", kSurveyFeet / 16.5, false},
};

}  // namespace

const Unit* FindUnit(std::string_view name) {
    const auto* const found = std::ranges::find_if(
        kUnits, [&](const Unit& unit) { return EqualsIgnoringCase(unit.name, name); });
    return found == kUnits.end() ? nullptr : found;
}

}  // namespace app
