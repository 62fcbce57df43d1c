// The projection codes of a CoordSys clause that the module knows.
#pragma once

#include <cstddef>
#include <cstdint>

namespace app {

struct Projection {
    std::int64_t code = 0;
    std::size_t parameterCount = 0;  // that the module reads behind the unit
    bool hasRange = false;           // a number follows that the module ignores
};

// Null for a code that stops an import.
const Projection* FindProjection(std::int64_t code);

}  // namespace app
