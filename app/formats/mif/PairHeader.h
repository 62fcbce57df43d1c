// The header of a .mif file.
#pragma once

#include "app/feature/Values.h"
#include "host/shr/Geometry.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace app {

// Where the Bounds of the objects are written.
enum class BoundsPlace {
    Nowhere,     // the clause has its own Bounds, or there are none
    SameLine,    // behind a clause that ends at its datum: the module would skip the line behind it
    LineBehind,  // where the module looks for them
};

struct PairHeader {
    int version = 300;
    std::string charset = {};
    char delimiter = ',';
    std::string coordSys = {};  // the clause without the line end at its end; "" for none
    BoundsPlace boundsPlace = BoundsPlace::Nowhere;
    shr::Box2d bounds = {};                 // empty when nothing has a place
    std::vector<LayerColumn> columns = {};  // names in the bytes of the charset
};

// Returns the lowest version of the format that has columns of the kind.
int VersionOf(ColumnKind kind);

// Returns the header up to and with the Data line.
std::string HeaderText(const PairHeader& header);

// The same in exactly so many bytes: the line before Data takes what is left, in blanks. `size`
// must not be less than what HeaderText gives.
std::string HeaderText(const PairHeader& header, std::size_t size);

// Returns how many bytes a header can need whose version, bounds and column types aren't known yet.
// The charset must be the longest that it can become, and the names those in UTF-8.
std::size_t MostHeaderBytes(PairHeader header);

// Returns the box that a header can have: no side without length, which programs refuse. Zeros and
// ones for an empty box.
shr::Box2d UsableBounds(const shr::Box2d& box);

}  // namespace app
