#include "app/draw/PagePath.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <utility>

namespace app {

namespace {

constexpr double kQuarterPixel = 0.25;

enum class Edge { Left, Top, Right, Bottom };

bool IsInside(const PagePoint& point, Edge edge, const PageBox& box) {
    switch (edge) {
    case Edge::Left:
        return point.x >= box.left;
    case Edge::Top:
        return point.y >= box.top;
    case Edge::Right:
        return point.x <= box.right;
    case Edge::Bottom:
        return point.y <= box.bottom;
    }
    return false;
}

// Where the line through two points on either side of the edge meets it.
PagePoint Crossing(const PagePoint& from, const PagePoint& to, Edge edge, const PageBox& box) {
    if (edge == Edge::Left || edge == Edge::Right) {
        const double x = edge == Edge::Left ? box.left : box.right;
        return {x, from.y + (to.y - from.y) * ((x - from.x) / (to.x - from.x))};
    }
    const double y = edge == Edge::Top ? box.top : box.bottom;
    return {from.x + (to.x - from.x) * ((y - from.y) / (to.y - from.y)), y};
}

PagePath CutRingAt(const PagePath& ring, Edge edge, const PageBox& box) {
    PagePath cut;
    cut.reserve(ring.size() + 4);
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const PagePoint& from = ring[i == 0 ? ring.size() - 1 : i - 1];
        const PagePoint& to = ring[i];
        const bool toInside = IsInside(to, edge, box);
        if (IsInside(from, edge, box) != toInside) {
            cut.push_back(Crossing(from, to, edge, box));
        }
        if (toInside) {
            cut.push_back(to);
        }
    }
    return cut;
}

// The part of a segment inside the box.
std::optional<std::pair<PagePoint, PagePoint>> CutSegment(PagePoint from, PagePoint to,
                                                          const PageBox& box) {
    for (const Edge edge : {Edge::Left, Edge::Top, Edge::Right, Edge::Bottom}) {
        const bool fromInside = IsInside(from, edge, box);
        const bool toInside = IsInside(to, edge, box);
        if (!fromInside && !toInside) {
            return std::nullopt;
        }
        if (!fromInside) {
            from = Crossing(from, to, edge, box);
        } else if (!toInside) {
            to = Crossing(from, to, edge, box);
        }
    }
    return std::pair{from, to};
}

bool LiesInside(const PagePath& path, const PageBox& box) {
    return std::all_of(path.begin(), path.end(),
                       [&box](const PagePoint& point) { return box.Contains(point); });
}

}  // namespace

PageBox BoxOf(PageSize page) {
    return {0.0, 0.0, static_cast<double>(page.width), static_cast<double>(page.height)};
}

PageBox GuardBoxOf(PageSize page, double penWidth) {
    // Joins are round: half the width would do, yet a whole one costs nothing.
    const double guard = penWidth + 16.0;
    return {-guard, -guard, page.width + guard, page.height + guard};
}

PageBox BoundsOf(const PagePath& path) {
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    PageBox bounds{kInfinity, kInfinity, -kInfinity, -kInfinity};
    for (const PagePoint& point : path) {
        bounds.left = std::min(bounds.left, point.x);
        bounds.top = std::min(bounds.top, point.y);
        bounds.right = std::max(bounds.right, point.x);
        bounds.bottom = std::max(bounds.bottom, point.y);
    }
    return bounds;
}

void Thin(PagePath& path) {
    ThinFrom(path, 0, {kQuarterPixel, kQuarterPixel});
}

std::vector<PagePath> CutLine(const PagePath& line, const PageBox& box) {
    if (LiesInside(line, box)) {
        return {line};
    }
    std::vector<PagePath> parts;
    bool continues = false;  // the last part ends where the next segment begins
    for (std::size_t i = 1; i < line.size(); ++i) {
        const auto piece = CutSegment(line[i - 1], line[i], box);
        if (!piece) {
            continues = false;
            continue;
        }
        if (!continues) {
            parts.push_back({piece->first});
        }
        parts.back().push_back(piece->second);
        continues = piece->second == line[i];
    }
    return parts;
}

PagePath CutRing(const PagePath& ring, const PageBox& box) {
    if (LiesInside(ring, box)) {
        return ring;
    }
    PagePath cut = ring;
    for (const Edge edge : {Edge::Left, Edge::Top, Edge::Right, Edge::Bottom}) {
        cut = CutRingAt(cut, edge, box);
    }
    return cut;
}

}  // namespace app
