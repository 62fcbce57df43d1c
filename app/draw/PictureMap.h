// A map on its way into a picture: read once, thinned to what the picture can show, and kept until
// its extent is known.
//
// The extent that a file states may be wrong, so that of the objects counts. While objects come in,
// the extent only grows and with it what a pixel of the picture covers: a vertex that falls on the
// pixel of the one before will do so in the end, and is not kept.
#pragma once

#include "app/draw/GeometrySpool.h"
#include "app/draw/MapFrame.h"
#include "app/feature/DrawnStyle.h"
#include "app/map/FarObjects.h"
#include "app/map/MapReader.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace app {

// A layer as a legend shows it.
struct LegendLayer {
    static constexpr std::size_t kMostLooks = 8;

    struct Look {
        GeometryKind kind = GeometryKind::Points;  // Points, Line, Region or Text
        Style style;

        bool operator==(const Look&) const = default;
    };
    std::string name;
    std::vector<Look> looks;  // the first ones that came
    bool hasMore = false;
};

class PictureMap : public MapSink {
public:
    // `view` is the part of the map that is drawn, in its coordinates; absent: all of it.
    PictureMap(const PageRequest& request, std::optional<shr::Box2d> view, StyleSource styleSource);

    void BeginLayer(const MapLayer& layer) override;
    void Take(Feature& feature) override;

    // The map's extent; without a view also what its objects need on the page.
    const MapFrame& Frame() const { return frame_; }
    const std::vector<LegendLayer>& Legend() const { return legend_; }
    bool HasLabels(std::size_t layer) const { return hasLabels_[layer]; }
    GeometrySpool& Geometries() { return spool_; }

    // As FarObjects::Find.
    std::optional<FarObjectsFound> FindFarObjects();

private:
    void TakeGeometry(Geometry& geometry, const std::string& label);
    void NoteLook(const Geometry& geometry);
    bool IsHidden(const shr::Box2d& box) const;
    void Thin(Geometry& geometry) const;

    PageSize largestPage_;
    std::optional<shr::Box2d> view_;
    StyleResolver styles_;
    MapFrame frame_;
    FarObjects farObjects_;
    GeometrySpool spool_;
    std::vector<LegendLayer> legend_;  // by layer
    std::vector<bool> hasLabels_;      // by layer
    std::optional<std::size_t> labelColumn_;
    Style lastStyle_;  // of the object before, to find out its reach and look once
    GeometryKind lastKind_ = GeometryKind::None;
    double reach_ = 0.0;
};

}  // namespace app
