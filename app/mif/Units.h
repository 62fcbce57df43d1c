// The units of length that a CoordSys clause can name.
#pragma once

#include <string_view>

namespace app {

struct Unit {
    std::string_view name;
    double perMetre;
    bool isKnownToModule;  // by name; it takes others as metres
};

// The unit of a name, in any ASCII case; null for a name that the format does not have.
const Unit* FindUnit(std::string_view name);

}  // namespace app
