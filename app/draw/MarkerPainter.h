// Draws point symbols: the shapes of the default set, and characters of symbol fonts.
#pragma once

#include "app/draw/FontCatalogue.h"
#include "app/draw/LayerView.h"
#include "app/draw/MarkerGrid.h"
#include "host/shr/Color4b.h"
#include "host/zeio/TrObjects.h"

#include <cairo.h>

#include <span>
#include <string_view>

namespace app {

// The outline of a symbol in a square from -1 to 1, y downwards. No points: a circle.
struct MarkerShape {
    std::string_view name;
    std::span<const PagePoint> outline;
};

// The default set has this many shapes; other indices start over.
inline constexpr int kMarkerShapeCount = 10;
const MarkerShape& MarkerShapeOf(int symbolIndex);

// The diameter in pixels of a symbol of this size on the page; 0, and what is no number, gives the
// usual size. Stays between a visible and a bearable size.
double MarkerDiameter(double sizeOnPage);

class MarkerPainter {
public:
    explicit MarkerPainter(cairo_t* context) : context_(context) {}

    // A symbol that would hide behind one of the same look is left out (app/draw/MarkerGrid.h).
    void Draw(const zeio::TrMarkerSet& markers, const LayerView& view, const shr::Color4b& color);

    // Something else was drawn: symbols from now on stand on top of it.
    void Forget() { grid_.Forget(); }

private:
    void DrawMarker(const MarkerLook& look, const PagePoint& at) const;
    void DrawShape(const MarkerShape& shape, const PagePoint& at, double radius) const;
    void DrawCharacter(const std::string& character, const PagePoint& at, double diameter) const;

    cairo_t* context_;
    FontCatalogue fonts_;
    MarkerGrid grid_;
};

}  // namespace app
