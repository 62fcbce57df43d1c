// The layers of a page: read once, and given back as GeoJSON that fits into a page of some size.
#pragma once

#include "app/map/FarObjects.h"
#include "app/map/MapReader.h"
#include "app/page/PageFeature.h"
#include "app/page/PageSpool.h"
#include "app/page/PageStyles.h"

#include <array>
#include <bitset>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace app {

// The layers of a page at one tolerance.
struct PageContent {
    std::vector<std::string> layers;  // GeoJSON feature collections
    double tolerance = 0.0;           // metres at the equator, or units of the plane
    bool isThinned = false;           // more than what nobody would see
};

class PageLayers : public MapSink {
public:
    // `view` is the part of the map that is wanted, in its coordinates; absent: all of it.
    PageLayers(std::optional<shr::Box2d> view, StyleSource styleSource);

    void BeginLayer(const MapLayer& layer) override;
    void Take(Feature& feature) override;

    // After the reading: whether the page shows the layers that have a place on the Earth, or those
    // that have none. The rest counts for the other functions as if it were not there.
    void Choose(PagePlane plane) { plane_ = plane; }

    // The box of the objects, in the map's coordinates; absent without any.
    const std::optional<shr::Box2d>& Extent() const { return Chosen().extent; }

    // The names of the layers, in their order.
    std::vector<std::string> Names() const;

    // As FarObjects::Find.
    std::optional<FarObjectsFound> FindFarObjects();

    // Where the map is cut when the objects lie on both ends of the longitudes: what is west of it
    // is to be shown east of the rest. Absent when the cut at 180 degrees is as good.
    std::optional<double> Seam() const;

    // The system of the first layer; null when it names none.
    const SystemPtr& FirstSystem() const { return firstSystem_; }

    const PageStyles& Styles() const { return styles_; }

    // Leaves out vertices, those that matter least first, until the layers have at most so many
    // bytes. Absent when all vertices that can go would not be enough.
    std::optional<PageContent> Within(std::size_t most);

    // About how many bytes the layers have when all vertices that can go are left out.
    std::size_t LeastSize() const;

private:
    // A length in quarters of an octave.
    static constexpr std::size_t kSteps = 400;

    // What is known of the layers of one kind.
    struct Half {
        std::optional<shr::Box2d> extent;
        FarObjects farObjects;
        std::array<std::uint64_t, kSteps> vertices{};  // by weight; the last: all that must stay
        std::uint64_t otherBytes = 0;
        std::bitset<360> longitudes;  // where objects are
    };
    struct Layer {
        std::string name;
        std::string head;  // of its GeoJSON, up to the first feature
        std::vector<std::string> keys;
        PagePlane plane;
        bool unwraps = false;
    };

    static std::size_t StepOf(double length);
    static double LengthOf(std::size_t step);
    static std::string HeadOf(const MapLayer& layer, const std::vector<std::string>& keys);

    std::optional<PageMember> TakeGeometry(Geometry& geometry);
    std::string PropertiesOf(const Feature& feature) const;
    void Note(const PageFeature& feature);
    const Half& Chosen() const { return halves_[static_cast<std::size_t>(plane_)]; }
    double FinestTolerance() const;
    int DecimalsFor(double tolerance) const;
    double BytesAt(std::size_t step) const;
    std::optional<std::vector<std::string>> Written(double tolerance, std::size_t most);

    std::optional<shr::Box2d> view_;
    PageStyles styles_;
    PageSpool spool_;
    std::vector<Layer> layers_;
    std::array<Half, 2> halves_;  // by PagePlane
    PagePlane plane_ = PagePlane::Degrees;
    SystemPtr firstSystem_;
};

}  // namespace app
