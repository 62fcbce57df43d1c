#include "app/stats/LayerStatistics.h"

#include <algorithm>
#include <utility>

namespace app {
namespace {

void Widen(std::optional<shr::Box2d>& extent, const shr::Box2d& box) {
    if (box.IsEmpty()) {
        return;
    }
    extent = extent ? shr::Box2d{std::min(extent->minX, box.minX), std::min(extent->minY, box.minY),
                                 std::max(extent->maxX, box.maxX), std::max(extent->maxY, box.maxY)}
                    : box;
}

}  // namespace

LayerStatistics::LayerStatistics(std::vector<LayerColumn> columns)
    : columns_(std::move(columns)), values_(columns_.size()), kinds_{{{"without place"},
                                                                      {"points"},
                                                                      {"lines"},
                                                                      {"regions"},
                                                                      {"rectangles"},
                                                                      {"ellipses"},
                                                                      {"arcs"},
                                                                      {"texts"},
                                                                      {"collections"}}} {}

void LayerStatistics::Take(const Feature& feature) {
    ++features_;
    KindStatistics& kind = kinds_.at(static_cast<std::size_t>(feature.geometry.kind));
    ++kind.count;
    Widen(kind.extent, BoxOf(feature.geometry));
    for (const Geometry& member : feature.members) {
        Widen(kind.extent, BoxOf(member));
    }
    for (std::size_t i = 0; i < values_.size(); ++i) {
        values_[i].Take(i < feature.values.size() ? feature.values[i] : Value());
    }
}

std::optional<shr::Box2d> LayerStatistics::Extent() const {
    std::optional<shr::Box2d> extent;
    for (const KindStatistics& kind : kinds_) {
        if (kind.extent) {
            Widen(extent, *kind.extent);
        }
    }
    return extent;
}

}  // namespace app
