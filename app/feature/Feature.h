// One object of a map as the formats other than MIF see it: geometry, typed values and style.
#pragma once

#include "app/mif/HeaderScan.h"
#include "host/shr/Geometry.h"
#include "host/zeio/TrObjects.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <variant>
#include <vector>

namespace app {

enum class GeometryKind {
    Points,     // points
    Line,       // points, at least two
    Region,     // rings: points with partSizes
    Rectangle,  // box, and corner radii when rounded
    Ellipse,    // the ellipse in box
    Text,       // points[0], and text
};

// A value is null, text (valid UTF-8), a whole number, a number or a truth value.
using Value = std::variant<std::monostate, std::string, std::int64_t, double, bool>;

// The style in force when the object came; seen flags say whether the file gave one.
struct FeatureStyle {
    bool hasPen = false;
    bool hasBrush = false;
    zeio::TrPen pen;
    zeio::TrBrush brush;
};

struct TextPlacement {
    std::string text;  // UTF-8
    double angleDegrees = 0.0;
    double height = 0.0;  // world units
    std::string fontFace;
    std::uint16_t fontFlags = 0;  // bits of zeio::TrFont
    zeio::TrText::Justify justify = zeio::TrText::Justify::Left;
};

struct Feature {
    std::uint64_t number = 0;  // 1-based, in the order of the input
    GeometryKind kind = GeometryKind::Points;
    std::vector<shr::Vec2d> points;
    std::vector<std::size_t> partSizes;  // Region: vertices per ring, sums to points.size()
    shr::Box2d box;
    double radiusX = 0.0;
    double radiusY = 0.0;
    TextPlacement placement;
    FeatureStyle style;
    std::vector<Value> values;  // one a column of the layer
};

// A column of a layer with its name in UTF-8.
struct LayerColumn {
    std::string name;
    ColumnKind kind = ColumnKind::Char;
    int width = 0;
    int decimals = 0;
};

// The text of a value turned into the column's type: numbers for the numeric kinds, true and false
// for Logical, ISO dates and times; a text that is no such value stays text, an empty one of a
// typed column is null.
Value TypedValue(const LayerColumn& column, std::string text);

// Replaces the curves by their points: a Rectangle or Ellipse becomes a Region of one ring (rounded
// corners and ellipses with about `segments` edges a full turn); other kinds stay.
void FlattenCurves(Feature& feature, int segments);

// The box of the points. Without any, and also when a coordinate is no finite number, the box is
// empty.
shr::Box2d BoxOf(std::span<const shr::Vec2d> points);

}  // namespace app
