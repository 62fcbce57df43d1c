#include "app/crs/Reprojection.h"

#include "app/base/Errors.h"
#include "host/gcs/KnownLists.h"

#include <cmath>
#include <cstdint>
#include <numbers>

namespace app {

namespace {

constexpr const wchar_t* kWgs84Token = L"DATUM_WGS84";

// Degrees to nine decimals are 0.1 mm: what lies behind them is the noise of the computation.
double Rounded(double degrees) {
    constexpr double kSteps = 1e9;
    return std::isfinite(degrees) ? std::round(degrees * kSteps) / kSteps : degrees;
}

CoordinateTransformer Transformer(const gcs::CSDef& system) {
    CoordinateTransformer transformer(system);
    if (!transformer.problem().empty()) {
        throw Failure(transformer.problem());
    }
    return transformer;
}

}  // namespace

Reprojection::Reprojection(const gcs::CSDef* from, const gcs::CSDef* to) {
    if (from != nullptr && !IsWgs84(from)) {
        from_.emplace(Transformer(*from));
    }
    if (to != nullptr && !IsWgs84(to)) {
        to_.emplace(Transformer(*to));
    }
    endsInDegrees_ = !to_.has_value();
}

void Reprojection::Apply(Feature& feature) {
    if (!IsNeeded()) {
        return;
    }
    Apply(feature.geometry);
    for (Geometry& member : feature.members) {
        Apply(member);
    }
}

void Reprojection::Apply(Geometry& geometry) {
    if (geometry.kind == GeometryKind::Text && geometry.points.size() == 1) {
        ApplyToText(geometry);
    } else {
        Apply(geometry.points);
    }
}

// A text's height and angle are those of a short way up and one along its base there.
void Reprojection::ApplyToText(Geometry& text) {
    TextPlacement& placement = text.placement;
    const shr::Vec2d from = text.points.front();
    const double angle = placement.angleDegrees * std::numbers::pi / 180.0;
    const shr::Vec2d along{std::cos(angle) * placement.height, std::sin(angle) * placement.height};
    std::vector<shr::Vec2d> points{from};
    if (placement.labelLine) {
        points.push_back(placement.labelLine->end);
    }
    Apply(points);
    text.points = {points.front()};
    placement.box.reset();
    if (placement.labelLine) {
        placement.labelLine->end = points.back();
    }
    const std::uint64_t failed = failedPoints_;
    std::vector<shr::Vec2d> ways{{from.x + along.x, from.y + along.y},
                                 {from.x - along.y, from.y + along.x}};
    Apply(ways);
    failedPoints_ = failed;  // these are no points of the map
    const shr::Vec2d& at = text.points.front();
    const double height = std::hypot(ways[1].x - at.x, ways[1].y - at.y);
    if (std::isfinite(height) && height > 0.0 && std::isfinite(ways[0].x)) {
        placement.height = height;
        placement.angleDegrees =
            std::atan2(ways[0].y - at.y, ways[0].x - at.x) * 180.0 / std::numbers::pi;
    }
}

void Reprojection::Apply(std::vector<shr::Vec2d>& points) {
    x_.resize(points.size());
    y_.resize(points.size());
    for (std::size_t i = 0; i < points.size(); ++i) {
        x_[i] = points[i].x;
        y_[i] = points[i].y;
    }
    if (from_) {
        failedPoints_ += from_->ToWgs84(x_, y_);
    }
    if (to_) {
        failedPoints_ += to_->FromWgs84(x_, y_);
    }
    for (std::size_t i = 0; i < points.size(); ++i) {
        points[i] =
            endsInDegrees_ ? shr::Vec2d{Rounded(x_[i]), Rounded(y_[i])} : shr::Vec2d{x_[i], y_[i]};
    }
}

std::vector<std::string> Reprojection::Warnings() const {
    std::vector<std::string> warnings;
    for (const auto* side : {&from_, &to_}) {
        if (side->has_value()) {
            warnings.insert(warnings.end(), (*side)->warnings().begin(), (*side)->warnings().end());
        }
    }
    return warnings;
}

bool IsWgs84(const gcs::CSDef* system) {
    const auto* earth = dynamic_cast<const gcs::GCSDef*>(system);
    return earth != nullptr &&
           earth->GetProjection().GetMethod() == gcs::ProjectionMethod::LongitudeLatitude &&
           earth->GetDatum().GetToken() == kWgs84Token;
}

gcs::GCSDef Wgs84System() {
    gcs::DatumDef datum;
    static_cast<void>(gcs::GCSKnownDatumsList.FindByToken(kWgs84Token, &datum));
    gcs::ProjectionDef projection;
    projection.SetMethod(gcs::ProjectionMethod::LongitudeLatitude);
    projection.SetParameter(gcs::ProjectionParameterID::UnitsPerMetre, 1.0);
    projection.SetParameter(gcs::ProjectionParameterID::Ellipsoid, datum.GetEllipsoid());
    gcs::GCSDef system;
    system.SetProjection(projection);
    system.SetDatum(datum);
    return system;
}

}  // namespace app
