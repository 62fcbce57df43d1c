// A geodetic datum: an ellipsoid, its prime meridian and its shift to a target datum.
//
// Shifts are metres, rotations arc-seconds (coordinate-frame convention), the scale parts per
// million, the prime meridian degrees east of Greenwich.
#pragma once

#include "host/gcs/EllipsoidDef.h"
#include "host/platform/Export.h"

#include <string>

namespace gcs {

// How a datum leads to its target. The numbers are those that filters compare and write.
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

// The numbers under which filters ask for a parameter; 1 and 2 are not used.
enum class DatumParameterID : int {
    None = 0,
    Ellipsoid = 3,      // the one that is not a number
    PrimeMeridian = 4,  // degrees
    ShiftX = 5,         // metres
    ShiftY = 6,
    ShiftZ = 7,
    RotationX = 8,  // arc-seconds
    RotationY = 9,
    RotationZ = 10,
    Scale = 11,  // parts per million
};

// All parameters as a plain record, to make a datum from. Which of them count is `kind`'s affair:
// with None only the ellipsoid and the prime meridian, with ThreeParameters the shifts as well.
struct DatumParameters {
    DatumMethod kind = DatumMethod::Unknown;
    EllipsoidDef ellipsoid;
    double dx = 0.0;  // metres, from the datum's centre to the target's
    double dy = 0.0;
    double dz = 0.0;
    double rx = 0.0;  // arc-seconds
    double ry = 0.0;
    double rz = 0.0;
    double scale = 0.0;          // parts per million beside 1
    double primeMeridian = 0.0;  // degrees east of Greenwich
    DatumTarget target = DatumTarget::WGS84;
};

// A value: copies share nothing.
class QOLF_HOST_API DatumDef {
public:
    DatumDef() = default;  // unknown

    // An entry of the known list: `token` is what files' codes lead to, `name` is for people.
    DatumDef(std::wstring token, std::wstring name, const DatumParameters& parameters);

    // Makes this a datum of its own, without a token and a name; null makes it unknown. The record
    // is copied.
    void SetParameters(const DatumParameters* parameters);

    // True while it has no parameters. Everything below is then empty or 0.
    bool IsUnknown() const { return parameters_.kind == DatumMethod::Unknown; }
    const std::wstring& GetToken() const { return token_; }  // "" for a datum of its own
    const std::wstring& GetName() const { return name_; }    // in words; "" when not known
    DatumTarget GetTarget() const;                           // None for an unknown datum
    DatumMethod GetMethod() const { return parameters_.kind; }
    const EllipsoidDef& GetEllipsoid() const { return parameters_.ellipsoid; }
    const DatumParameters& GetParameters() const { return parameters_; }

    // Puts parameters 4 to 11, or the ellipsoid (3), into the second argument, in the units above.
    // False, and the argument unchanged, for an id of the other kind and for an unknown datum.
    bool GetParameter(DatumParameterID id, double& value) const;
    bool GetParameter(DatumParameterID id, EllipsoidDef& ellipsoid) const;

private:
    std::wstring token_;
    std::wstring name_;
    DatumParameters parameters_;
};

}  // namespace gcs
