// Paths on the page: thinned to what the page can show and cut to what the drawing library can
// hold, so that neither a million vertices nor a vertex at the end of the world is a burden.
#pragma once

#include "app/draw/Viewport.h"

#include <vector>

namespace app {

using PagePath = std::vector<PagePoint>;

// Edges in page coordinates.
struct PageBox {
    double left = 0.0;
    double top = 0.0;
    double right = 0.0;
    double bottom = 0.0;

    bool Contains(const PagePoint& point) const {
        return point.x >= left && point.x <= right && point.y >= top && point.y <= bottom;
    }
};

// The page itself, and the wider box that paths are cut to: what lies between the two is never
// seen, even under the widest pen.
PageBox BoxOf(PageSize page);
PageBox GuardBoxOf(PageSize page);
double WidestPen(PageSize page);  // pixels

// The box around the path; left above right for an empty path.
PageBox BoundsOf(const PagePath& path);

// Collects a path and leaves out the points that lie within a tenth of a pixel of the one before.
class PathThinner {
public:
    void Add(const PagePoint& point);

    // The path so far, which ends with the last point added. Starts a new one.
    PagePath Take();

private:
    PagePath path_;
    PagePoint lastAdded_;
};

// The parts of a line inside the box, in order.
std::vector<PagePath> CutLine(const PagePath& line, const PageBox& box);

// The part of a ring inside the box, as one ring that may run along the box's edges; empty when
// nothing of the ring's area is inside. The ring need not repeat its first point.
PagePath CutRing(const PagePath& ring, const PageBox& box);

}  // namespace app
