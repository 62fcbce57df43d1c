#include "app/draw/PictureMap.h"

#include "app/draw/PagePath.h"
#include "app/feature/LabelText.h"
#include "app/feature/ValueText.h"
#include "app/map/FontCatalogue.h"
#include "app/map/MapExtent.h"

#include <algorithm>
#include <cmath>

namespace app {

namespace {

// The thinning here comes before that on the page, and leaves it most of a quarter of a pixel.
constexpr double kThinningPixels = 0.125;

// What lies so far beside a view can't reach into it: pixels.
constexpr double kLargestReach = 1024.0;

GeometryKind LookKindOf(GeometryKind kind) {
    return kind == GeometryKind::Line || kind == GeometryKind::Points || kind == GeometryKind::Text
               ? kind
               : GeometryKind::Region;
}

}  // namespace

PictureMap::PictureMap(const PageRequest& request, std::optional<shr::Box2d> view,
                       StyleSource styleSource)
    : largestPage_(LargestPage(request)), view_(view), styles_(ResolverWithFonts(styleSource)) {}

void PictureMap::BeginLayer(const MapLayer& layer) {
    styles_.BeginLayer(legend_.size());
    spool_.BeginLayer(legend_.size());
    legend_.push_back({layer.name, {}, false});
    hasLabels_.push_back(layer.labelColumn.has_value());
    labelColumn_ = layer.labelColumn;
    lastKind_ = GeometryKind::None;
}

void PictureMap::Take(Feature& feature) {
    std::string label;
    if (labelColumn_ && *labelColumn_ < feature.values.size()) {
        label = CleanName(TextOf(feature.values[*labelColumn_]));
    }
    if (feature.geometry.kind != GeometryKind::Collection) {
        TakeGeometry(feature.geometry, label);
        return;
    }
    for (Geometry& member : feature.members) {
        TakeGeometry(member, label);
        label.clear();  // one label for all of them
    }
}

void PictureMap::TakeGeometry(Geometry& geometry, const std::string& label) {
    FlattenCurves(geometry, kTurnSegments);
    const shr::Box2d box = DrawableBox(geometry);
    if (box.IsEmpty()) {
        return;
    }
    if (geometry.kind != lastKind_ || geometry.style != lastStyle_) {
        lastKind_ = geometry.kind;
        lastStyle_ = geometry.style;
        reach_ = styles_.ReachOf(geometry);
        NoteLook(geometry);
    }
    frame_.Include(box, reach_);
    farObjects_.Add(box);
    if (!IsHidden(box)) {
        Thin(geometry);
        spool_.Add(geometry, label);
    }
}

void PictureMap::NoteLook(const Geometry& geometry) {
    LegendLayer& layer = legend_.back();
    LegendLayer::Look look{LookKindOf(geometry.kind), geometry.style};
    if (std::ranges::find(layer.looks, look) != layer.looks.end()) {
        return;
    }
    if (layer.looks.size() == LegendLayer::kMostLooks) {
        layer.hasMore = true;
    } else {
        layer.looks.push_back(std::move(look));
    }
}

bool PictureMap::IsHidden(const shr::Box2d& box) const {
    if (!view_) {
        return false;
    }
    const double beyondX = (view_->maxX - view_->minX) * (kLargestReach / largestPage_.width + 1.0);
    const double beyondY =
        (view_->maxY - view_->minY) * (kLargestReach / largestPage_.height + 1.0);
    return box.maxX < view_->minX - beyondX || box.minX > view_->maxX + beyondX ||
           box.maxY < view_->minY - beyondY || box.minY > view_->maxY + beyondY;
}

// Points are what they are: symbols that hide behind others are left out where they are drawn.
void PictureMap::Thin(Geometry& geometry) const {
    if (geometry.kind != GeometryKind::Line && geometry.kind != GeometryKind::Region) {
        return;
    }
    const shr::Box2d& box = view_ ? *view_ : *frame_.Extent();
    const shr::Vec2d near{(box.maxX - box.minX) / largestPage_.width * kThinningPixels,
                          (box.maxY - box.minY) / largestPage_.height * kThinningPixels};
    if (geometry.partSizes.size() <= 1) {
        ThinFrom(geometry.points, 0, near);
        if (!geometry.partSizes.empty()) {
            geometry.partSizes.front() = geometry.points.size();
        }
        return;
    }
    std::vector<shr::Vec2d> thinned;
    std::span<const shr::Vec2d> rest(geometry.points);
    for (std::size_t& size : geometry.partSizes) {
        const std::size_t begin = thinned.size();
        thinned.insert(thinned.end(), rest.begin(),
                       rest.begin() + static_cast<std::ptrdiff_t>(size));
        rest = rest.subspan(size);
        ThinFrom(thinned, begin, near);
        size = thinned.size() - begin;
    }
    geometry.points = std::move(thinned);
}

std::optional<FarObjectsFound> PictureMap::FindFarObjects() {
    return farObjects_.Find(*frame_.Extent(), [this](const auto& take) {
        spool_.Read({.beginLayer = [](std::size_t) {},
                     .take =
                         [&take](const Geometry& geometry, std::string_view) {
                             const shr::Box2d box = DrawableBox(geometry);
                             if (!box.IsEmpty()) {
                                 take(box);
                             }
                         }});
    });
}

}  // namespace app
