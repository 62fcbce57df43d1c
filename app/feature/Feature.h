// One object of a map as the formats other than MIF see it: geometry with style, typed values.
#pragma once

#include "app/feature/Style.h"
#include "app/feature/Values.h"
#include "host/shr/Geometry.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace app {

enum class GeometryKind {
    None,        // a feature without a place: its values only
    Points,      // points
    Line,        // points, with partSizes when there are several sections
    Region,      // rings: points with partSizes
    Rectangle,   // box, and corner radii when rounded
    Ellipse,     // the ellipse in box
    Arc,         // the part of the ellipse in box from startDegrees to endDegrees
    Text,        // points[0], and placement
    Collection,  // the members of the feature
};

enum class Justify { Left, Center, Right };

// A line from a text to what it names.
struct LabelLine {
    bool hasArrow = false;
    shr::Vec2d end;

    bool operator==(const LabelLine&) const = default;
};

// What a Text says and how it lies; its font is the style's.
struct TextPlacement {
    std::string text;           // UTF-8
    double angleDegrees = 0.0;  // counter-clockwise
    double height = 0.0;        // of the letters, world units
    Justify justify = Justify::Left;

    // What only MIF files say. `box` has the two corners in the order of the file, of the text
    // before it is turned about its upper left corner; absent in other sources and after a
    // reprojection.
    std::optional<shr::Box2d> box = {};
    double lineSpacing = 0.0;  // from line to line, in letter heights: 1, 1.5 or 2; 0: not stated
    std::optional<LabelLine> labelLine = {};

    bool operator==(const TextPlacement&) const = default;
};

struct Geometry {
    GeometryKind kind = GeometryKind::None;
    std::vector<shr::Vec2d> points;
    // Line: vertices per section, empty for one section; Region: vertices per ring. Sums to
    // points.size() unless empty.
    std::vector<std::size_t> partSizes;
    // Points and Line: written as MultiPoint or MultiLineString, also with one part.
    bool isMulti = false;
    shr::Box2d box;        // Rectangle, Ellipse and Arc: of the whole ellipse
    double radiusX = 0.0;  // Rectangle: of the corners; both 0 for sharp ones
    double radiusY = 0.0;
    double startDegrees = 0.0;  // Arc: counter-clockwise from the positive x axis, before the
    double endDegrees = 0.0;    // ellipse is stretched; equal angles are the whole ellipse
    TextPlacement placement;    // Text
    bool isSmooth = false;      // Line: drawn as a curve through its vertices
    // Line of two vertices: MIF's object for polylines, not the one for a single straight line.
    bool isPolyline = false;
    std::optional<shr::Vec2d> center = {};  // Region: where a label goes, when the source says so
    Style style;

    bool operator==(const Geometry&) const = default;
};

struct Feature {
    std::uint64_t number = 0;  // 1-based, in the order of the input
    Geometry geometry;
    std::vector<Geometry> members;  // Collection; none of them is a Collection
    std::vector<Value> values;      // one per column of the layer
};

// Replaces curves by their points: a Rectangle or Ellipse becomes a Region of one ring, an Arc a
// Line. Rounded corners, ellipses and arcs get about `segments` edges for a full turn. Other kinds
// stay.
void FlattenCurves(Geometry& geometry, int segments);

// Flattens the feature's geometry and its members.
void FlattenCurves(Feature& feature, int segments);

// Rounds every coordinate, also those of boxes and label lines, to so many decimals. What has no
// more digits than that, or is not a finite number, stays.
void RoundCoordinates(Feature& feature, int decimals);

// The box of the points. Empty without any point, and also when a coordinate is not a finite
// number.
shr::Box2d BoxOf(std::span<const shr::Vec2d> points);

// The box of a geometry: that of its points, or the box of a curve. Empty for None and Collection.
shr::Box2d BoxOf(const Geometry& geometry);

// The sections of a Line: spans of its points.
std::vector<std::span<const shr::Vec2d>> SectionsOf(const Geometry& line);

}  // namespace app
