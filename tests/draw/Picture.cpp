#include "tests/draw/Picture.h"

#include <algorithm>
#include <cstring>
#include <numbers>

namespace draw_test {

namespace {

constexpr app::PageSize kPage{100, 100};
const app::Viewport kViewport({0.0, 0.0, 100.0, 100.0}, 1.0, kPage, 0.0);

std::string WithoutSurfaceNumbers(std::string svg) {
    constexpr std::string_view kName = "surface";
    for (std::size_t at = svg.find(kName); at != std::string::npos; at = svg.find(kName, at)) {
        at += kName.size();
        svg.erase(at, std::min(svg.find_first_not_of("0123456789", at), svg.size()) - at);
    }
    return svg;
}

}  // namespace

RasterPicture::RasterPicture(app::StyleSource styleSource)
    : canvas_(app::PictureFormat::Png, kPage, [](std::string_view) {}),
      painter_(canvas_.Context(), kViewport, styleSource) {
    canvas_.Fill(kWhite);
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

std::string SvgOf(const std::vector<const zeio::TrBase*>& objects) {
    std::string svg;
    app::Canvas canvas(app::PictureFormat::Svg, kPage,
                       [&svg](std::string_view bytes) { svg += bytes; });
    app::MapPainter painter(canvas.Context(), kViewport, app::StyleSource::Objects);
    for (const zeio::TrBase* object : objects) {
        painter.Add(*object);
    }
    canvas.Finish();
    return WithoutSurfaceNumbers(svg);
}

zeio::TrPen Pen(const shr::Color4b& color, double widthPixels) {
    zeio::TrPen pen(zeio::TrPen::Style::Solid, color, widthPixels / app::kPixelsPerInch);
    pen.isRelative = false;
    return pen;
}

zeio::TrPen NoPen() {
    return {zeio::TrPen::Style::NoLine, kBlack, 0.0};
}

zeio::TrBrush Brush(zeio::TrBrush::Pattern pattern, const shr::Color4b& fore) {
    zeio::TrBrush brush(pattern);
    brush.fore = fore;
    return brush;
}

zeio::TrPolyline Line(std::initializer_list<shr::Vec2d> points) {
    zeio::TrPolyline line;
    for (const shr::Vec2d& point : points) {
        line.vertices.push_back({point.x, point.y, 0.0});
    }
    return line;
}

zeio::TrPolygon Polygon(std::initializer_list<std::vector<shr::Vec2d>> rings) {
    zeio::TrPolygon polygon;
    for (const std::vector<shr::Vec2d>& ring : rings) {
        polygon.partSizes.push_back(static_cast<std::int32_t>(ring.size()));
        for (const shr::Vec2d& point : ring) {
            polygon.vertices.push_back({point.x, point.y, 0.0});
        }
    }
    return polygon;
}

std::vector<shr::Vec2d> Square(double min, double max) {
    return {{min, min}, {max, min}, {max, max}, {min, max}, {min, min}};
}

zeio::TrRectangle Rectangle(double x1, double y1, double x2, double y2) {
    zeio::TrRectangle rectangle;
    rectangle.x1 = x1;
    rectangle.y1 = y1;
    rectangle.x2 = x2;
    rectangle.y2 = y2;
    return rectangle;
}

zeio::TrMarkerSet Marker(double x, double y, double size) {
    zeio::TrMarkerSet marker;
    marker.symbolStyle = zeio::SymbolStyle::DefaultSymbolSet;
    marker.size = size;
    marker.positions = {{x, y, 0.0}};
    return marker;
}

zeio::TrText Text(const std::wstring& text, const shr::Box2d& box, double angleDegrees) {
    zeio::TrText object(text, {box.minX, box.minY, 0.0});
    object.box = box;
    object.transform.Translate(-box.minX, -box.minY, 0.0);
    object.transform.RotateZ(angleDegrees * std::numbers::pi / 180.0);
    object.transform.Translate(box.minX, box.minY, 0.0);
    return object;
}

zeio::TrFont Font(double height) {
    zeio::TrFont font(L"DejaVu Sans");
    font.height = height;
    return font;
}

}  // namespace draw_test
