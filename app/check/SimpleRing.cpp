#include "app/check/SimpleRing.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace app {
namespace {

// Rings of so few edges are compared edge by edge, without a grid.
constexpr std::size_t kFewEdges = 12;

// What a grid may cost at most, for each edge: entries in cells, and comparisons.
constexpr std::size_t kMostEntries = 16;
constexpr std::size_t kMostComparisons = 64;

// On which side of the line from a to b the point c lies: 1 left, -1 right, 0 on it or so close
// that rounding may decide.
int SideOf(const shr::Vec2d& a, const shr::Vec2d& b, const shr::Vec2d& c) {
    const double left = (a.x - c.x) * (b.y - c.y);
    const double right = (a.y - c.y) * (b.x - c.x);
    const double bound =
        2.0 * std::numeric_limits<double>::epsilon() * (std::abs(left) + std::abs(right));
    const double side = left - right;
    return side > bound ? 1 : side < -bound ? -1 : 0;
}

// Whether c and d certainly lie on the same side of the line from a to b.
bool IsOneSided(const shr::Vec2d& a, const shr::Vec2d& b, const shr::Vec2d& c,
                const shr::Vec2d& d) {
    const int side = SideOf(a, b, c);
    return side != 0 && side == SideOf(a, b, d);
}

bool AreRangesApart(double a, double b, double c, double d) {
    return std::max(a, b) < std::min(c, d) || std::max(c, d) < std::min(a, b);
}

}  // namespace

bool SimpleRing::IsSimple(std::span<const shr::Vec2d> ring) {
    if (!TakePoints(ring)) {
        return false;
    }
    if (IsStarShaped()) {
        return true;
    }
    if (!AreNeighboursApart()) {
        return false;
    }
    return EdgeCount() <= kFewEdges ? AreAllApart() : SortIntoCells() && AreApartInCells();
}

// False when the ring has fewer than three edges, or coordinates that are no numbers.
bool SimpleRing::TakePoints(std::span<const shr::Vec2d> ring) {
    points_.clear();
    bool isFinite = true;
    for (const shr::Vec2d& point : ring) {
        isFinite = isFinite && std::isfinite(point.x) && std::isfinite(point.y);
        if (points_.empty() || !(point == points_.back())) {
            points_.push_back(point);
        }
    }
    if (points_.empty() || !isFinite) {
        return false;
    }
    if (!(points_.front() == points_.back())) {
        points_.push_back(shr::Vec2d(points_.front()));
    }
    return points_.size() > 3;
}

// Whether the edges, seen from the middle of the vertices, follow each other in one full turn.
bool SimpleRing::IsStarShaped() const {
    const shr::Vec2d& first = points_.front();
    shr::Vec2d sum{0.0, 0.0};
    for (std::size_t i = 0; i < EdgeCount(); ++i) {
        sum = {sum.x + (points_[i].x - first.x), sum.y + (points_[i].y - first.y)};
    }
    const auto count = static_cast<double>(EdgeCount());
    const shr::Vec2d middle{first.x + sum.x / count, first.y + sum.y / count};
    const int turn = SideOf(points_[0], points_[1], middle);
    std::size_t crossings = 0;  // of the horizontal line through the middle
    for (std::size_t i = 0; i < EdgeCount(); ++i) {
        if (turn == 0 || SideOf(points_[i], points_[i + 1], middle) != turn) {
            return false;
        }
        crossings += (points_[i].y < middle.y) != (points_[i + 1].y < middle.y) ? 1 : 0;
    }
    return crossings == 2;
}

// Whether no edge folds back onto the one before.
bool SimpleRing::AreNeighboursApart() const {
    for (std::size_t i = 0; i < EdgeCount(); ++i) {
        const shr::Vec2d& before = points_[i == 0 ? EdgeCount() - 1 : i - 1];
        const shr::Vec2d& at = points_[i];
        const shr::Vec2d& behind = points_[i + 1];
        const double onward =
            (at.x - before.x) * (behind.x - at.x) + (at.y - before.y) * (behind.y - at.y);
        if (onward <= 0.0 && SideOf(before, at, behind) == 0) {
            return false;
        }
    }
    return true;
}

// Whether two edges that are no neighbours certainly have no point in common.
bool SimpleRing::AreApart(std::size_t first, std::size_t second) const {
    const shr::Vec2d& a = points_[first];
    const shr::Vec2d& b = points_[first + 1];
    const shr::Vec2d& c = points_[second];
    const shr::Vec2d& d = points_[second + 1];
    return AreRangesApart(a.x, b.x, c.x, d.x) || AreRangesApart(a.y, b.y, c.y, d.y) ||
           IsOneSided(a, b, c, d) || IsOneSided(c, d, a, b);
}

bool SimpleRing::AreAllApart() const {
    for (std::size_t i = 0; i < EdgeCount(); ++i) {
        // The last edge is a neighbour of the first.
        const std::size_t end = i == 0 ? EdgeCount() - 1 : EdgeCount();
        for (std::size_t k = i + 2; k < end; ++k) {
            if (!AreApart(i, k)) {
                return false;
            }
        }
    }
    return true;
}

// False when that takes too many entries.
bool SimpleRing::SortIntoCells() {
    shr::Box2d box{points_[0].x, points_[0].y, points_[0].x, points_[0].y};
    for (const shr::Vec2d& point : points_) {
        box = {std::min(box.minX, point.x), std::min(box.minY, point.y),
               std::max(box.maxX, point.x), std::max(box.maxY, point.y)};
    }
    const double width = box.maxX - box.minX;
    const double height = box.maxY - box.minY;
    // About as many cells as edges, and square ones.
    const double size = std::max(std::sqrt(width * height / static_cast<double>(EdgeCount())),
                                 std::max(width, height) / static_cast<double>(EdgeCount()));
    if (!std::isfinite(size) || size <= 0.0) {
        return false;
    }
    columns_ = static_cast<std::uint32_t>(width / size) + 1;
    rows_ = static_cast<std::uint32_t>(height / size) + 1;
    const auto cell = [size](double distance) {
        return static_cast<std::uint32_t>(distance / size);
    };
    cellsOf_.clear();
    ends_.assign(std::size_t{columns_} * rows_, 0);
    std::size_t entries = 0;
    for (std::size_t i = 0; i < EdgeCount(); ++i) {
        const auto [minX, maxX] = std::minmax(points_[i].x, points_[i + 1].x);
        const auto [minY, maxY] = std::minmax(points_[i].y, points_[i + 1].y);
        const Cells cells{cell(minX - box.minX), cell(minY - box.minY), cell(maxX - box.minX),
                          cell(maxY - box.minY)};
        cellsOf_.push_back(cells);
        entries += std::size_t{cells.maxX - cells.minX + 1} * (cells.maxY - cells.minY + 1);
        if (entries > kMostEntries * EdgeCount()) {
            return false;
        }
        for (std::uint32_t y = cells.minY; y <= cells.maxY; ++y) {
            for (std::uint32_t x = cells.minX; x <= cells.maxX; ++x) {
                ++ends_[std::size_t{y} * columns_ + x];
            }
        }
    }
    edges_.resize(entries);
    return true;
}

void SimpleRing::FillCells() {
    std::uint32_t end = 0;
    for (std::uint32_t& count : ends_) {
        const std::uint32_t begin = end;
        end += count;
        count = begin;  // it moves on to the cell's end as the edges come
    }
    for (std::uint32_t edge = 0; edge < EdgeCount(); ++edge) {
        const Cells& cells = cellsOf_[edge];
        for (std::uint32_t y = cells.minY; y <= cells.maxY; ++y) {
            for (std::uint32_t x = cells.minX; x <= cells.maxX; ++x) {
                edges_[ends_[std::size_t{y} * columns_ + x]++] = edge;
            }
        }
    }
}

// False also when that takes too many comparisons.
bool SimpleRing::AreApartInCells() {
    FillCells();
    const auto lastEdge = static_cast<std::uint32_t>(EdgeCount()) - 1;
    std::size_t comparisons = 0;
    std::uint32_t begin = 0;
    for (const std::uint32_t end : ends_) {
        const std::size_t count = end - begin;
        comparisons += count * count / 2;
        if (comparisons > kMostComparisons * EdgeCount()) {
            return false;
        }
        for (std::uint32_t i = begin; i < end; ++i) {
            for (std::uint32_t k = i + 1; k < end; ++k) {
                const std::uint32_t first = edges_[i];
                const std::uint32_t second = edges_[k];
                const bool areNeighbours =
                    second == first + 1 || (first == 0 && second == lastEdge);
                if (!areNeighbours && !AreApart(first, second)) {
                    return false;
                }
            }
        }
        begin = end;
    }
    return true;
}

}  // namespace app
