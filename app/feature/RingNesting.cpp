#include "app/feature/RingNesting.h"

#include "app/feature/Feature.h"

#include <geos_c.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <new>
#include <numeric>
#include <utility>

namespace app {
namespace {

struct FinishContext {
    void operator()(GEOSContextHandle_HS* context) const { GEOS_finish_r(context); }
};
using Context = std::unique_ptr<GEOSContextHandle_HS, FinishContext>;

// A ring as a polygon that answers quickly whether points lie in it.
class RingArea {
public:
    RingArea(GEOSContextHandle_t context, Ring ring) : context_(context) {
        const bool isOpen = ring.front() != ring.back();
        const auto count = static_cast<unsigned>(ring.size() + (isOpen ? 1 : 0));
        GEOSCoordSequence* sequence = GEOSCoordSeq_create_r(context, count, 2);
        for (unsigned i = 0; i < count; ++i) {
            const shr::Vec2d& point = ring[i % ring.size()];
            GEOSCoordSeq_setXY_r(context, sequence, i, point.x, point.y);
        }
        GEOSGeometry* line = GEOSGeom_createLinearRing_r(context, sequence);
        polygon_ = line != nullptr ? GEOSGeom_createPolygon_r(context, line, nullptr, 0) : nullptr;
        prepared_ = polygon_ != nullptr ? GEOSPrepare_r(context, polygon_) : nullptr;
        if (prepared_ == nullptr) {
            Free();
            throw std::bad_alloc();
        }
    }
    ~RingArea() { Free(); }
    RingArea(const RingArea&) = delete;
    RingArea& operator=(const RingArea&) = delete;

    // Whether another ring lies in this one: its first vertex that is not on this ring's line
    // decides.
    bool Holds(Ring ring) const {
        for (const shr::Vec2d& point : ring) {
            const std::unique_ptr<GEOSGeometry, FreeGeometry> vertex(
                GEOSGeom_createPointFromXY_r(context_, point.x, point.y), FreeGeometry{context_});
            if (vertex == nullptr) {
                throw std::bad_alloc();
            }
            if (GEOSPreparedContains_r(context_, prepared_, vertex.get()) == 1) {
                return true;
            }
            if (GEOSPreparedIntersects_r(context_, prepared_, vertex.get()) == 0) {
                return false;
            }
        }
        return true;  // every vertex is on the line
    }

private:
    struct FreeGeometry {
        GEOSContextHandle_t context;
        void operator()(GEOSGeometry* geometry) const { GEOSGeom_destroy_r(context, geometry); }
    };

    void Free() {
        GEOSPreparedGeom_destroy_r(context_, prepared_);
        GEOSGeom_destroy_r(context_, polygon_);
    }

    GEOSContextHandle_t context_;
    GEOSGeometry* polygon_ = nullptr;
    const GEOSPreparedGeometry* prepared_ = nullptr;
};

double AreaOf(Ring ring) {
    double twice = 0.0;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        // Relative to the first point, which keeps the digits of far-away coordinates.
        const shr::Vec2d& a = ring[i];
        const shr::Vec2d& b = ring[(i + 1) % ring.size()];
        const shr::Vec2d& o = ring.front();
        twice += (a.x - o.x) * (b.y - o.y) - (b.x - o.x) * (a.y - o.y);
    }
    return std::abs(twice) / 2.0;
}

bool Covers(const shr::Box2d& outer, const shr::Box2d& inner) {
    return outer.minX <= inner.minX && outer.minY <= inner.minY && outer.maxX >= inner.maxX &&
           outer.maxY >= inner.maxY;
}

bool EnclosesNothing(Ring ring) {
    std::size_t changes = 0;
    for (std::size_t i = 1; i < ring.size() && changes < 3; ++i) {
        changes += ring[i] != ring[i - 1] ? 1 : 0;
    }
    const bool isClosed = !ring.empty() && ring.front() == ring.back();
    return changes < (isClosed ? 3U : 2U);
}

struct RankedRing {
    Ring ring;
    shr::Box2d box;
    double area;
    std::size_t order;  // in the input
    std::size_t depth = 0;
    std::size_t parent = 0;  // of depth > 0: the index of the smallest ring around it
};

// Sorts rings from the largest to the smallest, so that those around a ring come before it.
std::vector<RankedRing> Ranked(std::span<const Ring> rings) {
    std::vector<RankedRing> ranked;
    for (const Ring& ring : rings) {
        ranked.push_back({ring, BoxOf(ring), AreaOf(ring), ranked.size()});
    }
    std::stable_sort(ranked.begin(), ranked.end(),
                     [](const auto& a, const auto& b) { return a.area > b.area; });
    return ranked;
}

void FindParents(std::vector<RankedRing>& ranked) {
    const Context context(GEOS_init_r());
    std::vector<std::unique_ptr<RingArea>> areas(ranked.size());  // made when first asked
    for (std::size_t i = 1; i < ranked.size(); ++i) {
        // The last match is the smallest ring around it, and one level less deep.
        for (std::size_t j = i; j-- > 0;) {
            if (!Covers(ranked[j].box, ranked[i].box)) {
                continue;
            }
            if (areas[j] == nullptr) {
                areas[j] = std::make_unique<RingArea>(context.get(), ranked[j].ring);
            }
            if (areas[j]->Holds(ranked[i].ring)) {
                ranked[i].depth = ranked[j].depth + 1;
                ranked[i].parent = j;
                break;
            }
        }
    }
}

}  // namespace

std::vector<Ring> RingsOf(std::span<const shr::Vec2d> points,
                          std::span<const std::size_t> partSizes) {
    std::vector<Ring> rings;
    for (const std::size_t size : partSizes) {
        const Ring ring = points.first(size);
        points = points.subspan(size);
        if (!EnclosesNothing(ring)) {
            rings.push_back(ring);
        }
    }
    return rings;
}

std::vector<NestedPolygon> NestRings(std::span<const Ring> rings) {
    if (rings.size() == 1) {
        return {{rings.front(), {}}};
    }
    std::vector<RankedRing> ranked = Ranked(rings);
    FindParents(ranked);
    // In the order of the input. Outer rings first, so that holes find the places of their
    // polygons.
    std::vector<std::size_t> inOrder(ranked.size());
    for (std::size_t i = 0; i < ranked.size(); ++i) {
        inOrder[ranked[i].order] = i;
    }
    std::vector<NestedPolygon> polygons;
    std::vector<std::size_t> places(ranked.size());
    for (const std::size_t i : inOrder) {
        if (ranked[i].depth % 2 == 0) {
            places[i] = polygons.size();
            polygons.push_back({ranked[i].ring, {}});
        }
    }
    for (const std::size_t i : inOrder) {
        if (ranked[i].depth % 2 == 1) {
            polygons[places[ranked[i].parent]].holes.push_back(ranked[i].ring);
        }
    }
    return polygons;
}

}  // namespace app
