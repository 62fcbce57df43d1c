#include "app/draw/MapPainter.h"

#include "app/map/FontCatalogue.h"

#include "app/draw/PlacedPath.h"

#include <vector>

namespace app {

namespace {

// Edges of a full turn, for ellipses, arcs and rounded corners.
constexpr int kSegments = 180;

}  // namespace

MapPainter::MapPainter(cairo_t* context, const Viewport& viewport, StyleSource styleSource)
    : page_(viewport.Page()), viewport_(viewport), styles_(ResolverWithFonts(styleSource)),
      paths_(context, viewport.Page()), markers_(context, viewport.Page()),
      texts_(context, viewport.Page()) {}

void MapPainter::BeginLayer(std::size_t layer) {
    styles_.BeginLayer(layer);
}

void MapPainter::Draw(const Geometry& geometry) {
    switch (geometry.kind) {
    case GeometryKind::Points:
        markers_.Draw(styles_.MarkerOf(geometry.style), PathOf(viewport_, geometry.points));
        return;
    case GeometryKind::Line:
        markers_.Forget();
        DrawLine(geometry);
        return;
    case GeometryKind::Region:
        markers_.Forget();
        DrawArea(geometry);
        return;
    case GeometryKind::Text:
        markers_.Forget();
        DrawText(geometry);
        return;
    case GeometryKind::Rectangle:
    case GeometryKind::Ellipse:
    case GeometryKind::Arc: {
        Geometry flat = geometry;
        FlattenCurves(flat, kSegments);
        Draw(flat);
        return;
    }
    case GeometryKind::None:
    case GeometryKind::Collection:
        return;
    }
}

void MapPainter::DrawLine(const Geometry& line) {
    const Stroke stroke = styles_.StrokeOf(line.style, line.kind);
    paths_.DrawLines(LineOnPage(viewport_, line, GuardBoxOf(page_, stroke.width)), stroke,
                     /*isClosed=*/false);
}

void MapPainter::DrawArea(const Geometry& area) {
    const Stroke stroke = styles_.StrokeOf(area.style, area.kind);
    const std::vector<PagePath> rings =
        RingsOnPage(viewport_, area, GuardBoxOf(page_, stroke.width));
    paths_.FillArea(rings, styles_.FillOf(area.style));
    paths_.DrawLines(rings, stroke, /*isClosed=*/true);
}

void MapPainter::DrawText(const Geometry& text) {
    const PagePath frame = PathOf(viewport_, text.points);
    if (frame.size() == text.points.size() && frame.size() >= 3) {
        texts_.Draw(text.placement, frame, styles_.LetteringOf(text.style));
    }
}

}  // namespace app
