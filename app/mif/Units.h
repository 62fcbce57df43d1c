// The units of length that a CoordSys clause can name.
#pragma once

#include <string_view>

namespace app {

struct Unit {
    std::string_view name;
    double metres;
    bool isKnownToModule;  // by name; it takes others as metres
    int number = -1;       // in lists of systems, from which it gets into clauses; -1: none

    double PerMetre() const { return 1.0 / metres; }
};

// The unit of a name, in any ASCII case; null for a name that the format does not have.
const Unit* FindUnit(std::string_view name);

// The unit of a number in lists of systems (7: metres); null for other numbers.
const Unit* FindUnitByNumber(int number);

// The unit of this length, to one part in 10^10, by the name that is written; null for a length
// that has no name.
const Unit* FindUnitByLength(double metres);

}  // namespace app
