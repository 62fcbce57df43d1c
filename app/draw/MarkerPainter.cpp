#include "app/draw/MarkerPainter.h"

#include "app/draw/Canvas.h"
#include "app/draw/LabelText.h"
#include "app/draw/PagePath.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <string>

namespace app {

namespace {

constexpr double kUsualDiameter = 7.0;
constexpr double kSmallestDiameter = 3.0;
constexpr double kLargestDiameter = 200.0;

// The thin light edge that sets symbols off against areas and each other.
constexpr shr::Color4b kEdgeColor{255, 255, 255, 220};
constexpr double kEdgeWidth = 0.75;  // pixels

// Symbol fonts begin with the blank: symbol 0 is character 32.
constexpr int kFirstCharacter = 32;

constexpr PagePoint kSquare[] = {{-0.85, -0.85}, {0.85, -0.85}, {0.85, 0.85}, {-0.85, 0.85}};
constexpr PagePoint kTriangle[] = {{0.0, -1.0}, {0.95, 0.8}, {-0.95, 0.8}};
constexpr PagePoint kDiamond[] = {{0.0, -1.1}, {0.9, 0.0}, {0.0, 1.1}, {-0.9, 0.0}};
constexpr PagePoint kPlus[] = {{-0.3, -1.0}, {0.3, -1.0}, {0.3, -0.3},  {1.0, -0.3},
                               {1.0, 0.3},   {0.3, 0.3},  {0.3, 1.0},   {-0.3, 1.0},
                               {-0.3, 0.3},  {-1.0, 0.3}, {-1.0, -0.3}, {-0.3, -0.3}};
constexpr PagePoint kCross[] = {{-0.6, -1.0}, {0.0, -0.4}, {0.6, -1.0}, {1.0, -0.6},
                                {0.4, 0.0},   {1.0, 0.6},  {0.6, 1.0},  {0.0, 0.4},
                                {-0.6, 1.0},  {-1.0, 0.6}, {-0.4, 0.0}, {-1.0, -0.6}};
constexpr PagePoint kStar[] = {{0.0, -1.1},    {0.26, -0.36}, {1.05, -0.34}, {0.42, 0.14},
                               {0.65, 0.89},   {0.0, 0.44},   {-0.65, 0.89}, {-0.42, 0.14},
                               {-1.05, -0.34}, {-0.26, -0.36}};
constexpr PagePoint kTriangleDown[] = {{0.0, 1.0}, {-0.95, -0.8}, {0.95, -0.8}};
constexpr PagePoint kHexagon[] = {{-0.5, -0.9}, {0.5, -0.9}, {1.0, 0.0},
                                  {0.5, 0.9},   {-0.5, 0.9}, {-1.0, 0.0}};
constexpr PagePoint kArrow[] = {{0.0, -1.1}, {0.75, 1.0}, {0.0, 0.5}, {-0.75, 1.0}};

constexpr std::array<MarkerShape, kMarkerShapeCount> kShapes{{
    {"circle", {}},
    {"square", kSquare},
    {"triangle", kTriangle},
    {"diamond", kDiamond},
    {"plus", kPlus},
    {"cross", kCross},
    {"star", kStar},
    {"triangle down", kTriangleDown},
    {"hexagon", kHexagon},
    {"arrow", kArrow},
}};

}  // namespace

const MarkerShape& MarkerShapeOf(int symbolIndex) {
    const int remainder = symbolIndex % kMarkerShapeCount;
    return kShapes[static_cast<std::size_t>(remainder < 0 ? remainder + kMarkerShapeCount
                                                          : remainder)];
}

double MarkerDiameter(double sizeOnPage) {
    if (!(sizeOnPage > 0.0)) {
        return kUsualDiameter;
    }
    return std::clamp(sizeOnPage, kSmallestDiameter, kLargestDiameter);
}

void MarkerPainter::Draw(const zeio::TrMarkerSet& markers, const LayerView& view,
                         const shr::Color4b& color) {
    const std::string family = CleanName(markers.fontName);
    std::string character;
    if (markers.symbolStyle == zeio::SymbolStyle::TrueTypeFont && fonts_.Has(family) &&
        markers.symbolIndex >= 0 && markers.symbolIndex <= 0xFFFF) {
        character = CleanCharacter(markers.symbolIndex + kFirstCharacter);
    }
    const SavedState state(context_);
    if (!character.empty()) {
        cairo_select_font_face(context_, family.c_str(), CAIRO_FONT_SLANT_NORMAL,
                               CAIRO_FONT_WEIGHT_NORMAL);
    }
    MarkerLook look{.color = color,
                    .symbolIndex = markers.symbolIndex,
                    .character = character,
                    .family = character.empty() ? "" : family};
    const PageBox guard = GuardBoxOf(view.Page());
    for (const shr::Vec3d& position : markers.positions) {
        const auto at = view.ToPage({position.x, position.y});
        if (!at || !guard.Contains(*at)) {
            continue;
        }
        look.diameter = MarkerDiameter(view.LengthOnPage({position.x, position.y}, markers.size));
        if (grid_.Take(look, *at, view.Page())) {
            DrawMarker(look, *at);
        }
    }
}

void MarkerPainter::DrawMarker(const MarkerLook& look, const PagePoint& at) const {
    if (!look.character.empty()) {
        SetColor(context_, look.color);
        DrawCharacter(look.character, at, look.diameter);
        return;
    }
    const MarkerShape& shape = MarkerShapeOf(look.symbolIndex);
    SetColor(context_, kEdgeColor);
    DrawShape(shape, at, look.diameter / 2.0 + kEdgeWidth);
    SetColor(context_, look.color);
    DrawShape(shape, at, look.diameter / 2.0);
}

void MarkerPainter::DrawShape(const MarkerShape& shape, const PagePoint& at, double radius) const {
    cairo_new_path(context_);
    if (shape.outline.empty()) {
        cairo_arc(context_, at.x, at.y, radius, 0.0, 2.0 * std::numbers::pi);
    }
    for (const PagePoint& point : shape.outline) {
        cairo_line_to(context_, at.x + point.x * radius, at.y + point.y * radius);
    }
    cairo_close_path(context_);
    cairo_fill(context_);
}

void MarkerPainter::DrawCharacter(const std::string& character, const PagePoint& at,
                                  double diameter) const {
    cairo_set_font_size(context_, diameter);
    cairo_text_extents_t extents;
    cairo_text_extents(context_, character.c_str(), &extents);
    cairo_move_to(context_, at.x - extents.x_bearing - extents.width / 2.0,
                  at.y - extents.y_bearing - extents.height / 2.0);
    cairo_show_text(context_, character.c_str());
    cairo_new_path(context_);
}

}  // namespace app
