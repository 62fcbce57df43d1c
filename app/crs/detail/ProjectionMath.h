// Rewrites definitions of projections in the parameters that the numbered methods have.
#pragma once

#include "host/gcs/EllipsoidDef.h"

#include <optional>

namespace app::detail {

struct Parallels {
    double firstDegrees = 0.0;
    double secondDegrees = 0.0;
};

// The two parallels of true scale of a Lambert conformal cone that touches at a latitude with a
// scale factor of 1 or less; nothing for a factor above 1, or where a parallel lies beyond a pole.
std::optional<Parallels> ParallelsOfTangentCone(double latitudeDegrees, double scaleFactor,
                                                const gcs::EllipsoidDef& ellipsoid);

// The scale factor at the pole of a polar stereographic projection that is true at a parallel.
double PolarScaleFactor(double trueScaleDegrees, const gcs::EllipsoidDef& ellipsoid);

// The parallel of true scale of a Mercator projection with a scale factor at the equator of 1 or
// less; nothing for a factor above 1.
std::optional<double> ParallelOfMercatorScale(double scaleFactor,
                                              const gcs::EllipsoidDef& ellipsoid);

}  // namespace app::detail
