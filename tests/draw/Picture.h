// Small pictures in memory, and short ways to make the objects that stand in them.
#pragma once

#include "app/draw/Canvas.h"
#include "app/draw/MapPainter.h"

#include <initializer_list>
#include <string>
#include <vector>

namespace draw_test {

inline constexpr shr::Color4b kWhite{255, 255, 255};
inline constexpr shr::Color4b kBlack{0, 0, 0};
inline constexpr shr::Color4b kRed{255, 0, 0};
inline constexpr shr::Color4b kGreen{0, 255, 0};
inline constexpr shr::Color4b kBlue{0, 0, 255};

// A white raster picture of 100 by 100 pixels, on which a world unit is a pixel: world (0, 0) is
// the bottom left corner.
class RasterPicture {
public:
    explicit RasterPicture(app::StyleSource styleSource = app::StyleSource::Objects);

    app::MapPainter& Painter() { return painter_; }
    void Add(const zeio::TrBase& object) { painter_.Add(object); }

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

// The SVG text of the objects, in one layer on a page of 100 by 100 pixels as above. Numbers that
// the library counts over the life of the process are taken out.
std::string SvgOf(const std::vector<const zeio::TrBase*>& objects);

zeio::TrPen Pen(const shr::Color4b& color, double widthPixels = 1.0);
zeio::TrPen NoPen();
zeio::TrBrush Brush(zeio::TrBrush::Pattern pattern, const shr::Color4b& fore);
zeio::TrPolyline Line(std::initializer_list<shr::Vec2d> points);
zeio::TrPolygon Polygon(std::initializer_list<std::vector<shr::Vec2d>> rings);
std::vector<shr::Vec2d> Square(double min, double max);
zeio::TrRectangle Rectangle(double x1, double y1, double x2, double y2);
zeio::TrMarkerSet Marker(double x, double y, double size = 0.0);

// A text in a box, with the transformation that turns it about the box's lower left corner.
zeio::TrText Text(const std::wstring& text, const shr::Box2d& box, double angleDegrees = 0.0);
zeio::TrFont Font(double height);

}  // namespace draw_test
