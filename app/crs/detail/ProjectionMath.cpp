#include "app/crs/detail/ProjectionMath.h"

#include "app/base/Angles.h"

#include <cmath>
#include <numbers>

namespace app::detail {

namespace {

constexpr double kPoleRadians = std::numbers::pi / 2.0;

double EccentricityOf(const gcs::EllipsoidDef& ellipsoid) {
    const double flattening = ellipsoid.GetFlattening();
    return std::sqrt(flattening * (2.0 - flattening));
}

// Radius of the parallel over the major radius.
double ParallelRadius(double latitude, double e) {
    const double sine = e * std::sin(latitude);
    return std::cos(latitude) / std::sqrt(1.0 - sine * sine);
}

// Minus the isometric latitude.
double LogOfT(double latitude, double e) {
    const double sine = e * std::sin(latitude);
    return std::log(std::tan(kPoleRadians / 2.0 - latitude / 2.0)) -
           e / 2.0 * std::log((1.0 - sine) / (1.0 + sine));
}

// A conformal cone that touches the ellipsoid at a latitude.
struct TangentCone {
    double latitude;
    double scaleFactor;
    double e;

    double LogOfScale(double atLatitude) const {
        const double n = std::sin(latitude);
        return std::log(scaleFactor * ParallelRadius(latitude, e) / ParallelRadius(atLatitude, e)) +
               n * (LogOfT(atLatitude, e) - LogOfT(latitude, e));
    }

    // The scale is smallest where the cone touches and grows towards the limit.
    std::optional<double> TrueParallel(double limit) const {
        double below = latitude;
        double above = limit;
        if (LogOfScale(above) < 0.0) {
            return std::nullopt;
        }
        for (int i = 0; i < 100; ++i) {
            const double middle = (below + above) / 2.0;
            (LogOfScale(middle) < 0.0 ? below : above) = middle;
        }
        return (below + above) / 2.0;
    }
};

}  // namespace

std::optional<Parallels> ParallelsOfTangentCone(double latitudeDegrees, double scaleFactor,
                                                const gcs::EllipsoidDef& ellipsoid) {
    if (scaleFactor == 1.0) {
        return Parallels{latitudeDegrees, latitudeDegrees};
    }
    const TangentCone cone{latitudeDegrees * kDegree, scaleFactor, EccentricityOf(ellipsoid)};
    if (scaleFactor > 1.0 || std::fabs(latitudeDegrees) > 89.0) {
        return std::nullopt;
    }
    const double nearlyPole = 89.9 * kDegree;
    const auto north = cone.TrueParallel(nearlyPole);
    const auto south = cone.TrueParallel(-nearlyPole);
    if (!north || !south) {
        return std::nullopt;
    }
    return Parallels{*south / kDegree, *north / kDegree};
}

double PolarScaleFactor(double trueScaleDegrees, const gcs::EllipsoidDef& ellipsoid) {
    const double latitude = std::fabs(trueScaleDegrees) * kDegree;
    if (kPoleRadians - latitude < 1e-12) {
        return 1.0;
    }
    const double e = EccentricityOf(ellipsoid);
    const double atPole = std::sqrt(std::pow(1.0 + e, 1.0 + e) * std::pow(1.0 - e, 1.0 - e)) / 2.0;
    return atPole * ParallelRadius(latitude, e) / std::exp(LogOfT(latitude, e));
}

std::optional<double> ParallelOfMercatorScale(double scaleFactor,
                                              const gcs::EllipsoidDef& ellipsoid) {
    if (scaleFactor > 1.0) {
        return std::nullopt;
    }
    const double e = EccentricityOf(ellipsoid);
    const double square = scaleFactor * scaleFactor;
    return std::asin(std::sqrt((1.0 - square) / (1.0 - square * e * e))) / kDegree;
}

}  // namespace app::detail
