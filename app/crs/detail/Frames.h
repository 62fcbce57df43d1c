// The geographic systems of the register behind the known datums.
#pragma once

#include "app/crs/detail/ProjHandles.h"
#include "host/gcs/DatumDef.h"

#include <array>
#include <string>

namespace app::detail {

// Returns the register's geographic system of a known datum when it means the same frame: the same
// ellipsoid, to 1 mm. Null for other datums.
PjHandle RegisteredFrame(PJ_CONTEXT* context, const gcs::DatumDef& datum);

// Whether a system is on this ellipsoid, to 1 mm.
bool HasEllipsoid(PJ_CONTEXT* context, const PJ* crs, const gcs::EllipsoidDef& ellipsoid);

// Whether the geographic system of `crs` is this one, by its EPSG code.
bool IsOnFrame(PJ_CONTEXT* context, const PJ* crs, const PJ* frame);

// Returns the prime meridian of a geographic system or of what has one, degrees east of Greenwich.
double PrimeMeridianOf(PJ_CONTEXT* context, const PJ* crs);

// Returns a pipeline from longitude and latitude in degrees from Greenwich to the coordinates of a
// geographic system on the same datum, longitude first; empty when they are the same.
std::string PipelineFromGreenwich(PJ_CONTEXT* context, const PJ* frame);

// The area where a system is used, degrees from Greenwich; west is above east when the area crosses
// the antimeridian.
struct Area {
    double west = -180.0;
    double south = -90.0;
    double east = 180.0;
    double north = 90.0;
};
Area AreaOf(PJ_CONTEXT* context, const PJ* crs);

// Longitudes and latitudes of nine points spread over an area.
struct AreaPoints {
    std::array<double, 9> longitudes{};
    std::array<double, 9> latitudes{};
};
AreaPoints PointsIn(const Area& area);

}  // namespace app::detail
