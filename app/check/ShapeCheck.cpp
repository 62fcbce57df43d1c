#include "app/check/ShapeCheck.h"

#include "app/mif/Numbers.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <tuple>

namespace app {
namespace {

bool Holds(const shr::Box2d& box, const shr::Vec2d& point) {
    // The corners of a declared box are often rounded.
    const double slack = 1e-9 * std::max(box.maxX - box.minX, box.maxY - box.minY) + 1e-6;
    return point.x >= box.minX - slack && point.x <= box.maxX + slack &&
           point.y >= box.minY - slack && point.y <= box.maxY + slack;
}

std::uint64_t LineOf(const ObjectPart& part, std::size_t point) {
    return part.lines.empty() ? part.firstLine + (part.shape == PartShape::Corners ? 0 : point)
                              : part.lines[point];
}

bool HoldsAll(const std::optional<shr::Box2d>& box, std::span<const shr::Vec2d> points) {
    return !box ||
           std::ranges::all_of(points, [&](const shr::Vec2d& point) { return Holds(*box, point); });
}

}  // namespace

std::string PointText(const shr::Vec2d& point) {
    return "(" + NumberAsText(point.x) + ", " + NumberAsText(point.y) + ")";
}

void CheckRing(std::span<const shr::Vec2d> ring, RingTester& tester, const RingSink& sink) {
    if (!HasArea(ring)) {
        sink(FindingCode::RingTooSmall, "the ring has fewer than three different vertices");
        return;
    }
    if (!(ring.front() == ring.back())) {
        sink(FindingCode::RingNotClosed, "the last vertex is not the first one");
    }
    const std::optional<Crossing> crossing = tester.Test(ring);
    if (!crossing) {
        return;
    }
    const std::string where = " at " + PointText(crossing->where);
    if (crossing->kind == CrossingKind::NotTested) {
        sink(FindingCode::RingNotTested,
             "the ring was not tested for self-crossing: " + crossing->reason);
    } else if (crossing->kind == CrossingKind::Touches) {
        sink(FindingCode::RingTouchesItself, "the ring touches itself" + where);
    } else {
        sink(FindingCode::RingCrossesItself, "the ring crosses itself" + where);
    }
}

ShapeCheck::ShapeCheck(const MifHeader& header, FindingCounter& report)
    : header_(header), bounds_(header.bounds), report_(report) {
    if (bounds_) {
        std::tie(bounds_->minX, bounds_->maxX) = std::minmax({bounds_->minX, bounds_->maxX});
        std::tie(bounds_->minY, bounds_->maxY) = std::minmax({bounds_->minY, bounds_->maxY});
    }
}

void ShapeCheck::TakePoints(const ObjectPart& part) {
    CheckPlaces(part);
    const std::uint64_t doubled =
        part.shape == PartShape::Section || part.shape == PartShape::Outline
            ? CountDoubled(part.points)
            : 0;
    if (doubled > 0) {
        report_.Add(FindingCode::DuplicateVertices, PlaceOf(part),
                    Counted(doubled, "vertex equals", "vertices equal") + " the one before");
    }
    if (part.shape == PartShape::Section && part.points.size() == 1) {
        report_.Add(FindingCode::OneVertexLine, PlaceOf(part),
                    "a line of one vertex; the reader drops it");
    }
    if (part.shape == PartShape::Outline && !part.points.empty()) {
        CheckRing(part.points, rings_, [&](FindingCode code, const std::string& message) {
            report_.Add(code, PlaceOf(part), message);
        });
    }
}

// Reports the first point of an object that lies outside.
void ShapeCheck::CheckPlaces(const ObjectPart& part) {
    if (part.object == outside_ ||
        (HoldsAll(header_.possible, part.points) && HoldsAll(bounds_, part.points))) {
        return;
    }
    for (std::size_t i = 0; i < part.points.size(); ++i) {
        if (CheckPlace(part.points[i], {FileOfPair::Mif, LineOf(part, i), part.object})) {
            outside_ = part.object;
            return;
        }
    }
}

// True when the point lies outside.
bool ShapeCheck::CheckPlace(const shr::Vec2d& point, const Place& place) {
    if (header_.possible && !Holds(*header_.possible, point)) {
        report_.Add(FindingCode::OutsideEarth, place, PointText(point) + " lies outside the Earth");
        return true;
    }
    if (bounds_ && !Holds(*bounds_, point)) {
        report_.Add(FindingCode::OutsideBounds, place,
                    PointText(point) + " lies outside the declared bounds");
        return true;
    }
    return false;
}

}  // namespace app
