// The codes of a CoordSys clause: those that the module knows, and words for the others. For the
// command; the module has tables of its own: tests/mif/ holds the two equal.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace app {

struct Projection {
    std::int64_t code = 0;
    std::size_t parameterCount = 0;  // that the module reads behind the unit
    bool hasRange = false;           // a number follows that the module ignores
};

// Null for a code that stops an import.
const Projection* FindProjection(std::int64_t code);

// Whether the module finds the datum of a code (999 and 9999 are no codes of datums but announce
// their parameters), and the ellipsoid of one. It finds no ellipsoid for code 0 (GRS 80).
bool IsKnownDatum(std::int64_t code);
bool IsKnownEllipsoid(std::int64_t code);

// What a code that the module does not know stands for, in words; never empty.
std::string ProjectionInWords(std::int64_t code);

// The code with exactly the same meaning that the module knows: n for 2000 + n, 8 for 34.
std::optional<std::int64_t> EqualProjection(std::int64_t code);

// What to do about a file whose import stops at such a code; a sentence with its full stop.
std::string AdviceForProjection(std::int64_t code);

}  // namespace app
