#include "fuzz/ObjectsFromBytes.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace fuzz {

std::uint8_t Bytes::Byte() {
    if (left_ == 0) {
        return 0;
    }
    --left_;
    return *data_++;
}

double Bytes::Number() {
    double value = 0.0;
    std::uint8_t raw[sizeof value];
    for (std::uint8_t& byte : raw) {
        byte = Byte();
    }
    std::memcpy(&value, raw, sizeof value);
    return value;
}

std::wstring Bytes::Text() {
    std::wstring text(Byte() % 16, L'x');
    for (wchar_t& character : text) {
        const wchar_t wide = static_cast<wchar_t>(Byte() + (Byte() % 4) * 256);
        const bool isUnsafe = wide == L'"' || wide == L'\n' || wide == 0;
        character = isUnsafe ? L'_' : wide;
    }
    return text;
}

shr::Color4b Bytes::Color() {
    const std::uint8_t red = Byte();
    const std::uint8_t green = Byte();
    const std::uint8_t blue = Byte();
    return {red, green, blue, Byte()};
}

std::vector<shr::Vec3d> Bytes::Vertices() {
    std::vector<shr::Vec3d> vertices(Byte() % 20);
    for (shr::Vec3d& vertex : vertices) {
        vertex.x = Number();
        vertex.y = Number();
    }
    return vertices;
}

zeio::TrPolyline MakePolyline(Bytes& bytes) {
    zeio::TrPolyline polyline;
    polyline.vertices = bytes.Vertices();
    return polyline;
}

zeio::TrPolygon MakePolygon(Bytes& bytes) {
    zeio::TrPolygon polygon;
    polygon.vertices = bytes.Vertices();
    polygon.partSizes.resize(bytes.Byte() % 5);
    for (std::int32_t& size : polygon.partSizes) {
        size = static_cast<std::int8_t>(bytes.Byte());
    }
    return polygon;
}

zeio::TrMarkerSet MakeMarkers(Bytes& bytes) {
    zeio::TrMarkerSet markers;
    markers.positions = bytes.Vertices();
    return markers;
}

zeio::TrRectangle MakeRectangle(Bytes& bytes) {
    zeio::TrRectangle rectangle;
    rectangle.x1 = bytes.Number();
    rectangle.y1 = bytes.Number();
    rectangle.x2 = bytes.Number();
    rectangle.y2 = bytes.Number();
    rectangle.radiusX = bytes.Number();
    return rectangle;
}

zeio::TrEllipse MakeEllipse(Bytes& bytes) {
    zeio::TrEllipse ellipse;
    ellipse.x1 = bytes.Number();
    ellipse.y2 = bytes.Number();
    return ellipse;
}

zeio::TrText MakeText(Bytes& bytes) {
    zeio::TrText text;
    text.text = bytes.Text();
    text.position.x = bytes.Number();
    text.position.y = bytes.Number();
    text.transform.RotateZ(bytes.Number());
    return text;
}

zeio::TrPen MakePen(Bytes& bytes) {
    zeio::TrPen pen;
    pen.style = static_cast<zeio::TrPen::Style>(bytes.Byte());
    pen.color = bytes.Color();
    pen.width = bytes.Number();
    pen.isRelative = bytes.Byte() % 2 == 0;
    pen.dashes.resize(bytes.Byte() % 8);
    for (float& dash : pen.dashes) {
        dash = static_cast<float>(bytes.Byte());
    }
    return pen;
}

zeio::TrBrush MakeBrush(Bytes& bytes) {
    zeio::TrBrush brush(static_cast<zeio::TrBrush::Pattern>(bytes.Byte()));
    brush.fore = bytes.Color();
    brush.back = bytes.Color();
    return brush;
}

zeio::TrFont MakeFont(Bytes& bytes) {
    zeio::TrFont font(bytes.Text());
    font.height = bytes.Number();
    font.widthDivisor = bytes.Number();
    font.flags = bytes.Byte();
    return font;
}

zeio::TrNamedIds MakeColumns(Bytes& bytes) {
    zeio::TrNamedIds columns;
    columns.names.resize(bytes.Byte() % 5);
    for (std::wstring& name : columns.names) {
        name = bytes.Text();
    }
    return columns;
}

zeio::TrInitGraphicsExp MakeQuestions(Bytes& bytes) {
    zeio::TrInitGraphicsExp questions;
    questions.scale = bytes.Number();
    questions.unitsPerPoint = bytes.Number();
    questions.extent.minX = bytes.Number();
    questions.extent.minY = bytes.Number();
    questions.extent.maxX = bytes.Number();
    questions.extent.maxY = bytes.Number();
    return questions;
}

std::size_t RingsWith(const zeio::TrPolygon& polygon, std::size_t vertices) {
    if (polygon.partSizes.empty()) {
        return polygon.vertices.size() >= vertices ? 1 : 0;
    }
    std::size_t left = polygon.vertices.size();
    std::size_t rings = 0;
    for (const std::int32_t size : polygon.partSizes) {
        const std::size_t taken = std::min(left, static_cast<std::size_t>(std::max(size, 0)));
        left -= taken;
        rings += taken >= vertices ? 1 : 0;
    }
    return rings;
}

}  // namespace fuzz
