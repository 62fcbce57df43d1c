// The codes of a CoordSys clause: what the format has, and how much of it the module reads. For the
// command; the module has tables of its own: tests/mif/ holds the two equal.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>

namespace app {

// A number behind the unit of a clause: degrees, a factor, or a length in the clause's unit.
enum class ProjectionParameter : std::size_t {
    OriginLongitude,
    OriginLatitude,
    StandardParallel1,
    StandardParallel2,
    Azimuth,
    RectifiedAngle,  // from the rectified to the skew grid
    ScaleFactor,
    FalseEasting,
    FalseNorthing,
};
inline constexpr std::size_t kProjectionParameterCount = 9;

struct Projection {
    std::int64_t code = 0;
    int fromVersion = 300;                            // of the format
    const char* words = "";                           // "Transverse Mercator"
    std::span<const ProjectionParameter> parameters;  // in the order of the clause
    bool hasRange = false;  // one more number follows: degrees of the Earth that are shown

    // How many numbers the module reads behind the unit; absent when it stops at the code. Clauses
    // of projections 9 and 18 have another layout in the module than in files.
    std::optional<std::size_t> moduleParameterCount;

    bool Takes(ProjectionParameter parameter) const;
};

// The projections whose clauses have another layout in the module than in files.
inline constexpr std::int64_t kAlbers = 9;
inline constexpr std::int64_t kNewZealandMapGrid = 18;

// Returns the row of a code between 1 and 999 whose layout is known; null for others.
const Projection* KnownProjection(std::int64_t code);

// Returns the row of a code that the module reads, 2003 among them; null where it stops.
const Projection* ModuleProjection(std::int64_t code);

// A code with what its thousands announce.
struct ProjectionCode {
    const Projection* projection = nullptr;  // null when the code without its thousands is unknown
    bool hasAffine = false;  // 1000 and 3000: an affine transformation follows the parameters
    bool hasBounds = false;  // 2000 and 3000: bounds follow
};
ProjectionCode SplitProjectionCode(std::int64_t code);

// Whether the module finds the datum of a code (999 and 9999 are no codes of datums but announce
// their parameters), and the ellipsoid of one. It finds no ellipsoid for code 0 (GRS 80).
bool IsKnownDatum(std::int64_t code);
bool IsKnownEllipsoid(std::int64_t code);

// What a code means, in words; never empty.
std::string ProjectionInWords(std::int64_t code);

// The code with exactly the same meaning that the module knows: n for 2000 + n, 8 for 34.
std::optional<std::int64_t> EqualProjection(std::int64_t code);

// What to do about a file whose import stops at such a code; a sentence with its full stop.
std::string AdviceForProjection(std::int64_t code);

}  // namespace app
