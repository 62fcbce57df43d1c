#include "app/mif/Units.h"

#include "app/mif/Words.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace app {
namespace {

constexpr double kSurveyFoot = 1200.0 / 3937.0;

// Of several names for one unit, the first is written. "f" and "feet" are survey feet because the
// module takes them so; "ft" is the international foot, as the format has it.
constexpr std::array kUnits = {
    Unit{"m", 1.0, true, 7},
    Unit{"meters", 1.0, true},
    Unit{"survey ft", kSurveyFoot, true, 8},
    Unit{"survey feet", kSurveyFoot, true},
    Unit{"us survey ft", kSurveyFoot, true},
    Unit{"f", kSurveyFoot, true},
    Unit{"feet", kSurveyFoot, true},
    Unit{"mi", 1609.344, false, 0},
    Unit{"km", 1000.0, false, 1},
    Unit{"in", 0.0254, false, 2},
    Unit{"ft", 0.3048, false, 3},
    Unit{"yd", 0.9144, false, 4},
    Unit{"mm", 0.001, false, 5},
    Unit{"cm", 0.01, false, 6},
    Unit{"nmi", 1852.0, false, 9},
    Unit{"li", kSurveyFoot * 0.66, false, 30},
    Unit{"ch", kSurveyFoot * 66.0, false, 31},
    Unit{"rd", kSurveyFoot * 16.5, false, 32},
};

const Unit* OrNull(const Unit* found) {
    return found == kUnits.end() ? nullptr : found;
}

}  // namespace

const Unit* FindUnit(std::string_view name) {
    return OrNull(std::ranges::find_if(
        kUnits, [&](const Unit& unit) { return EqualsIgnoringCase(unit.name, name); }));
}

const Unit* FindUnitByNumber(int number) {
    return number < 0 ? nullptr : OrNull(std::ranges::find(kUnits, number, &Unit::number));
}

const Unit* FindUnitByLength(double metres) {
    constexpr double kSame = 1e-10;
    return OrNull(std::ranges::find_if(
        kUnits, [&](const Unit& unit) { return std::fabs(metres / unit.metres - 1.0) < kSame; }));
}

}  // namespace app
