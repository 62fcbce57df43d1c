// Paths on the page: thinned to what the page can show and cut to what the drawing library can
// hold, so that neither a million vertices nor a vertex at the end of the world is a burden.
#pragma once

#include "app/draw/Viewport.h"

#include <cmath>
#include <vector>

namespace app {

// Leaves out, of the points from `begin` on, those that lie within `near` of the one before that
// stays, in both directions; the last one stays in any case. Works on points of any kind.
template <typename Point>
void ThinFrom(std::vector<Point>& points, std::size_t begin, const Point& near) {
    if (points.size() < begin + 3) {
        return;
    }
    std::size_t kept = begin;
    for (std::size_t i = begin + 1; i + 1 < points.size(); ++i) {
        if (!(std::abs(points[i].x - points[kept].x) < near.x &&
              std::abs(points[i].y - points[kept].y) < near.y)) {
            points[++kept] = points[i];
        }
    }
    points[++kept] = points.back();
    points.resize(kept + 1);
}

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

PageBox BoxOf(PageSize page);

// The wider box that paths are cut to: what lies between the two is never seen, even under a pen of
// this width.
PageBox GuardBoxOf(PageSize page, double penWidth);

// The box around the path; left above right for an empty path.
PageBox BoundsOf(const PagePath& path);

// Leaves out points that lie within a quarter of a pixel of the one before that stays; the last one
// stays in any case.
void Thin(PagePath& path);

// The parts of a line inside the box, in order.
std::vector<PagePath> CutLine(const PagePath& line, const PageBox& box);

// The part of a ring inside the box, as one ring that may run along the box's edges; empty when
// nothing of the ring's area is inside. The ring need not repeat its first point.
PagePath CutRing(const PagePath& ring, const PageBox& box);

}  // namespace app
