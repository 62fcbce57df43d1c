#include "app/page/Simplify.h"

#include <algorithm>
#include <cmath>
#include <span>
#include <utility>
#include <vector>

namespace app {

namespace {

constexpr std::size_t kFewestOfRing = 3;

double SquaredDistance(const shr::Vec2d& point, const shr::Vec2d& from, const shr::Vec2d& to) {
    const double x = to.x - from.x;
    const double y = to.y - from.y;
    const double length = x * x + y * y;
    const double along = ((point.x - from.x) * x + (point.y - from.y) * y) / length;
    const double part = length > 0.0 ? std::clamp(along, 0.0, 1.0) : 0.0;
    const double offX = point.x - (from.x + part * x);
    const double offY = point.y - (from.y + part * y);
    return offX * offX + offY * offY;
}

using Range = std::pair<std::size_t, std::size_t>;

// The vertex between the two that lies farthest from the line through them, and how far, squared.
std::pair<std::size_t, double> Farthest(std::span<const shr::Vec2d> points, const Range& range) {
    std::pair<std::size_t, double> farthest{range.first, -1.0};
    for (std::size_t i = range.first + 1; i < range.second; ++i) {
        const double distance =
            SquaredDistance(points[i], points[range.first], points[range.second]);
        if (distance > farthest.second) {
            farthest = {i, distance};
        }
    }
    return farthest;
}

// Marks the vertices to keep. A list of ranges in place of recursion: a spiral is deep.
void MarkBetween(std::span<const shr::Vec2d> points, const Range& whole, double tolerance,
                 std::vector<bool>& isKept) {
    std::vector<Range> waiting{whole};
    while (!waiting.empty()) {
        const Range range = waiting.back();
        waiting.pop_back();
        const auto [at, distance] = Farthest(points, range);
        if (distance > tolerance * tolerance) {
            isKept[at] = true;
            waiting.push_back({range.first, at});
            waiting.push_back({at, range.second});
        }
    }
}

// A ring has no ends: it is cut at its first vertex and the one farthest from it, and the one
// farthest from these stays, too, which leaves a triangle.
void MarkRing(std::span<const shr::Vec2d> points, double tolerance, std::vector<bool>& isKept) {
    const std::size_t last = points.size() - 1;
    std::vector<shr::Vec2d> closed(points.begin(), points.end());
    closed.push_back(points.front());
    const std::size_t opposite = Farthest(closed, {0, last + 1}).first;
    const auto before = Farthest(closed, {0, opposite});
    const auto behind = Farthest(closed, {opposite, last + 1});
    isKept.push_back(true);
    isKept[0] = isKept[opposite] = true;
    isKept[before.second >= behind.second ? before.first : behind.first] = true;
    MarkBetween(closed, {0, opposite}, tolerance, isKept);
    MarkBetween(closed, {opposite, last + 1}, tolerance, isKept);
    isKept.pop_back();
}

std::vector<shr::Vec2d> Simplified(std::span<const shr::Vec2d> section, bool isRing,
                                   double tolerance) {
    std::vector<shr::Vec2d> points;
    std::ranges::copy_if(section, std::back_inserter(points), [](const shr::Vec2d& point) {
        return std::isfinite(point.x) && std::isfinite(point.y);
    });
    if (points.size() <= (isRing ? kFewestOfRing : 2)) {
        return points;
    }
    std::vector<bool> isKept(points.size(), false);
    if (isRing) {
        MarkRing(points, tolerance, isKept);
    } else {
        isKept.front() = isKept.back() = true;
        MarkBetween(points, {0, points.size() - 1}, tolerance, isKept);
    }
    std::vector<shr::Vec2d> kept;
    for (std::size_t i = 0; i < points.size(); ++i) {
        if (isKept[i]) {
            kept.push_back(points[i]);
        }
    }
    return kept;
}

}  // namespace

void Simplify(Geometry& geometry, double tolerance) {
    const bool isRing = geometry.kind == GeometryKind::Region;
    if (!(tolerance > 0.0) || (geometry.kind != GeometryKind::Line && !isRing)) {
        return;
    }
    if (geometry.partSizes.empty()) {
        geometry.points = Simplified(geometry.points, isRing, tolerance);
        return;
    }
    std::vector<shr::Vec2d> points;
    std::span<const shr::Vec2d> rest(geometry.points);
    for (std::size_t& size : geometry.partSizes) {
        const std::vector<shr::Vec2d> part = Simplified(rest.first(size), isRing, tolerance);
        rest = rest.subspan(size);
        size = part.size();
        points.insert(points.end(), part.begin(), part.end());
    }
    geometry.points = std::move(points);
}

}  // namespace app
