#include "app/draw/PathPainter.h"

#include "app/draw/Canvas.h"
#include "app/draw/Hatch.h"

#include <algorithm>
#include <cmath>

namespace app {

namespace {

// Lines are stroked in pieces of this many points: the library's effort for one path grows faster
// than its length.
constexpr std::size_t kStrokePiece = 4096;

std::vector<double> DashesOnPage(const Stroke& stroke) {
    std::vector<double> lengths;
    for (const double dash : stroke.dashes) {
        lengths.push_back(dash * std::max(stroke.width, kThinnestDashUnit));
    }
    return lengths;
}

}  // namespace

PathPainter::PathPainter(cairo_t* context, PageSize page) : context_(context), page_(page) {
    cairo_set_fill_rule(context_, CAIRO_FILL_RULE_EVEN_ODD);
    cairo_set_line_join(context_, CAIRO_LINE_JOIN_ROUND);
}

void PathPainter::SetPen(const Stroke& stroke) const {
    SetColor(context_, stroke.color);
    cairo_set_line_width(context_, stroke.width);
    const std::vector<double> dashes = DashesOnPage(stroke);
    cairo_set_dash(context_, dashes.data(), static_cast<int>(dashes.size()), 0.0);
    cairo_set_line_cap(context_, dashes.empty() ? CAIRO_LINE_CAP_ROUND : CAIRO_LINE_CAP_BUTT);
}

void PathPainter::DrawLines(const std::vector<PagePath>& paths, const Stroke& stroke,
                            bool isClosed) const {
    if (stroke.width <= 0.0 || stroke.color.alpha == 0) {
        return;
    }
    SetPen(stroke);
    // Where pieces meet, a dash would start anew and a translucent line would be drawn twice.
    const bool mayCut = stroke.dashes.empty() && stroke.color.alpha == 255;
    cairo_new_path(context_);
    std::size_t pointsInPath = 0;
    for (const PagePath& path : paths) {
        if (mayCut && path.size() > kStrokePiece) {
            StrokeInPieces(path, isClosed);
            continue;
        }
        AppendPath(path);
        if (isClosed) {
            cairo_close_path(context_);
        }
        pointsInPath += path.size();
        if (mayCut && pointsInPath > kStrokePiece) {
            cairo_stroke(context_);
            pointsInPath = 0;
        }
    }
    cairo_stroke(context_);
}

void PathPainter::StrokeInPieces(const PagePath& path, bool isClosed) const {
    cairo_stroke(context_);
    std::size_t pointsInPath = 0;
    for (const PagePoint& point : path) {
        cairo_line_to(context_, point.x, point.y);
        if (++pointsInPath == kStrokePiece) {
            cairo_stroke(context_);
            cairo_move_to(context_, point.x, point.y);
            pointsInPath = 0;
        }
    }
    if (isClosed) {
        cairo_line_to(context_, path.front().x, path.front().y);
    }
    cairo_stroke(context_);
}

void PathPainter::FillArea(const std::vector<PagePath>& rings, const Fill& fill) const {
    if (fill.look.fill == AreaFill::None) {
        return;
    }
    const bool isSolid = fill.look.fill == AreaFill::Solid;
    const shr::Color4b& ground = isSolid ? fill.fore : fill.back;
    if (ground.alpha > 0) {
        SetColor(context_, ground);
        AppendRings(rings);
        cairo_fill(context_);
    }
    if (fill.look.fill == AreaFill::Tint) {
        SetColor(context_, fill.fore, fill.look.opacity);
        AppendRings(rings);
        cairo_fill(context_);
    } else if (fill.look.fill == AreaFill::Lines) {
        FillWithHatch(rings, fill);
    }
}

void PathPainter::FillWithHatch(const std::vector<PagePath>& rings, const Fill& fill) const {
    const std::optional<PageBox> box = VisibleBoundsOf(rings);
    if (!box) {
        return;
    }
    const SavedState state(context_);
    if (cairo_surface_get_type(cairo_get_target(context_)) != CAIRO_SURFACE_TYPE_IMAGE) {
        AppendRings(rings);
        cairo_clip(context_);
        DrawHatch(*box, fill);
        return;
    }
    // To cut lines out along a path of many points is slow on a raster; to fill the path with a
    // picture of the lines is not.
    cairo_pattern_t* const picture = PictureOfHatch(*box, fill);
    cairo_set_source(context_, picture);
    cairo_pattern_destroy(picture);
    AppendRings(rings);
    cairo_fill(context_);
}

cairo_pattern_t* PathPainter::PictureOfHatch(const PageBox& box, const Fill& fill) const {
    const SavedState state(context_);
    const double left = std::floor(box.left);
    const double top = std::floor(box.top);
    cairo_new_path(context_);
    cairo_rectangle(context_, left, top, std::ceil(box.right) - left, std::ceil(box.bottom) - top);
    cairo_clip(context_);
    cairo_push_group(context_);
    DrawHatch(box, fill);
    return cairo_pop_group(context_);
}

std::optional<PageBox> PathPainter::VisibleBoundsOf(const std::vector<PagePath>& rings) const {
    const PageBox page = BoxOf(page_);
    PageBox box{page.right, page.bottom, page.left, page.top};
    for (const PagePath& ring : rings) {
        const PageBox bounds = BoundsOf(ring);
        box = {std::min(box.left, bounds.left), std::min(box.top, bounds.top),
               std::max(box.right, bounds.right), std::max(box.bottom, bounds.bottom)};
    }
    box = {std::max(box.left, page.left), std::max(box.top, page.top),
           std::min(box.right, page.right), std::min(box.bottom, page.bottom)};
    if (box.left > box.right || box.top > box.bottom) {
        return std::nullopt;
    }
    return box;
}

void PathPainter::DrawHatch(const PageBox& box, const Fill& fill) const {
    SetColor(context_, fill.fore);
    cairo_new_path(context_);
    cairo_set_dash(context_, nullptr, 0, 0.0);
    cairo_set_line_cap(context_, CAIRO_LINE_CAP_BUTT);
    for (const HatchLines& lines : fill.look.lines) {
        cairo_set_line_width(context_, lines.width);
        for (const HatchSegment& segment : SegmentsThrough(box, lines)) {
            cairo_move_to(context_, segment.from.x, segment.from.y);
            cairo_line_to(context_, segment.to.x, segment.to.y);
        }
        cairo_stroke(context_);
    }
}

void PathPainter::AppendRings(const std::vector<PagePath>& rings) const {
    cairo_new_path(context_);
    for (const PagePath& ring : rings) {
        AppendPath(ring);
        cairo_close_path(context_);
    }
}

void PathPainter::AppendPath(const PagePath& path) const {
    cairo_new_sub_path(context_);
    for (const PagePoint& point : path) {
        cairo_line_to(context_, point.x, point.y);
    }
    if (path.size() == 1) {
        // What has shrunk to a point is drawn as a dot.
        cairo_line_to(context_, path.front().x, path.front().y);
    }
}

}  // namespace app
