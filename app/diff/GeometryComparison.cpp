#include "app/diff/GeometryComparison.h"

#include "app/base/Counted.h"
#include "app/json/ShortestNumber.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <span>
#include <vector>

namespace app {
namespace {

using Points = std::span<const shr::Vec2d>;

constexpr double kInfinity = std::numeric_limits<double>::infinity();

const char* KindInWords(GeometryKind kind) {
    constexpr std::array<const char*, 9> kWords{"no geometry", "point",     "line",
                                                "region",      "rectangle", "ellipse",
                                                "arc",         "text",      "collection"};
    return kWords.at(static_cast<std::size_t>(kind));
}

// What is not a number is the same as what is not, and else infinitely far away.
double Distance(double left, double right) {
    if (left == right || (std::isnan(left) && std::isnan(right))) {
        return 0.0;
    }
    const double distance = std::fabs(left - right);
    return std::isnan(distance) ? kInfinity : distance;
}

double Distance(const shr::Vec2d& left, const shr::Vec2d& right) {
    return std::max(Distance(left.x, right.x), Distance(left.y, right.y));
}

std::string Changed(const char* what, const std::string& left, const std::string& right) {
    return std::string(what) + ": " + left + " -> " + right;
}

std::string Changed(const char* what, std::size_t left, std::size_t right) {
    return Changed(what, std::to_string(left), std::to_string(right));
}

// Of as many points on both sides.
std::string MovedPoints(Points left, Points right, double tolerance) {
    std::uint64_t moved = 0;
    double most = 0.0;
    for (std::size_t i = 0; i < left.size(); ++i) {
        const double distance = Distance(left[i], right[i]);
        moved += distance > tolerance ? 1 : 0;
        most = std::max(most, distance);
    }
    if (moved == 0) {
        return "";
    }
    const std::string by = std::isfinite(most) ? PlainText(most) : "an infinite distance";
    return left.size() == 1 ? "moved by " + by
                            : std::to_string(moved) + " of " + std::to_string(left.size()) +
                                  " vertices moved, by up to " + by;
}

std::string DifferenceOfPoints(Points left, Points right, double tolerance) {
    return left.size() == right.size() ? MovedPoints(left, right, tolerance)
                                       : Changed("vertices", left.size(), right.size());
}

std::vector<std::size_t> SizesOf(const Geometry& line) {
    return line.partSizes.empty() ? std::vector<std::size_t>{line.points.size()} : line.partSizes;
}

std::string DifferenceOfLines(const Geometry& left, const Geometry& right, double tolerance) {
    const std::vector<std::size_t> leftSizes = SizesOf(left);
    const std::vector<std::size_t> rightSizes = SizesOf(right);
    if (leftSizes.size() != rightSizes.size()) {
        return Changed("sections", leftSizes.size(), rightSizes.size());
    }
    const std::string difference = DifferenceOfPoints(left.points, right.points, tolerance);
    return difference.empty() && leftSizes != rightSizes ? "sections divided in another way"
                                                         : difference;
}

// The rings of a region without the vertices that close them.
std::vector<Points> RingsOf(const Geometry& region) {
    std::vector<Points> rings;
    Points rest(region.points);
    for (const std::size_t size : SizesOf(region)) {
        Points ring = rest.first(std::min(size, rest.size()));
        rest = rest.subspan(ring.size());
        if (ring.size() > 1 && ring.front() == ring.back()) {
            ring = ring.first(ring.size() - 1);
        }
        rings.push_back(ring);
    }
    return rings;
}

bool IsSameBox(const shr::Box2d& left, const shr::Box2d& right, double tolerance) {
    return Distance(left.minX, right.minX) <= tolerance &&
           Distance(left.minY, right.minY) <= tolerance &&
           Distance(left.maxX, right.maxX) <= tolerance &&
           Distance(left.maxY, right.maxY) <= tolerance;
}

// Whether the rings have the same vertices one after another, from `start` on in the right one.
bool GoesRound(Points left, Points right, std::size_t start, bool isBackward, double tolerance) {
    const std::size_t count = left.size();
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t at = isBackward ? (start + count - i) % count : (start + i) % count;
        if (Distance(left[i], right[at]) > tolerance) {
            return false;
        }
    }
    return true;
}

bool IsSameRing(Points left, Points right, double tolerance) {
    if (left.size() != right.size()) {
        return false;
    }
    if (left.empty()) {
        return true;
    }
    for (std::size_t start = 0; start < right.size(); ++start) {
        if (Distance(left.front(), right[start]) <= tolerance &&
            (GoesRound(left, right, start, /*isBackward=*/false, tolerance) ||
             GoesRound(left, right, start, /*isBackward=*/true, tolerance))) {
            return true;
        }
    }
    return false;
}

// Whether each ring has one of its own on the other side.
bool AreSameRings(const std::vector<Points>& left, const std::vector<Points>& right,
                  double tolerance) {
    std::vector<shr::Box2d> boxes;
    for (const Points ring : right) {
        boxes.push_back(BoxOf(ring));
    }
    std::vector<bool> isTaken(right.size(), false);
    std::size_t firstFree = 0;
    for (const Points ring : left) {
        const shr::Box2d box = BoxOf(ring);
        std::size_t at = firstFree;
        while (at < right.size() &&
               (isTaken[at] || right[at].size() != ring.size() ||
                !IsSameBox(box, boxes[at], tolerance) || !IsSameRing(ring, right[at], tolerance))) {
            ++at;
        }
        if (at == right.size()) {
            return false;
        }
        isTaken[at] = true;
        while (firstFree < right.size() && isTaken[firstFree]) {
            ++firstFree;
        }
    }
    return true;
}

std::string DifferenceOfRegions(const Geometry& left, const Geometry& right, double tolerance) {
    const bool isSameLayout = left.partSizes == right.partSizes;
    if (isSameLayout && DifferenceOfPoints(left.points, right.points, tolerance).empty()) {
        return "";
    }
    const std::vector<Points> leftRings = RingsOf(left);
    const std::vector<Points> rightRings = RingsOf(right);
    if (leftRings.size() != rightRings.size()) {
        return Changed("rings", leftRings.size(), rightRings.size());
    }
    if (AreSameRings(leftRings, rightRings, tolerance)) {
        return "";
    }
    const auto count = [](const std::vector<Points>& rings) {
        std::size_t vertices = 0;
        for (const Points ring : rings) {
            vertices += ring.size();
        }
        return vertices;
    };
    if (count(leftRings) != count(rightRings)) {
        return Changed("vertices", count(leftRings), count(rightRings));
    }
    return isSameLayout ? MovedPoints(left.points, right.points, tolerance) : "another outline";
}

std::string DifferenceOfBoxes(const Geometry& left, const Geometry& right, double tolerance) {
    if (!IsSameBox(left.box, right.box, tolerance)) {
        return "the box moved by up to " +
               PlainText(std::max({Distance(left.box.minX, right.box.minX),
                                   Distance(left.box.minY, right.box.minY),
                                   Distance(left.box.maxX, right.box.maxX),
                                   Distance(left.box.maxY, right.box.maxY)}));
    }
    if (Distance(left.radiusX, right.radiusX) > tolerance ||
        Distance(left.radiusY, right.radiusY) > tolerance) {
        return Changed("corners", PlainText(left.radiusX), PlainText(right.radiusX));
    }
    if (left.startDegrees != right.startDegrees || left.endDegrees != right.endDegrees) {
        return Changed("angles", PlainText(left.startDegrees) + " to " + PlainText(left.endDegrees),
                       PlainText(right.startDegrees) + " to " + PlainText(right.endDegrees));
    }
    return "";
}

std::string DifferenceOfTexts(const Geometry& left, const Geometry& right, double tolerance) {
    const TextPlacement& from = left.placement;
    const TextPlacement& to = right.placement;
    constexpr double kDegrees = 1e-6;  // that a change of the system and back may turn a text
    if (from.text != to.text) {
        return Changed("text", "\"" + from.text + "\"", "\"" + to.text + "\"");
    }
    if (Distance(from.angleDegrees, to.angleDegrees) > (tolerance > 0.0 ? kDegrees : 0.0)) {
        return Changed("angle", PlainText(from.angleDegrees), PlainText(to.angleDegrees));
    }
    if (Distance(from.height, to.height) > tolerance) {
        return Changed("height", PlainText(from.height), PlainText(to.height));
    }
    if (from.justify != to.justify) {
        return "aligned in another way";
    }
    return DifferenceOfPoints(left.points, right.points, tolerance);
}

bool IsTextOrPoint(GeometryKind kind) {
    return kind == GeometryKind::Text || kind == GeometryKind::Points;
}

}  // namespace

std::string DifferenceOf(const Geometry& left, const Geometry& right, const GeometryRules& rules) {
    if (left.kind != right.kind) {
        return rules.areTextsPoints && IsTextOrPoint(left.kind) && IsTextOrPoint(right.kind)
                   ? DifferenceOfPoints(left.points, right.points, rules.tolerance)
                   : Changed("kind", KindInWords(left.kind), KindInWords(right.kind));
    }
    switch (left.kind) {
    case GeometryKind::None:
    case GeometryKind::Collection:
        return "";
    case GeometryKind::Points:
        return DifferenceOfPoints(left.points, right.points, rules.tolerance);
    case GeometryKind::Line:
        return DifferenceOfLines(left, right, rules.tolerance);
    case GeometryKind::Region:
        return DifferenceOfRegions(left, right, rules.tolerance);
    case GeometryKind::Text:
        return DifferenceOfTexts(left, right, rules.tolerance);
    default:
        return DifferenceOfBoxes(left, right, rules.tolerance);
    }
}

std::string GeometryDifferenceOf(const Feature& left, const Feature& right,
                                 const GeometryRules& rules) {
    std::string difference = DifferenceOf(left.geometry, right.geometry, rules);
    if (!difference.empty() || left.members.size() != right.members.size()) {
        return difference.empty() ? Changed("parts", left.members.size(), right.members.size())
                                  : difference;
    }
    for (std::size_t i = 0; i < left.members.size(); ++i) {
        difference = DifferenceOf(left.members[i], right.members[i], rules);
        if (!difference.empty()) {
            return "part " + std::to_string(i + 1) + ": " + difference;
        }
    }
    return "";
}

std::string GeometryInWords(const Feature& feature) {
    const Geometry& geometry = feature.geometry;
    const std::string kind = KindInWords(geometry.kind);
    switch (geometry.kind) {
    case GeometryKind::Line:
        return kind + " of " + Counted(geometry.points.size(), "vertex", "vertices");
    case GeometryKind::Region:
        return kind + " of " + Counted(SizesOf(geometry).size(), "ring", "rings") + ", " +
               Counted(geometry.points.size(), "vertex", "vertices");
    case GeometryKind::Points:
        if (geometry.points.size() != 1) {
            return Counted(geometry.points.size(), "point", "points");
        }
        return kind + " at " + PlainText(geometry.points[0].x) + " " +
               PlainText(geometry.points[0].y);
    case GeometryKind::Text:
        return kind + " \"" + geometry.placement.text + "\"";
    case GeometryKind::Collection:
        return kind + " of " + Counted(feature.members.size(), "part", "parts");
    default:
        return kind;
    }
}

}  // namespace app
