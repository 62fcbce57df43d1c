#include "app/draw/MapPainter.h"

#include "app/draw/Canvas.h"
#include "app/draw/Hatch.h"
#include "app/draw/LineDashes.h"
#include "app/draw/PolygonRings.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace app {

namespace {

constexpr double kUsualLineWidth = 1.25;     // pixels
constexpr double kUsualOutlineWidth = 0.75;  // pixels

// Lines are stroked in pieces of this many points: the library's effort for one path grows faster
// than its length.
constexpr std::size_t kStrokePiece = 4096;

}  // namespace

MapPainter::MapPainter(cairo_t* context, const Viewport& viewport, StyleSource styleSource)
    : context_(context), viewport_(viewport), styleSource_(styleSource), view_(viewport, {}),
      colors_(ColorsOfLayer(0)), markerPainter_(context), textPainter_(context) {
    cairo_set_fill_rule(context_, CAIRO_FILL_RULE_EVEN_ODD);
    cairo_set_line_join(context_, CAIRO_LINE_JOIN_ROUND);
}

void MapPainter::BeginLayer(std::size_t layer) {
    colors_ = ColorsOfLayer(layer);
    view_ = LayerView(viewport_, {});
    pen_.reset();
    brush_.reset();
    textColor_.reset();
    beforeText_.reset();
    font_ = zeio::TrFont();
    penScale_.BeginLayer();
}

void MapPainter::SetBounds(const shr::Box2d& bounds) {
    penScale_.SetBounds(bounds);
}

void MapPainter::SetTransform(PointTransform transform) {
    view_ = LayerView(viewport_, std::move(transform));
}

void MapPainter::Add(const zeio::TrBase& object) {
    if (styleSource_ == StyleSource::Objects) {
        penScale_.Add(object);
    }
    const shr::CTypeInfo* const type = object.GetTypeId();
    if (type == zeio::TrPen::GetClassTypeId()) {
        SetPen(static_cast<const zeio::TrPen&>(object));
    } else if (type == zeio::TrBrush::GetClassTypeId()) {
        SetBrush(static_cast<const zeio::TrBrush&>(object));
    } else if (type == zeio::TrFont::GetClassTypeId()) {
        SetFont(static_cast<const zeio::TrFont&>(object));
    } else if (type == zeio::TrPolyline::GetClassTypeId()) {
        DrawPolyline(static_cast<const zeio::TrPolyline&>(object));
    } else if (type == zeio::TrPolygon::GetClassTypeId()) {
        DrawPolygon(static_cast<const zeio::TrPolygon&>(object));
    } else if (type == zeio::TrRectangle::GetClassTypeId()) {
        DrawRectangle(static_cast<const zeio::TrRectangle&>(object));
    } else if (type == zeio::TrEllipse::GetClassTypeId()) {
        DrawEllipse(static_cast<const zeio::TrEllipse&>(object));
    } else if (type == zeio::TrMarkerSet::GetClassTypeId()) {
        DrawMarkers(static_cast<const zeio::TrMarkerSet&>(object));
    } else if (type == zeio::TrText::GetClassTypeId()) {
        DrawText(static_cast<const zeio::TrText&>(object));
    }
}

void MapPainter::SetPen(const zeio::TrPen& pen) {
    if (styleSource_ == StyleSource::Objects) {
        pen_ = pen;
    }
}

void MapPainter::SetBrush(const zeio::TrBrush& brush) {
    if (styleSource_ != StyleSource::Objects) {
        return;
    }
    brush_ = brush;
    if (beforeText_) {
        textColor_ = brush.fore;
    }
}

void MapPainter::SetFont(const zeio::TrFont& font) {
    font_ = font;
    textColor_.reset();
    beforeText_ = StyleBeforeText{pen_, brush_};
}

void MapPainter::BeginGeometry() {
    beforeText_.reset();
    markerPainter_.Forget();
}

void MapPainter::DrawPolyline(const zeio::TrPolyline& polyline) {
    BeginGeometry();
    const Stroke stroke = StrokeOf(kUsualLineWidth);
    const PagePath path = PathOf(std::span<const shr::Vec3d>(polyline.vertices));
    DrawLines(CutLine(path, GuardBoxOf(view_.Page())), stroke);
}

void MapPainter::DrawPolygon(const zeio::TrPolygon& polygon) {
    std::vector<PagePath> rings;
    for (const std::span<const shr::Vec3d> ring : RingsOf(polygon)) {
        rings.push_back(RingOf(ring));
    }
    DrawArea(rings);
}

void MapPainter::DrawRectangle(const zeio::TrRectangle& rectangle) {
    const std::vector<shr::Vec2d> outline = OutlineOf(rectangle);
    DrawArea({RingOf(std::span<const shr::Vec2d>(outline))});
}

void MapPainter::DrawEllipse(const zeio::TrEllipse& ellipse) {
    const std::vector<shr::Vec2d> outline = OutlineOf(ellipse);
    DrawArea({RingOf(std::span<const shr::Vec2d>(outline))});
}

void MapPainter::DrawMarkers(const zeio::TrMarkerSet& markers) {
    beforeText_.reset();
    // A symbol has no line: under a pen that draws none it has the layer's colour.
    const bool hasColor = pen_ && pen_->style != zeio::TrPen::Style::NoLine;
    markerPainter_.Draw(markers, view_, hasColor ? pen_->color : colors_.symbol);
}

void MapPainter::DrawText(const zeio::TrText& text) {
    markerPainter_.Forget();
    textPainter_.Draw(text, font_, view_, textColor_.value_or(colors_.text));
    if (beforeText_) {
        pen_ = beforeText_->pen;
        brush_ = beforeText_->brush;
        beforeText_.reset();
    }
}

template <typename Point> PagePath MapPainter::PathOf(std::span<const Point> points) const {
    PathThinner thinner;
    for (const Point& point : points) {
        if (const auto onPage = view_.ToPage({point.x, point.y})) {
            thinner.Add(*onPage);
        }
    }
    return thinner.Take();
}

template <typename Point> PagePath MapPainter::RingOf(std::span<const Point> points) const {
    PagePath ring = PathOf(points);
    if (ring.size() > 1 && ring.back() == ring.front()) {
        ring.pop_back();
    }
    return CutRing(ring, GuardBoxOf(view_.Page()));
}

MapPainter::Stroke MapPainter::StrokeOf(double usualWidth) const {
    if (!pen_) {
        return {.color = colors_.line, .width = usualWidth, .dashes = {}};
    }
    if (pen_->style == zeio::TrPen::Style::NoLine) {
        return {};
    }
    const double width =
        pen_->isRelative ? penScale_.Pixels(*pen_) : PenWidthOnPage(*pen_, WidestPen(view_.Page()));
    return {.color = pen_->color, .width = width, .dashes = DashesOnPage(*pen_, width)};
}

void MapPainter::DrawArea(const std::vector<PagePath>& rings) {
    BeginGeometry();
    zeio::TrBrush layerBrush(zeio::TrBrush::Pattern::Solid);
    layerBrush.fore = colors_.area;
    FillArea(rings, brush_ ? *brush_ : layerBrush);

    Stroke stroke = StrokeOf(kUsualOutlineWidth);
    stroke.isClosed = true;
    DrawLines(rings, stroke);
}

void MapPainter::FillArea(const std::vector<PagePath>& rings, const zeio::TrBrush& brush) const {
    const HatchPattern& pattern = HatchPatternOf(brush.pattern);
    if (pattern.fill == AreaFill::None) {
        return;
    }
    const bool isSolid = pattern.fill == AreaFill::Solid;
    const shr::Color4b& ground = isSolid ? brush.fore : brush.back;
    if (ground.alpha > 0) {
        SetColor(context_, ground);
        AppendRings(rings);
        cairo_fill(context_);
    }
    if (pattern.fill == AreaFill::Tint) {
        SetColor(context_, brush.fore, pattern.opacity);
        AppendRings(rings);
        cairo_fill(context_);
    } else if (pattern.fill == AreaFill::Lines) {
        FillWithHatch(rings, brush);
    }
}

void MapPainter::FillWithHatch(const std::vector<PagePath>& rings,
                               const zeio::TrBrush& brush) const {
    const std::optional<PageBox> box = VisibleBoundsOf(rings);
    if (!box) {
        return;
    }
    const SavedState state(context_);
    if (cairo_surface_get_type(cairo_get_target(context_)) != CAIRO_SURFACE_TYPE_IMAGE) {
        AppendRings(rings);
        cairo_clip(context_);
        DrawHatch(*box, brush);
        return;
    }
    // To cut lines out along a path of many points is slow on a raster; to fill the path with a
    // picture of the lines is not.
    cairo_pattern_t* const picture = PictureOfHatch(*box, brush);
    cairo_set_source(context_, picture);
    cairo_pattern_destroy(picture);
    AppendRings(rings);
    cairo_fill(context_);
}

cairo_pattern_t* MapPainter::PictureOfHatch(const PageBox& box, const zeio::TrBrush& brush) const {
    const SavedState state(context_);
    const double left = std::floor(box.left);
    const double top = std::floor(box.top);
    cairo_new_path(context_);
    cairo_rectangle(context_, left, top, std::ceil(box.right) - left, std::ceil(box.bottom) - top);
    cairo_clip(context_);
    cairo_push_group(context_);
    DrawHatch(box, brush);
    return cairo_pop_group(context_);
}

std::optional<PageBox> MapPainter::VisibleBoundsOf(const std::vector<PagePath>& rings) const {
    const PageBox page = BoxOf(view_.Page());
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

void MapPainter::DrawHatch(const PageBox& box, const zeio::TrBrush& brush) const {
    SetColor(context_, brush.fore);
    cairo_new_path(context_);
    for (const HatchLines& lines : HatchPatternOf(brush.pattern).lines) {
        const double dots[] = {0.0, lines.spacing};
        cairo_set_dash(context_, dots, lines.isDotted ? 2 : 0, 0.0);
        cairo_set_line_cap(context_, lines.isDotted ? CAIRO_LINE_CAP_ROUND : CAIRO_LINE_CAP_BUTT);
        cairo_set_line_width(context_, lines.width);
        for (const HatchSegment& segment : SegmentsThrough(box, lines)) {
            cairo_move_to(context_, segment.from.x, segment.from.y);
            cairo_line_to(context_, segment.to.x, segment.to.y);
        }
        cairo_stroke(context_);
    }
}

void MapPainter::DrawLines(const std::vector<PagePath>& paths, const Stroke& stroke) const {
    if (stroke.width <= 0.0 || stroke.color.alpha == 0) {
        return;
    }
    SetColor(context_, stroke.color);
    cairo_set_line_width(context_, stroke.width);
    cairo_set_dash(context_, stroke.dashes.data(), static_cast<int>(stroke.dashes.size()), 0.0);
    cairo_set_line_cap(context_,
                       stroke.dashes.empty() ? CAIRO_LINE_CAP_ROUND : CAIRO_LINE_CAP_BUTT);
    // Where pieces meet, a dash would start anew and a translucent line would be drawn twice.
    const bool mayCut = stroke.dashes.empty() && stroke.color.alpha == 255;
    cairo_new_path(context_);
    std::size_t pointsInPath = 0;
    for (const PagePath& path : paths) {
        if (mayCut && path.size() > kStrokePiece) {
            StrokeInPieces(path, stroke.isClosed);
            continue;
        }
        AppendPath(path);
        if (stroke.isClosed) {
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

void MapPainter::StrokeInPieces(const PagePath& path, bool isClosed) const {
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

void MapPainter::AppendRings(const std::vector<PagePath>& rings) const {
    cairo_new_path(context_);
    for (const PagePath& ring : rings) {
        AppendPath(ring);
        cairo_close_path(context_);
    }
}

void MapPainter::AppendPath(const PagePath& path) const {
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
