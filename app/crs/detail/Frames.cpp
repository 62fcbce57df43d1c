#include "app/crs/detail/Frames.h"

#include "app/base/Angles.h"
#include "app/crs/Datums.h"
#include "app/crs/detail/PlainNumber.h"

#include <cmath>

namespace app::detail {

namespace {}  // namespace

PjHandle RegisteredFrame(PJ_CONTEXT* context, const gcs::DatumDef& datum) {
    const int code = EpsgGeographicCodeOf(datum);
    PjHandle frame = code == 0 ? nullptr : FromRegister(context, code);
    const bool isSame = frame && HasEllipsoid(context, frame.get(), datum.GetEllipsoid());
    return isSame ? std::move(frame) : nullptr;
}

bool HasEllipsoid(PJ_CONTEXT* context, const PJ* crs, const gcs::EllipsoidDef& ellipsoid) {
    constexpr double kSameMetres = 1e-3;
    const PjHandle own(proj_get_ellipsoid(context, crs));
    double major = 0.0;
    double minor = 0.0;
    return own &&
           proj_ellipsoid_get_parameters(context, own.get(), &major, &minor, nullptr, nullptr) !=
               0 &&
           std::fabs(major - ellipsoid.GetMajorRadius()) < kSameMetres &&
           std::fabs(minor - ellipsoid.GetMinorRadius()) < kSameMetres;
}

bool IsOnFrame(PJ_CONTEXT* context, const PJ* crs, const PJ* frame) {
    const PjHandle own(proj_crs_get_geodetic_crs(context, crs));
    return own && EpsgCodeOf(own.get()) != 0 && EpsgCodeOf(own.get()) == EpsgCodeOf(frame);
}

double PrimeMeridianOf(PJ_CONTEXT* context, const PJ* crs) {
    const PjHandle object(proj_get_prime_meridian(context, crs));
    double longitude = 0.0;
    double unit = kDegree;
    if (!object || proj_prime_meridian_get_parameters(context, object.get(), &longitude, &unit,
                                                      nullptr) == 0) {
        return 0.0;
    }
    return std::round(longitude * unit / kDegree * 1e10) / 1e10;
}

std::string PipelineFromGreenwich(PJ_CONTEXT* context, const PJ* frame) {
    const double meridian = PrimeMeridianOf(context, frame);
    const double unit = AxesOf(context, frame).unit;
    if (meridian == 0.0 && std::fabs(unit / kDegree - 1.0) < 1e-9) {
        return "";
    }
    const std::string scale = PlainNumber(kDegree / unit);
    return "+proj=affine +s11=" + scale + " +s22=" + scale +
           " +xoff=" + PlainNumber(-meridian * kDegree / unit);
}

Area AreaOf(PJ_CONTEXT* context, const PJ* crs) {
    Area area;
    Area found;
    if (proj_get_area_of_use(context, crs, &found.west, &found.south, &found.east, &found.north,
                             nullptr) != 0 &&
        found.west >= -180.0) {
        area = found;
    }
    return area;
}

AreaPoints PointsIn(const Area& area) {
    const double width = area.east - area.west + (area.east < area.west ? 360.0 : 0.0);
    const double height = area.north - area.south;
    AreaPoints points;
    for (std::size_t i = 0; i < points.longitudes.size(); ++i) {
        const double across = (static_cast<double>(i % 3) + 0.5) / 3.0;
        const double up = (static_cast<double>(i / 3) + 0.5) / 3.0;
        points.longitudes[i] = std::remainder(area.west + across * width, 360.0);
        points.latitudes[i] = area.south + up * height;
    }
    return points;
}

}  // namespace app::detail
