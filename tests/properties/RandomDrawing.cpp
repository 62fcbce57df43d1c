#include "tests/properties/RandomDrawing.h"

#include "host/iolib/Styles.h"

#include <algorithm>
#include <cmath>
#include <string_view>

namespace property_test {

RandomDrawing::RandomDrawing(unsigned seed) : random_(seed) {
    AddColumns();
    for (int left = Pick(1, 30); left > 0; --left) {
        static constexpr void (RandomDrawing::*kAdders[])() = {
            &RandomDrawing::AddPen,     &RandomDrawing::AddBrush,   &RandomDrawing::AddPolyline,
            &RandomDrawing::AddPolygon, &RandomDrawing::AddMarkers, &RandomDrawing::AddRectangle,
            &RandomDrawing::AddEllipse, &RandomDrawing::AddText,
        };
        (this->*kAdders[Pick(0, static_cast<int>(std::size(kAdders)) - 1)])();
    }
    AddPolyline();  // a drawing has a graphic object
}

void RandomDrawing::AddColumns() {
    for (int column = Pick(1, 5); column > 0; --column) {
        columns_.push_back(L"Column_" + std::to_wstring(column));
    }
    auto names = std::make_unique<zeio::TrNamedIds>();
    names->names = columns_;
    objects_.push_back(std::move(names));
}

// Widths in inches: those in world units are graded, which is lossy.
void RandomDrawing::AddPen() {
    static const float* const kDashes[] = {iolib::g_LS_Dot, iolib::g_LS_Dash, iolib::g_LS_DashDot,
                                           iolib::g_LS_DashDotDot};
    auto pen = std::make_unique<zeio::TrPen>(static_cast<zeio::TrPen::Style>(Pick(1, 3)), Color(),
                                             Pick(1, 2000) / 1000.0);
    pen->isRelative = false;
    if (pen->style == zeio::TrPen::Style::CustomDash) {
        for (const float* dash = kDashes[Pick(0, 3)]; *dash != 0.0F; ++dash) {
            pen->dashes.push_back(*dash);
        }
    }
    objects_.push_back(std::move(pen));
}

void RandomDrawing::AddBrush() {
    auto brush = std::make_unique<zeio::TrBrush>(static_cast<zeio::TrBrush::Pattern>(Pick(1, 12)));
    brush->fore = Color();
    brush->back = Color();
    brush->back.alpha = Pick(0, 1) == 0 ? std::uint8_t{0} : std::uint8_t{255};
    objects_.push_back(std::move(brush));
}

void RandomDrawing::AddPolyline() {
    auto polyline = std::make_unique<zeio::TrPolyline>();
    polyline->vertices = Vertices(Pick(2, 40));
    SetAttributes(*polyline);
    objects_.push_back(std::move(polyline));
}

void RandomDrawing::AddPolygon() {
    auto polygon = std::make_unique<zeio::TrPolygon>();
    int vertices = 0;
    for (int rings = Pick(1, 4); rings > 0; --rings) {
        polygon->partSizes.push_back(Pick(3, 20));
        vertices += polygon->partSizes.back();
    }
    polygon->vertices = Vertices(vertices);
    SetAttributes(*polygon);
    objects_.push_back(std::move(polygon));
}

void RandomDrawing::AddMarkers() {
    auto markers = std::make_unique<zeio::TrMarkerSet>();
    markers->positions = Vertices(Pick(1, 4));
    SetAttributes(*markers);
    objects_.push_back(std::move(markers));
}

void RandomDrawing::AddRectangle() {
    auto rectangle = std::make_unique<zeio::TrRectangle>();
    rectangle->x1 = Coordinate();
    rectangle->y1 = Coordinate();
    rectangle->x2 = Coordinate();
    rectangle->y2 = Coordinate();
    rectangle->radiusX = Pick(0, 1) == 0 ? 0.0 : std::abs(Coordinate());
    rectangle->radiusY = rectangle->radiusX;
    SetAttributes(*rectangle);
    objects_.push_back(std::move(rectangle));
}

void RandomDrawing::AddEllipse() {
    auto ellipse = std::make_unique<zeio::TrEllipse>();
    ellipse->x1 = Coordinate();
    ellipse->y1 = Coordinate();
    ellipse->x2 = Coordinate();
    ellipse->y2 = Coordinate();
    SetAttributes(*ellipse);
    objects_.push_back(std::move(ellipse));
}

void RandomDrawing::AddText() {
    std::wstring string = L"T" + Value();
    std::replace(string.begin(), string.end(), L'"', L'\'');  // a text has it unchanged
    std::erase_if(string, [](wchar_t c) { return c == L'\n' || c == L'\r' || c > 0xFF; });
    auto text = std::make_unique<zeio::TrText>(string, Vertices(1).front());
    SetAttributes(*text);
    objects_.push_back(std::move(text));
}

int RandomDrawing::Pick(int from, int to) {
    return from + static_cast<int>(random_() % static_cast<unsigned>(to - from + 1));
}

// All magnitudes that a map has and some that it has not, with all the digits of a double.
double RandomDrawing::Coordinate() {
    const double fraction = static_cast<double>(random_()) / 4294967296.0 - 0.5;
    return std::ldexp(fraction, Pick(-30, 40)) + (Pick(0, 4) == 0 ? 1.0 / 3.0 : 0.0);
}

shr::Color4b RandomDrawing::Color() {
    return {static_cast<std::uint8_t>(Pick(0, 255)), static_cast<std::uint8_t>(Pick(0, 255)),
            static_cast<std::uint8_t>(Pick(0, 255))};
}

std::vector<shr::Vec3d> RandomDrawing::Vertices(int count) {
    std::vector<shr::Vec3d> vertices(static_cast<std::size_t>(count));
    for (shr::Vec3d& vertex : vertices) {
        vertex = {Coordinate(), Coordinate(), 0.0};
    }
    return vertices;
}

std::wstring RandomDrawing::Value() {
    static constexpr std::wstring_view kCharacters = L"aZ09 .,;'\"\t\r\n()\\äß€Жя地";
    std::wstring value(static_cast<std::size_t>(Pick(0, 12)), L' ');
    for (wchar_t& character : value) {
        character = kCharacters[static_cast<std::size_t>(
            Pick(0, static_cast<int>(kCharacters.size()) - 1))];
    }
    return value;
}

void RandomDrawing::SetAttributes(zeio::TrGraphics& object) {
    for (const std::wstring& column : columns_) {
        if (Pick(0, 4) != 0) {
            object.attributes.Set(column, Value());
        }
    }
}

}  // namespace property_test
