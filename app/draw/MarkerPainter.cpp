#include "app/draw/MarkerPainter.h"

#include "app/draw/Canvas.h"
#include "app/draw/PagePath.h"

#include <algorithm>
#include <numbers>

namespace app {

namespace {

constexpr double kThinnestHollowLine = 1.0;         // pixels
constexpr double kMarkerShadowOffset = 1.0 / 12.0;  // of the diameter
constexpr shr::Color4b kMarkerShadowColor{120, 120, 120};

void AppendOutline(cairo_t* context, const Marker& marker, double radius) {
    if (marker.shape->outline.empty()) {
        cairo_arc(context, 0.0, 0.0, radius, 0.0, 2.0 * std::numbers::pi);
    }
    for (const shr::Vec2d& point : marker.shape->outline) {
        cairo_line_to(context, point.x * radius, point.y * radius);
    }
    cairo_close_path(context);
}

// Fills the path, over its border.
void PaintPath(cairo_t* context, const Marker& marker) {
    if (marker.border != Marker::Border::None) {
        SetColor(context, BorderColor(marker.border));
        cairo_set_line_width(context, BorderWidth(marker) * 2.0);
        cairo_set_line_join(context, CAIRO_LINE_JOIN_ROUND);
        cairo_stroke_preserve(context);
    }
    SetColor(context, marker.color);
    cairo_fill(context);
}

void DrawShape(cairo_t* context, const Marker& marker) {
    const double radius = marker.diameter / 2.0;
    cairo_new_path(context);
    if (marker.shape->isHollow) {
        const double width = std::max(marker.diameter * kHollowLine, kThinnestHollowLine);
        AppendOutline(context, marker, radius - width / 2.0);
        cairo_set_line_width(context, width);
        cairo_set_line_join(context, CAIRO_LINE_JOIN_MITER);
        SetColor(context, marker.color);
        cairo_stroke(context);
        return;
    }
    AppendOutline(context, marker, radius);
    PaintPath(context, marker);
}

// The character's ink, not its letter box, has its middle in the place.
void DrawCharacter(cairo_t* context, const Marker& marker) {
    cairo_select_font_face(context, marker.family.c_str(), CAIRO_FONT_SLANT_NORMAL,
                           marker.isBold ? CAIRO_FONT_WEIGHT_BOLD : CAIRO_FONT_WEIGHT_NORMAL);
    cairo_set_font_size(context, marker.diameter);
    cairo_text_extents_t extents;
    cairo_text_extents(context, marker.character.c_str(), &extents);
    const PagePoint from{-extents.x_bearing - extents.width / 2.0,
                         -extents.y_bearing - extents.height / 2.0};
    cairo_new_path(context);
    if (marker.hasShadow) {
        const double offset = marker.diameter * kMarkerShadowOffset;
        cairo_move_to(context, from.x + offset, from.y + offset);
        cairo_text_path(context, marker.character.c_str());
        SetColor(context, kMarkerShadowColor);
        cairo_fill(context);
    }
    cairo_move_to(context, from.x, from.y);
    cairo_text_path(context, marker.character.c_str());
    PaintPath(context, marker);
}

void DrawAtOrigin(cairo_t* context, const Marker& marker) {
    cairo_set_dash(context, nullptr, 0, 0.0);
    if (marker.character.empty()) {
        DrawShape(context, marker);
        return;
    }
    cairo_rotate(context, -marker.degrees * std::numbers::pi / 180.0);
    DrawCharacter(context, marker);
}

}  // namespace

void MarkerPainter::Draw(const Marker& marker, std::span<const PagePoint> places) {
    if (!(marker.diameter > 0.0)) {
        return;
    }
    const PageBox guard = GuardBoxOf(page_, marker.diameter);
    for (const PagePoint& at : places) {
        if (!guard.Contains(at) || !grid_.Take(marker, at, page_) ||
            sprites_.Paint(context_, marker, at, DrawAtOrigin)) {
            continue;
        }
        const SavedState state(context_);
        cairo_translate(context_, at.x, at.y);
        DrawAtOrigin(context_, marker);
    }
}

}  // namespace app
