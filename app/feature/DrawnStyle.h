// What an object is drawn with: its own style, and its layer's colours where it has none.
#pragma once

#include "app/feature/DrawingColors.h"
#include "app/feature/Feature.h"
#include "app/feature/StyleLooks.h"
#include "app/feature/SymbolShapes.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <utility>

namespace app {

enum class StyleSource {
    Objects,  // the styles of the objects
    Layers,   // the layers' colours alone
};

// Lengths are pixels throughout.
struct Stroke {
    shr::Color4b color;
    double width = 0.0;              // 0: no line
    std::span<const double> dashes;  // in multiples of the width; empty is solid
};

struct Fill {
    BrushLook look;
    shr::Color4b fore;
    shr::Color4b back{255, 255, 255, 0};  // between the lines, under a tint
};

// A point symbol: a shape, or a character of an installed font.
struct Marker {
    enum class Border { None, Light, Black, White };

    double diameter = 0.0;  // 0: nothing is drawn
    shr::Color4b color;
    const SymbolShape* shape = nullptr;  // of symbols without a character
    Border border = Border::None;
    std::string character;  // UTF-8
    std::string family;
    bool isBold = false;
    bool hasShadow = false;
    double degrees = 0.0;  // counter-clockwise

    bool operator==(const Marker&) const = default;
};

// The width of a border, outside the symbol, and its colour.
double BorderWidth(const Marker& marker);
const shr::Color4b& BorderColor(Marker::Border border);

// Under the thinnest pens the dashes would drown: they are those of a pen of this width, pixels.
inline constexpr double kThinnestDashUnit = 1.0;

struct Lettering {
    std::string family;  // empty: the system's own sans-serif
    bool isBold = false;
    bool isItalic = false;
    bool isUnderlined = false;
    bool hasShadow = false;
    shr::Color4b color;
    std::optional<shr::Color4b> halo;    // around the letters
    std::optional<shr::Color4b> ground;  // a box behind them
};

// Finds the character of a font by its code, as UTF-8; empty when there is none to draw.
using CharacterFinder = std::function<std::string(const std::string& font, int code)>;

class StyleResolver {
public:
    StyleResolver(StyleSource source, CharacterFinder characterOf)
        : source_(source), colors_(ColorsOfLayer(0)), characterOf_(std::move(characterOf)) {}

    // Layers have colours by their number, from 0.
    void BeginLayer(std::size_t layer) { colors_ = ColorsOfLayer(layer); }

    // `kind` is Line, or that of an area.
    Stroke StrokeOf(const Style& style, GeometryKind kind) const;
    Fill FillOf(const Style& style) const;
    Marker MarkerOf(const Style& style) const;
    Lettering LetteringOf(const Style& style) const;

    // By how many pixels the object's ink reaches beyond its points.
    double ReachOf(const Geometry& geometry) const;

private:
    StyleSource source_;
    LayerColors colors_;
    CharacterFinder characterOf_;
};

}  // namespace app
