#include "tests/export/ExportRun.h"

#include <fstream>
#include <iterator>
#include <sstream>

namespace mif::test {

void ExportRun::SendColumns(std::vector<std::wstring> names) {
    zeio::TrNamedIds columns;
    columns.names = std::move(names);
    static_cast<void>(Send(columns));
}

void ExportRun::SendExtent(double minX, double minY, double maxX, double maxY) {
    zeio::TrInitGraphicsExp questions;
    questions.extent = {minX, minY, 0.0, maxX, maxY, 0.0};
    static_cast<void>(Send(questions));
}

std::string ExportRun::ReadText(const std::string& name) const {
    std::ifstream stream(folder.path() / name);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

std::string ExportRun::Objects() const {
    const std::string marker = "\nDATA\n";
    const std::string text = Mif();
    const std::size_t position = text.find(marker);
    return position == std::string::npos ? "no DATA line" : text.substr(position + marker.size());
}

std::string ExportRun::HeaderLines(const std::string& prefix) const {
    const std::string text = Mif();
    std::istringstream lines(text.substr(0, text.find("\nDATA\n")));
    std::string found;
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with(prefix)) {
            found += (found.empty() ? "" : "\n") + line;
        }
    }
    return found;
}

zeio::TrPolyline Polyline(std::initializer_list<shr::Vec3d> vertices) {
    zeio::TrPolyline polyline;
    polyline.vertices = vertices;
    return polyline;
}

zeio::TrPolygon Polygon(std::initializer_list<shr::Vec3d> vertices,
                        std::vector<std::int32_t> partSizes) {
    zeio::TrPolygon polygon;
    polygon.vertices = vertices;
    polygon.partSizes = std::move(partSizes);
    return polygon;
}

zeio::TrMarkerSet Markers(std::initializer_list<shr::Vec3d> positions) {
    zeio::TrMarkerSet markers;
    markers.positions = positions;
    return markers;
}

zeio::TrRectangle Rectangle(double x1, double y1, double x2, double y2, double radiusX,
                            double radiusY) {
    zeio::TrRectangle rectangle;
    rectangle.x1 = x1;
    rectangle.y1 = y1;
    rectangle.x2 = x2;
    rectangle.y2 = y2;
    rectangle.radiusX = radiusX;
    rectangle.radiusY = radiusY;
    return rectangle;
}

zeio::TrEllipse Ellipse(double x1, double y1, double x2, double y2) {
    zeio::TrEllipse ellipse;
    ellipse.x1 = x1;
    ellipse.y1 = y1;
    ellipse.x2 = x2;
    ellipse.y2 = y2;
    return ellipse;
}

zeio::TrText Text(std::wstring text, double x, double y) {
    return zeio::TrText(std::move(text), {x, y, 0.0});
}

zeio::TrPen RelativePen(zeio::TrPen::Style style, double widthWorld) {
    zeio::TrPen pen(style, shr::Color4b(0, 0, 0), widthWorld);
    pen.isRelative = true;
    return pen;
}

zeio::TrPen AbsolutePen(zeio::TrPen::Style style, double widthInches) {
    zeio::TrPen pen(style, shr::Color4b(0, 0, 0), widthInches);
    pen.isRelative = false;
    return pen;
}

zeio::TrCRS SystemObject(const gcs::CSDef& definition) {
    zeio::TrCRS object;
    object.SetCS(&definition);
    return object;
}

}  // namespace mif::test
