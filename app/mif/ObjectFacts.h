// What the program itself knows of one object of a .mif file.
#pragma once

#include "host/shr/Geometry.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace app {

enum class ObjectKind : std::uint8_t {
    None,
    Point,
    Line,
    Pline,
    Region,
    Arc,
    Text,
    Rect,
    RoundRect,
    Ellipse,
    Multipoint,
    Collection,
    Skipped,  // lines that look like an object of a kind that there is not; no feature
};

// Returns the kind that a keyword names, in any case; Skipped for any other word.
ObjectKind ObjectKindOf(std::string_view word);

// Most objects are read by the module, which hands over one graphic object for each: then the facts
// only say what it can't carry. What it would read wrongly is cut out of the copy that it gets, and
// the facts hold all of it.
struct ObjectFacts {
    ObjectKind kind = ObjectKind::None;
    bool isMultiple = false;       // Pline Multiple
    bool isOwn = false;            // the geometry is here; the module does not see the object
    std::uint64_t handedOver = 0;  // graphic objects of the module, members' not included

    // The object's clauses as in the file, line by line: Pen, Symbol, Font, Angle, ...
    std::string clauses;

    // Text: its string as the file's bytes, doubled quotes made one.
    std::string text;

    // Text: two corners as in the file. Of an own object also Line, Rect, RoundRect
    // (with the size of its corners), Ellipse, and Arc (with its angles in degrees).
    std::array<double, 6> numbers{};
    bool hasNumbers = false;

    // Of an own object: Point, Pline, Region, Multipoint. Sizes of the parts, empty for one part.
    std::vector<shr::Vec2d> points;
    std::vector<std::size_t> partSizes;

    std::vector<ObjectFacts> members;  // Collection
};

}  // namespace app
