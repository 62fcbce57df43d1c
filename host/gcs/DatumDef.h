// A geodetic datum: an ellipsoid, its prime meridian and its shift to a target datum.
//
// Shifts are metres, rotations arc-seconds (coordinate-frame convention), the scale parts per
// million, the prime meridian degrees east of Greenwich.
#pragma once

#include "host/gcs/EllipsoidDef.h"
#include "host/platform/Export.h"

#include <string>

namespace gcs {

enum class DatumMethod : int {
    Unknown = 0,
    None = 1,             // the target's own axes: no shift
    ThreeParameters = 2,  // shifts
    SevenParameters = 3,  // shifts, rotations and scale
};

// The datum that the shift leads to.
enum class DatumTarget : int {
    None = 0,
    WGS84 = 1,
};

enum class DatumParameterID : int {
    None = 0,
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
    DatumMethod kind = DatumMethod::Unknown;
    EllipsoidDef ellipsoid;
    double dx = 0.0;
    double dy = 0.0;
    double dz = 0.0;
    double rx = 0.0;
    double ry = 0.0;
    double rz = 0.0;
    double scale = 0.0;
    double primeMeridian = 0.0;
    DatumTarget target = DatumTarget::WGS84;
};

class QOLF_HOST_API DatumDef {
public:
    DatumDef() = default;  // unknown

    // An entry of the known list.
    DatumDef(std::wstring token, std::wstring name, const DatumParameters& parameters);

    // Makes this a datum of its own (without a token); null makes it unknown.
    void SetParameters(const DatumParameters* parameters);

    bool IsUnknown() const { return parameters_.kind == DatumMethod::Unknown; }
    const std::wstring& GetToken() const { return token_; }  // "" for a datum of its own
    const std::wstring& GetName() const { return name_; }    // in words; "" when not known
    DatumTarget GetTarget() const;                           // None for an unknown datum
    DatumMethod GetMethod() const { return parameters_.kind; }
    const EllipsoidDef& GetEllipsoid() const { return parameters_.ellipsoid; }
    const DatumParameters& GetParameters() const { return parameters_; }

    // Gives parameters 4 to 11, or the ellipsoid (3). False, and value unchanged, for another id
    // and for an unknown datum.
    bool GetParameter(DatumParameterID id, double& value) const;
    bool GetParameter(DatumParameterID id, EllipsoidDef& ellipsoid) const;

private:
    std::wstring token_;
    std::wstring name_;
    DatumParameters parameters_;
};

}  // namespace gcs
