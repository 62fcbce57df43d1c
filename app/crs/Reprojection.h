// Moves features from their input's system to that of the output.
#pragma once

#include "app/crs/CoordinateTransformer.h"
#include "app/feature/Feature.h"
#include "host/gcs/CSDef.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace app {

class Reprojection {
public:
    // From one system to another by way of WGS 84; null stands for longitude and latitude of
    // WGS 84 themselves. Throws Failure when one of them can't be transformed.
    Reprojection(const gcs::CSDef* from, const gcs::CSDef* to);

    // Whether anything is to be done. Rectangles and ellipses must have become regions then.
    bool IsNeeded() const { return from_.has_value() || to_.has_value(); }

    // Points that fail become infinite. Texts get the height and angle that they have there, and
    // lose their box.
    void Apply(Feature& feature);
    void Apply(std::vector<shr::Vec2d>& points);

    std::uint64_t FailedPoints() const { return failedPoints_; }

    // What a user should know about the result.
    std::vector<std::string> Warnings() const;

private:
    void Apply(Geometry& geometry);
    void ApplyToText(Geometry& text);

    std::optional<CoordinateTransformer> from_;
    std::optional<CoordinateTransformer> to_;
    bool endsInDegrees_ = false;
    std::vector<double> x_;
    std::vector<double> y_;
    std::uint64_t failedPoints_ = 0;
};

// Whether the system is longitude and latitude of WGS 84 as it stands.
bool IsWgs84(const gcs::CSDef* system);

// Longitude and latitude of WGS 84, as a MIF file declares it.
gcs::GCSDef Wgs84System();

}  // namespace app
