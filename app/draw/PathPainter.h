// Draws paths that are on the page already: lines, and areas with their fill.
#pragma once

#include "app/draw/PagePath.h"
#include "app/feature/DrawnStyle.h"

#include <cairo.h>

#include <optional>
#include <vector>

namespace app {

class PathPainter {
public:
    // The context draws in page coordinates and must outlive the painter.
    PathPainter(cairo_t* context, PageSize page);

    // A path that is closed ends where it begins. A path of one point is a dot.
    void DrawLines(const std::vector<PagePath>& paths, const Stroke& stroke, bool isClosed) const;

    // Fills what an odd number of rings encloses.
    void FillArea(const std::vector<PagePath>& rings, const Fill& fill) const;

private:
    void FillWithHatch(const std::vector<PagePath>& rings, const Fill& fill) const;

    // The hatch over the box alone; the caller destroys it.
    cairo_pattern_t* PictureOfHatch(const PageBox& box, const Fill& fill) const;
    std::optional<PageBox> VisibleBoundsOf(const std::vector<PagePath>& rings) const;
    void DrawHatch(const PageBox& box, const Fill& fill) const;
    void SetPen(const Stroke& stroke) const;
    void StrokeInPieces(const PagePath& path, bool isClosed) const;
    void AppendRings(const std::vector<PagePath>& rings) const;
    void AppendPath(const PagePath& path) const;

    cairo_t* context_;
    PageSize page_;
};

}  // namespace app
