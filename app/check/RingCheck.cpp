#include "app/check/RingCheck.h"

#define GEOS_USE_ONLY_R_API
#include <geos_c.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <string_view>

namespace app {
namespace {

GEOSContextHandle_t AsContext(void* context) {
    return static_cast<GEOSContextHandle_t>(context);
}

// The sequence of the closed ring, owned by the caller; null when memory is short.
GEOSCoordSequence* SequenceOf(GEOSContextHandle_t context, std::span<const shr::Vec2d> ring) {
    const bool isClosed = ring.front() == ring.back();
    const std::size_t size = ring.size() + (isClosed ? 0 : 1);
    GEOSCoordSequence* sequence =
        GEOSCoordSeq_create_r(context, static_cast<unsigned int>(size), 2);
    if (sequence == nullptr) {
        return nullptr;
    }
    for (std::size_t i = 0; i < size; ++i) {
        const shr::Vec2d& vertex = ring[i % ring.size()];
        GEOSCoordSeq_setXY_r(context, sequence, static_cast<unsigned int>(i), vertex.x, vertex.y);
    }
    return sequence;
}

shr::Vec2d PointOf(GEOSContextHandle_t context, const GEOSGeometry* point) {
    shr::Vec2d vertex;
    GEOSGeomGetX_r(context, point, &vertex.x);
    GEOSGeomGetY_r(context, point, &vertex.y);
    return vertex;
}

}  // namespace

std::uint64_t CountDoubled(std::span<const shr::Vec2d> vertices) {
    std::uint64_t doubled = 0;
    for (std::size_t i = 1; i < vertices.size(); ++i) {
        doubled += vertices[i] == vertices[i - 1] ? 1U : 0U;
    }
    return doubled;
}

bool HasArea(std::span<const shr::Vec2d> ring) {
    const auto second =
        std::ranges::find_if(ring, [&](const shr::Vec2d& v) { return !(v == ring.front()); });
    return second != ring.end() && std::any_of(second, ring.end(), [&](const shr::Vec2d& v) {
               return !(v == ring.front()) && !(v == *second);
           });
}

RingTester::RingTester() : context_(GEOS_init_r()) {}

RingTester::~RingTester() {
    GEOS_finish_r(AsContext(context_));
}

std::optional<Crossing> RingTester::Test(std::span<const shr::Vec2d> ring) {
    if (ring.size() < 3 || !HasArea(ring)) {
        return std::nullopt;
    }
    if (simple_.IsSimple(ring)) {
        return std::nullopt;
    }
    if (ring.size() > kMaxVertices) {
        return Crossing{.where = {}, .reason = "it has more than 4,000,000 vertices"};
    }
    if (!std::ranges::all_of(
            ring, [](const shr::Vec2d& v) { return std::isfinite(v.x) && std::isfinite(v.y); })) {
        return Crossing{.where = {}, .reason = "it has coordinates that are no numbers"};
    }
    const GEOSContextHandle_t context = AsContext(context_);
    const auto destroy = [context](GEOSGeometry* geometry) {
        GEOSGeom_destroy_r(context, geometry);
    };
    using GeometryPtr = std::unique_ptr<GEOSGeometry, decltype(destroy)>;

    GEOSCoordSequence* sequence = SequenceOf(context, ring);
    GEOSGeometry* line =
        sequence == nullptr ? nullptr : GEOSGeom_createLinearRing_r(context, sequence);
    const GeometryPtr polygon(
        line == nullptr ? nullptr : GEOSGeom_createPolygon_r(context, line, nullptr, 0), destroy);
    char* reason = nullptr;
    GEOSGeometry* where = nullptr;
    const int validity =
        polygon == nullptr ? 2 : GEOSisValidDetail_r(context, polygon.get(), 0, &reason, &where);
    const GeometryPtr place(where, destroy);
    const std::string text = reason == nullptr ? std::string() : std::string(reason);
    GEOSFree_r(context, reason);
    if (validity == 1) {
        return std::nullopt;
    }
    if (validity != 0 || place == nullptr) {
        return Crossing{.where = {}, .reason = "the geometry library could not take it"};
    }
    const bool isTouch = text.find("Ring Self-intersection") != std::string::npos;
    return Crossing{.kind = isTouch ? CrossingKind::Touches : CrossingKind::Crosses,
                    .where = PointOf(context, place.get()),
                    .reason = {}};
}

}  // namespace app
