// Small pictures in memory, and short ways to make the geometry that is drawn in them.
#pragma once

#include "app/draw/Canvas.h"
#include "app/draw/MapPainter.h"

#include <functional>
#include <string>
#include <vector>

namespace draw_test {

inline constexpr shr::Color4b kWhite{255, 255, 255};
inline constexpr shr::Color4b kBlack{0, 0, 0};
inline constexpr shr::Color4b kRed{255, 0, 0};
inline constexpr shr::Color4b kGreen{0, 255, 0};
inline constexpr shr::Color4b kBlue{0, 0, 255};

// Lays the world from (0, 0) to (100, 100) on a page of 100 by 100 pixels.
app::Viewport PlainViewport();

// A white raster picture of 100 by 100 pixels, on which a world unit is a pixel: world (0, 0) is
// the bottom left corner.
class RasterPicture {
public:
    explicit RasterPicture(app::StyleSource styleSource = app::StyleSource::Objects);

    app::MapPainter& Painter() { return painter_; }
    void Add(const app::Geometry& geometry);

    // The colour of the pixel whose lower left corner has these world coordinates.
    shr::Color4b At(int x, int y) const;

    // The pixels that are not white, of the whole page or of a column or row of pixels.
    int InkedPixels() const;
    int InkedPixelsInColumn(int x) const;
    int InkedPixelsInRow(int y) const;

    // True while the drawing library has nothing to object to.
    bool IsSound() const;

private:
    app::Canvas canvas_;
    app::MapPainter painter_;
};

// The SVG text of the geometries, in one layer on a page of 100 by 100 pixels as above. Numbers
// that the library counts over the life of the process are taken out.
std::string SvgOf(const std::vector<app::Geometry>& geometries);

// The SVG text of what `draw` draws on a page of this size.
std::string SvgDrawnBy(app::PageSize page, const std::function<void(cairo_t* context)>& draw);

// Styles of one part, and the sum of two.
app::Style Pen(const shr::Color4b& color, int width = 1, int pattern = 2);
app::Style NoPen();
app::Style Brush(int pattern, const shr::Color4b& fore);
app::Style Brush(int pattern, const shr::Color4b& fore, const shr::Color4b& back);
app::Style Symbol(int shape, const shr::Color4b& color, int points);
app::Style Font(const shr::Color4b& color, int styleBits = 0);
app::Style operator+(app::Style left, const app::Style& right);

// An area without an outline.
app::Style Area(const shr::Color4b& color);

app::Geometry Line(std::vector<shr::Vec2d> points, const app::Style& style = {});
app::Geometry Polygon(const std::vector<std::vector<shr::Vec2d>>& rings,
                      const app::Style& style = {});
std::vector<shr::Vec2d> Square(double min, double max);
app::Geometry Rectangle(const shr::Box2d& box, const app::Style& style = {});
app::Geometry Points(std::vector<shr::Vec2d> points, const app::Style& style = {});

// A text in a box, turned about the box's lower left corner.
app::Geometry Text(const std::string& text, const shr::Box2d& box, double angleDegrees = 0.0);

// A text that has only its lower left corner and the height of its letters.
app::Geometry TextAt(const std::string& text, const shr::Vec2d& at, double height);

}  // namespace draw_test
