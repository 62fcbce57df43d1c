#include "app/formats/mif/PairFeatures.h"

#include "app/base/Errors.h"
#include "app/base/Utf8.h"
#include "app/feature/FeatureBuilder.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

namespace app {
namespace {

void Reset(Geometry& geometry) {
    geometry.kind = GeometryKind::None;
    geometry.points.clear();
    geometry.partSizes.clear();
    geometry.isMulti = false;
    geometry.isSmooth = false;
    geometry.isPolyline = false;
    geometry.center.reset();
}

shr::Box2d BoxOf(const std::array<double, 6>& numbers) {
    return {std::min(numbers[0], numbers[2]), std::min(numbers[1], numbers[3]),
            std::max(numbers[0], numbers[2]), std::max(numbers[1], numbers[3])};
}

void TakeOwnPoints(const ObjectFacts& facts, Geometry& geometry) {
    if (facts.points.empty()) {
        return;  // an object without a place
    }
    geometry.points = facts.points;
    geometry.isMulti = facts.isMultiple || facts.kind == ObjectKind::Multipoint;
    if (facts.kind == ObjectKind::Region) {
        geometry.kind = GeometryKind::Region;
        geometry.partSizes = facts.partSizes;
    } else if (facts.kind == ObjectKind::Pline) {
        geometry.kind = GeometryKind::Line;
        geometry.partSizes = facts.partSizes;
    } else {
        geometry.kind = GeometryKind::Points;
    }
}

// The geometry that the module does not see.
void TakeOwn(const ObjectFacts& facts, Geometry& geometry) {
    switch (facts.kind) {
    case ObjectKind::Point:
    case ObjectKind::Pline:
    case ObjectKind::Region:
    case ObjectKind::Multipoint:
        TakeOwnPoints(facts, geometry);
        return;
    case ObjectKind::Line:
        geometry.kind = GeometryKind::Line;
        geometry.points = {{facts.numbers[0], facts.numbers[1]},
                           {facts.numbers[2], facts.numbers[3]}};
        return;
    case ObjectKind::Rect:
    case ObjectKind::RoundRect:
        geometry.kind = GeometryKind::Rectangle;
        geometry.box = BoxOf(facts.numbers);
        geometry.radiusX = facts.kind == ObjectKind::RoundRect ? facts.numbers[4] : 0.0;
        geometry.radiusY = geometry.radiusX;
        return;
    case ObjectKind::Ellipse:
        geometry.kind = GeometryKind::Ellipse;
        geometry.box = BoxOf(facts.numbers);
        return;
    case ObjectKind::Arc:
        if (facts.hasNumbers) {
            geometry.kind = GeometryKind::Arc;
            geometry.box = BoxOf(facts.numbers);
            geometry.startDegrees = facts.numbers[4];
            geometry.endDegrees = facts.numbers[5];
        }
        return;
    default:
        return;  // None, and a Text without a box
    }
}

// The first corner of a box that is turned about its first x and second y.
shr::Vec2d TurnedCorner(const std::array<double, 6>& box, double degrees) {
    const double angle = degrees * std::numbers::pi / 180.0;
    const double down = box[1] - box[3];
    return {box[0] - down * std::sin(angle), box[3] + down * std::cos(angle)};
}

// A line feed in a text is written as a backslash and an n.
std::string WithLineFeeds(std::string text) {
    for (std::size_t at = text.find("\\n"); at != std::string::npos;
         at = text.find("\\n", at + 1)) {
        text.replace(at, 2, "\n");
    }
    return text;
}

// The module takes a corner at 0 0 for none, and the first corner for the lower left one.
bool IsMisplaced(const std::array<double, 6>& box) {
    return (box[0] == 0.0 && box[1] == 0.0) || (box[2] == 0.0 && box[3] == 0.0) ||
           box[2] < box[0] || box[3] < box[1];
}

// The module turns texts by whole degrees.
void CorrectPlace(const std::array<double, 6>& box, double degrees, double& height,
                  shr::Vec2d& at) {
    if (IsMisplaced(box)) {
        const shr::Box2d sorted = BoxOf(box);
        at = TurnedCorner({sorted.minX, sorted.minY, sorted.maxX, sorted.maxY}, degrees);
        height = sorted.maxY - sorted.minY;
        return;
    }
    const double whole = std::trunc(degrees);
    const shr::Vec2d expected = TurnedCorner(box, whole);
    const double slack = 1e-9 * (std::abs(at.x) + std::abs(at.y));
    if (whole != degrees && std::abs(at.x - expected.x) <= slack &&
        std::abs(at.y - expected.y) <= slack) {
        at = TurnedCorner(box, degrees);
    }
}

// What the module leaves out, rounds or misplaces.
void CompleteText(const ObjectFacts& facts, const ClauseValues& clauses, double height,
                  Geometry& geometry) {
    TextPlacement& placement = geometry.placement;
    CorrectPlace(facts.numbers, clauses.angleDegrees, height, geometry.points.front());
    placement.text = WithLineFeeds(Utf8FromNarrow(facts.text));
    placement.angleDegrees = clauses.angleDegrees;
    placement.height = height;
    placement.justify = clauses.justify;
    placement.box =
        shr::Box2d{facts.numbers[0], facts.numbers[1], facts.numbers[2], facts.numbers[3]};
    placement.lineSpacing = clauses.lineSpacing;
    placement.labelLine = clauses.labelLine;
}

void Apply(const Transform& transform, shr::Vec2d& point) {
    point = {point.x * transform.factor.x + transform.shift.x,
             point.y * transform.factor.y + transform.shift.y};
}

void Apply(const Transform& transform, shr::Box2d& box) {
    shr::Vec2d first{box.minX, box.minY};
    shr::Vec2d second{box.maxX, box.maxY};
    Apply(transform, first);
    Apply(transform, second);
    box = {std::min(first.x, second.x), std::min(first.y, second.y), std::max(first.x, second.x),
           std::max(first.y, second.y)};
}

// An arc goes on counter-clockwise: in a mirror its ends change places.
void TurnArc(const Transform& transform, Geometry& arc) {
    if (transform.factor.x < 0.0) {
        arc.startDegrees = 180.0 - std::exchange(arc.endDegrees, 180.0 - arc.startDegrees);
    }
    if (transform.factor.y < 0.0) {
        arc.startDegrees = -std::exchange(arc.endDegrees, -arc.startDegrees);
    }
}

void Apply(const Transform& transform, Geometry& geometry) {
    for (shr::Vec2d& point : geometry.points) {
        Apply(transform, point);
    }
    Apply(transform, geometry.box);
    geometry.radiusX *= std::abs(transform.factor.x);
    geometry.radiusY *= std::abs(transform.factor.y);
    geometry.placement.height *= std::abs(transform.factor.y);
    if (geometry.center) {
        Apply(transform, *geometry.center);
    }
    if (geometry.kind == GeometryKind::Arc) {
        TurnArc(transform, geometry);
    }
    geometry.placement.box.reset();
    if (geometry.placement.labelLine) {
        Apply(transform, geometry.placement.labelLine->end);
    }
}

[[noreturn]] void FailToJoin() {
    throw Failure("the module read other objects than the file has, which is a fault of this "
                  "program; --as-is reads the file by the module alone");
}

}  // namespace

PairFeatures::PairFeatures(PairReading& reading, std::vector<LayerColumn> columns, RowReader* rows,
                           const FeatureSink& sink)
    : reading_(reading), columns_(std::move(columns)), rows_(rows), sink_(sink),
      facts_(reading.Facts()), hasRowPerMember_(reading.HasRowPerMember()),
      hasRowForSkipped_(reading.HasRowForSkipped()) {}

// Goes on to the next object that waits for the module, and hands over those before it.
bool PairFeatures::Advance() {
    for (object_ = facts_.Next(); object_ != nullptr; object_ = facts_.Next()) {
        if (object_->kind == ObjectKind::Skipped) {
            if (rows_ != nullptr && hasRowForSkipped_) {
                static_cast<void>(rows_->Skip());
            }
            continue;
        }
        StartObject();
        if (!FillOwnUnits()) {
            return true;
        }
        if (!Emit()) {
            return false;
        }
    }
    return true;
}

void PairFeatures::StartObject() {
    ++feature_.number;
    Reset(feature_.geometry);
    unit_ = 0;
    if (object_->kind == ObjectKind::Collection) {
        feature_.geometry.kind = GeometryKind::Collection;
        feature_.geometry.style = {};
        feature_.members.assign(object_->members.size(), {});
    } else {
        feature_.members.clear();
    }
}

std::size_t PairFeatures::UnitCount() const {
    return object_->kind == ObjectKind::Collection ? object_->members.size() : 1;
}

const ObjectFacts& PairFeatures::Unit() const {
    return object_->kind == ObjectKind::Collection ? object_->members[unit_] : *object_;
}

Geometry& PairFeatures::UnitGeometry() {
    return object_->kind == ObjectKind::Collection ? feature_.members[unit_] : feature_.geometry;
}

// Goes on to the unit that waits for the module. False when there is one.
bool PairFeatures::FillOwnUnits() {
    for (; unit_ < UnitCount(); ++unit_) {
        missing_ = Unit().handedOver;
        if (missing_ > 0) {
            return false;
        }
        TakeOwn(Unit(), UnitGeometry());
        FinishUnit();
    }
    return true;
}

bool PairFeatures::Take(zeio::TrBase& object) {
    if (object.GetTypeId() == zeio::TrFont::GetClassTypeId()) {
        textHeight_ = static_cast<const zeio::TrFont&>(object).height;
        return true;
    }
    Geometry taken;
    const bool isFirst = object_ != nullptr && missing_ == Unit().handedOver;
    Geometry& geometry = isFirst ? UnitGeometry() : taken;
    if (!FeatureBuilder::TakeGeometry(object, geometry)) {
        return true;
    }
    if (object_ == nullptr) {
        FailToJoin();
    }
    Geometry& whole = UnitGeometry();
    if (!isFirst) {
        whole.points.insert(whole.points.end(), taken.points.begin(), taken.points.end());
    }
    if (Unit().isMultiple) {
        whole.partSizes.push_back(geometry.points.size());
    }
    if (--missing_ > 0) {
        return true;
    }
    FinishUnit();
    ++unit_;
    if (!FillOwnUnits()) {
        return true;
    }
    return Emit() && Advance();
}

void PairFeatures::FinishUnit() {
    const ObjectFacts& facts = Unit();
    Geometry& geometry = UnitGeometry();
    const ClauseValues& clauses = clauses_.Read(facts.clauses);
    geometry.style = clauses.style;
    geometry.isSmooth = clauses.isSmooth;
    geometry.isPolyline = facts.kind == ObjectKind::Pline;
    geometry.center = clauses.center;
    geometry.isMulti = facts.isMultiple || facts.kind == ObjectKind::Multipoint;
    if (geometry.kind == GeometryKind::Text) {
        CompleteText(facts, clauses, textHeight_, geometry);
    }
    if (reading_.Pair().header.transform) {
        Apply(*reading_.Pair().header.transform, geometry);
    }
}

bool PairFeatures::Emit() {
    TakeRow();
    return sink_(feature_);
}

// Without a row the values are null.
void PairFeatures::TakeRow() {
    feature_.values.assign(columns_.size(), Value());
    if (rows_ == nullptr) {
        return;
    }
    if (!rows_->Next(fields_)) {
        ++withoutRow_;
        return;
    }
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        feature_.values[i] = TypedValue(
            columns_[i], i < fields_.size() ? Utf8FromNarrow(fields_[i].value) : std::string());
    }
    if (hasRowPerMember_ && object_->kind == ObjectKind::Collection) {
        for (std::size_t member = 1; member < object_->members.size(); ++member) {
            static_cast<void>(rows_->Skip());
        }
    }
}

void PairFeatures::Finish() const {
    if (object_ != nullptr) {
        FailToJoin();
    }
}

}  // namespace app
