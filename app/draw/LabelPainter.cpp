#include "app/draw/LabelPainter.h"

#include "app/map/FontCatalogue.h"

#include "app/draw/Canvas.h"
#include "app/draw/PlacedPath.h"
#include "app/draw/TextPainter.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace app {

namespace {

constexpr double kLabelFontSize = 12.0;  // pixels
constexpr double kLineHeight = 14.0;     // from the top of the letters to the end of their tails
constexpr double kLabelBaseline = 10.5;  // below the top
constexpr double kHalo = 3.0;
constexpr shr::Color4b kInk{34, 34, 34};
constexpr shr::Color4b kHaloColor{255, 255, 255, 220};

void SelectLabelFont(cairo_t* context) {
    SelectFont(context, "", /*isBold=*/false, /*isItalic=*/false);
    cairo_set_font_size(context, kLabelFontSize);
}

}  // namespace

LabelPainter::LabelPainter(cairo_t* context, const Viewport& viewport, StyleSource styleSource)
    : context_(context), page_(viewport.Page()), viewport_(viewport),
      styles_(ResolverWithFonts(styleSource)), places_(viewport.Page()) {}

void LabelPainter::Avoid(const Geometry& geometry) {
    if (geometry.kind == GeometryKind::Text) {
        AvoidText(geometry);
    }
    if (geometry.kind != GeometryKind::Points) {
        return;
    }
    const double reach = styles_.ReachOf(geometry);
    for (const PagePoint& at : PathOf(viewport_, geometry.points)) {
        places_.Avoid({at.x - reach, at.y - reach, at.x + reach, at.y + reach});
    }
}

void LabelPainter::AvoidText(const Geometry& text) {
    const PagePath frame = PathOf(viewport_, text.points);
    if (!text.placement.box || frame.size() < 3) {
        return;
    }
    const PagePoint along{frame[1].x - frame[0].x, frame[1].y - frame[0].y};
    const PagePoint up{frame[2].x - frame[0].x, frame[2].y - frame[0].y};
    places_.Block({{frame[0].x + (along.x + up.x) / 2.0, frame[0].y + (along.y + up.y) / 2.0},
                   std::atan2(along.y, along.x)},
                  {std::hypot(along.x, along.y), std::hypot(up.x, up.y)});
}

void LabelPainter::Draw(const Geometry& geometry, std::string_view label) {
    const std::string text(label);
    const SavedState state(context_);
    SelectLabelFont(context_);
    cairo_text_extents_t extents;
    cairo_text_extents(context_, text.c_str(), &extents);
    const LabelSize size{extents.x_advance, kLineHeight};
    if (!(size.width > 0.0) || size.width > page_.width) {
        return;
    }
    if (const std::optional<LabelPlace> place = PlaceOf(geometry, size, text)) {
        DrawAt(*place, size, text);
    }
}

std::optional<LabelPlace> LabelPainter::PlaceOf(const Geometry& geometry, LabelSize size,
                                                const std::string& label) {
    const PageBox page = BoxOf(page_);
    if (geometry.kind == GeometryKind::Points) {
        for (const PagePoint& at : PathOf(viewport_, geometry.points)) {
            if (page.Contains(at)) {
                return places_.AroundPoint(at, styles_.ReachOf(geometry), size);
            }
        }
    } else if (geometry.kind == GeometryKind::Line) {
        const std::vector<PagePath> parts = LineOnPage(viewport_, geometry, page);
        const auto longest = std::ranges::max_element(parts, {}, LengthOf);
        if (longest != parts.end()) {
            return places_.AlongLine(*longest, size, label);
        }
    } else if (geometry.kind == GeometryKind::Region) {
        return places_.InsideArea(RingsOnPage(viewport_, geometry, page), size);
    }
    return std::nullopt;  // a text is its own label
}

void LabelPainter::DrawAt(const LabelPlace& place, LabelSize size, const std::string& label) const {
    cairo_translate(context_, place.middle.x, place.middle.y);
    cairo_rotate(context_, place.angle);
    cairo_new_path(context_);
    cairo_move_to(context_, -size.width / 2.0, -size.height / 2.0 + kLabelBaseline);
    cairo_text_path(context_, label.c_str());
    SetColor(context_, kHaloColor);
    cairo_set_dash(context_, nullptr, 0, 0.0);
    cairo_set_line_join(context_, CAIRO_LINE_JOIN_ROUND);
    cairo_set_line_width(context_, kHalo);
    cairo_stroke_preserve(context_);
    SetColor(context_, kInk);
    cairo_fill(context_);
}

}  // namespace app
