// The geometry of a feature as the blob of a GeoPackage.
#pragma once

#include "app/feature/Feature.h"
#include "app/feature/RingNesting.h"
#include "app/formats/gpkg/BlobWriter.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace app {

// Returns the smallest box around both.
shr::Box2d Union(const shr::Box2d& a, const shr::Box2d& b);

class FeatureBlob {
public:
    explicit FeatureBlob(std::int32_t srsId) : blob_(srsId) {}

    // Builds the geometry of a feature in place of the last one. Curves must have become lines and
    // regions (FlattenCurves). Returns false when there is nothing to build: a feature without
    // geometry, a coordinate that is not a finite number, a line of one point, a region that
    // encloses nothing. Such members of a collection are left out.
    bool Build(const Feature& feature);

    // Of the geometry that was built last; the blob is valid until the next one is built.
    GeometryType Type() const { return type_; }
    const shr::Box2d& Box() const { return box_; }
    std::string_view Blob() const { return blob_.Blob(); }

private:
    // What the blob says of one geometry; the spans are those of its points.
    struct Body {
        GeometryType type = GeometryType::Geometry;
        shr::Box2d box;
        std::vector<std::span<const shr::Vec2d>> sections;
        std::vector<NestedPolygon> polygons;
    };

    static std::optional<Body> BodyOf(const Geometry& geometry);
    bool BuildCollection(const std::vector<Geometry>& members);
    void Append(const Body& body, const Geometry& geometry);
    void AppendPolygon(const NestedPolygon& polygon);

    BlobWriter blob_;
    GeometryType type_ = GeometryType::Geometry;
    shr::Box2d box_;
};

}  // namespace app
