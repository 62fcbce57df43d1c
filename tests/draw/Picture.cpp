#include "tests/draw/Picture.h"

#include "app/draw/MapFrame.h"
#include "app/feature/ObjectStyles.h"
#include "app/map/TextFrame.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace draw_test {

namespace {

constexpr app::PageSize kPage{100, 100};

app::Geometry Placed(app::Geometry geometry) {
    if (geometry.kind == app::GeometryKind::Text) {
        app::SetTextFrame(geometry);
    }
    return geometry;
}

std::string WithoutSurfaceNumbers(std::string svg) {
    constexpr std::string_view kName = "surface";
    for (std::size_t at = svg.find(kName); at != std::string::npos; at = svg.find(kName, at)) {
        at += kName.size();
        svg.erase(at, std::min(svg.find_first_not_of("0123456789", at), svg.size()) - at);
    }
    return svg;
}

}  // namespace

app::Viewport PlainViewport() {
    app::MapFrame frame;
    frame.Include({0.0, 0.0, 100.0, 100.0}, 0.0);
    return frame.FitInto(kPage, 0.0, 1.0);
}

RasterPicture::RasterPicture(app::StyleSource styleSource)
    : canvas_(app::PictureFormat::Png, kPage, [](std::string_view) {}),
      painter_(canvas_.Context(), PlainViewport(), styleSource) {
    canvas_.Fill(kWhite);
}

void RasterPicture::Add(const app::Geometry& geometry) {
    painter_.Draw(Placed(geometry));
}

shr::Color4b RasterPicture::At(int x, int y) const {
    cairo_surface_t* const image = canvas_.Image();
    cairo_surface_flush(image);
    const auto row = static_cast<std::ptrdiff_t>(kPage.height - 1 - y);
    const std::ptrdiff_t column = 4 * static_cast<std::ptrdiff_t>(x);
    const unsigned char* const pixel =
        cairo_image_surface_get_data(image) + row * cairo_image_surface_get_stride(image) + column;
    std::uint32_t packed = 0;
    std::memcpy(&packed, pixel, sizeof packed);
    return shr::Color4b(packed);
}

int RasterPicture::InkedPixelsInColumn(int x) const {
    int count = 0;
    for (int y = 0; y < kPage.height; ++y) {
        count += At(x, y) == kWhite ? 0 : 1;
    }
    return count;
}

int RasterPicture::InkedPixelsInRow(int y) const {
    int count = 0;
    for (int x = 0; x < kPage.width; ++x) {
        count += At(x, y) == kWhite ? 0 : 1;
    }
    return count;
}

int RasterPicture::InkedPixels() const {
    int count = 0;
    for (int x = 0; x < kPage.width; ++x) {
        count += InkedPixelsInColumn(x);
    }
    return count;
}

bool RasterPicture::IsSound() const {
    return cairo_status(canvas_.Context()) == CAIRO_STATUS_SUCCESS;
}

std::string SvgDrawnBy(app::PageSize page, const std::function<void(cairo_t* context)>& draw) {
    std::string svg;
    app::Canvas canvas(app::PictureFormat::Svg, page,
                       [&svg](std::string_view bytes) { svg += bytes; });
    draw(canvas.Context());
    canvas.Finish();
    return WithoutSurfaceNumbers(svg);
}

std::string SvgOf(const std::vector<app::Geometry>& geometries) {
    return SvgDrawnBy(kPage, [&geometries](cairo_t* context) {
        app::MapPainter painter(context, PlainViewport(), app::StyleSource::Objects);
        for (const app::Geometry& geometry : geometries) {
            painter.Draw(Placed(geometry));
        }
    });
}

app::Style Pen(const shr::Color4b& color, int width, int pattern) {
    app::Style style;
    style.pen = app::Pen{width, pattern, app::MifColorOf(color)};
    return style;
}

app::Style NoPen() {
    return Pen(kBlack, 1, 1);
}

app::Style Brush(int pattern, const shr::Color4b& fore) {
    app::Style style;
    style.brush = app::Brush{pattern, app::MifColorOf(fore)};
    return style;
}

app::Style Brush(int pattern, const shr::Color4b& fore, const shr::Color4b& back) {
    app::Style style = Brush(pattern, fore);
    style.brush->back = app::MifColorOf(back);
    return style;
}

app::Style Symbol(int shape, const shr::Color4b& color, int points) {
    app::Style style;
    style.symbol.emplace();
    style.symbol->shape = shape;
    style.symbol->color = app::MifColorOf(color);
    style.symbol->size = points;
    return style;
}

app::Style Font(const shr::Color4b& color, int styleBits) {
    app::Style style;
    style.font.emplace();
    style.font->name = "DejaVu Sans";
    style.font->styleBits = styleBits;
    style.font->fore = app::MifColorOf(color);
    return style;
}

app::Style operator+(app::Style left, const app::Style& right) {
    left.pen = right.pen ? right.pen : left.pen;
    left.brush = right.brush ? right.brush : left.brush;
    left.symbol = right.symbol ? right.symbol : left.symbol;
    left.font = right.font ? right.font : left.font;
    return left;
}

app::Style Area(const shr::Color4b& color) {
    return NoPen() + Brush(2, color);
}

app::Geometry Line(std::vector<shr::Vec2d> points, const app::Style& style) {
    app::Geometry line;
    line.kind = app::GeometryKind::Line;
    line.points = std::move(points);
    line.style = style;
    return line;
}

app::Geometry Polygon(const std::vector<std::vector<shr::Vec2d>>& rings, const app::Style& style) {
    app::Geometry polygon;
    polygon.kind = app::GeometryKind::Region;
    for (const std::vector<shr::Vec2d>& ring : rings) {
        polygon.partSizes.push_back(ring.size());
        polygon.points.insert(polygon.points.end(), ring.begin(), ring.end());
    }
    polygon.style = style;
    return polygon;
}

std::vector<shr::Vec2d> Square(double min, double max) {
    return {{min, min}, {max, min}, {max, max}, {min, max}, {min, min}};
}

app::Geometry Rectangle(const shr::Box2d& box, const app::Style& style) {
    app::Geometry rectangle;
    rectangle.kind = app::GeometryKind::Rectangle;
    rectangle.box = box;
    rectangle.style = style;
    return rectangle;
}

app::Geometry Points(std::vector<shr::Vec2d> points, const app::Style& style) {
    app::Geometry geometry;
    geometry.kind = app::GeometryKind::Points;
    geometry.points = std::move(points);
    geometry.style = style;
    return geometry;
}

app::Geometry Text(const std::string& text, const shr::Box2d& box, double angleDegrees) {
    app::Geometry geometry = TextAt(text, {box.minX, box.minY}, box.maxY - box.minY);
    geometry.placement.box = box;
    geometry.placement.angleDegrees = angleDegrees;
    return geometry;
}

app::Geometry TextAt(const std::string& text, const shr::Vec2d& at, double height) {
    app::Geometry geometry;
    geometry.kind = app::GeometryKind::Text;
    geometry.points = {at};
    geometry.placement.text = text;
    geometry.placement.height = height;
    geometry.style = Font(kBlack);
    return geometry;
}

}  // namespace draw_test
