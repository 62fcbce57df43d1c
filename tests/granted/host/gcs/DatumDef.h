#pragma once

#include "host/gcs/EllipsoidDef.h"

#include <string>

namespace gcs {

enum class DatumMethod : int { None = 1, ThreeParameters = 2, SevenParameters = 3 };

enum class DatumTarget : int { WGS84 = 1 };

enum class DatumParameterID : int {
    Ellipsoid = 3,
    PrimeMeridian = 4,
    ShiftX = 5,
    ShiftY = 6,
    ShiftZ = 7,
    RotationX = 8,
    RotationY = 9,
    RotationZ = 10,
    Scale = 11,
};

struct DatumParameters {
    DatumMethod kind;
    EllipsoidDef ellipsoid;
    double dx;
    double dy;
    double dz;
    double rx;
    double ry;
    double rz;
    double scale;
    double primeMeridian;
};

class DatumDef {
public:
    DatumDef();
    DatumDef(const DatumDef&) = delete;
    DatumDef& operator=(const DatumDef&);

    void SetParameters(const DatumParameters* parameters);
    bool IsUnknown() const;
    std::wstring GetToken() const;
    DatumTarget GetTarget() const;
    DatumMethod GetMethod() const;
    const EllipsoidDef& GetEllipsoid() const;
    void GetParameter(DatumParameterID id, double& value) const;
    void GetParameter(DatumParameterID id, EllipsoidDef& ellipsoid) const;
};

}  // namespace gcs
