#include "app/draw/PlacedPath.h"

#include "app/map/MapExtent.h"

#include <cmath>
#include <utility>

namespace app {

PagePath PathOf(const Viewport& viewport, std::span<const shr::Vec2d> points) {
    PagePath path;
    path.reserve(points.size());
    for (const shr::Vec2d& point : points) {
        if (IsDrawable(point.x, point.y)) {
            path.push_back(viewport.ToPage(point));
        }
    }
    return path;
}

std::vector<PagePath> LineOnPage(const Viewport& viewport, const Geometry& line,
                                 const PageBox& box) {
    std::vector<PagePath> parts;
    for (const std::span<const shr::Vec2d> section : SectionsOf(line)) {
        PagePath path = PathOf(viewport, section);
        Thin(path);
        for (PagePath& part : CutLine(path, box)) {
            parts.push_back(std::move(part));
        }
    }
    return parts;
}

std::vector<PagePath> RingsOnPage(const Viewport& viewport, const Geometry& region,
                                  const PageBox& box) {
    std::vector<PagePath> rings;
    std::span<const shr::Vec2d> rest(region.points);
    for (const std::size_t size : region.partSizes) {
        PagePath ring = PathOf(viewport, rest.first(size));
        rest = rest.subspan(size);
        Thin(ring);
        if (ring.size() > 1 && ring.back() == ring.front()) {
            ring.pop_back();
        }
        if (ring = CutRing(ring, box); !ring.empty()) {
            rings.push_back(std::move(ring));
        }
    }
    return rings;
}

double LengthOf(const PagePath& path) {
    double length = 0.0;
    for (std::size_t i = 1; i < path.size(); ++i) {
        length += std::hypot(path[i].x - path[i - 1].x, path[i].y - path[i - 1].y);
    }
    return length;
}

}  // namespace app
