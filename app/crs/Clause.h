// What the CoordSys clause of a map of the Earth says, in the terms of MIF.
#pragma once

#include "app/mif/CoordSysCodes.h"
#include "host/gcs/DatumDef.h"

#include <array>
#include <optional>
#include <string>

namespace app {

// The first versions of the format with datums of their own numbers, and with affine
// transformations. The second is not known for certain; it is a safe one.
inline constexpr int kCustomDatumVersion = 450;
inline constexpr int kAffineVersion = 650;

inline constexpr double kSurveyFoot = 1200.0 / 3937.0;  // in metres

// Leads from coordinates (x, y) of the projection, in the affine unit, to those in the file:
// x' = a x + b y + c, y' = d x + e y + f.
struct AffineTransformation {
    double a = 1.0;
    double b = 0.0;
    double c = 0.0;
    double d = 0.0;
    double e = 1.0;
    double f = 0.0;
    double metresPerUnit = 1.0;  // of the affine unit: of c, f, x' and y'

    bool CanBeInverted() const;
    bool operator==(const AffineTransformation&) const = default;
};

struct Clause {
    const Projection* projection = nullptr;  // a row of the table; never null in a clause in use
    gcs::DatumDef datum;                     // unknown: taken as WGS 84
    double metresPerUnit = 1.0;              // of the projection's coordinates; 1 for degrees

    // By ProjectionParameter: degrees; false easting and northing in the clause's unit. Those that
    // the projection doesn't take keep their defaults: 0, for the scale factor 1.
    std::array<double, kProjectionParameterCount> parameters{0.0, 0.0, 0.0, 0.0, 0.0,
                                                             0.0, 1.0, 0.0, 0.0};

    // Absent: the file has the projection's own coordinates.
    std::optional<AffineTransformation> affine;

    double& operator[](ProjectionParameter parameter) {
        return parameters[static_cast<std::size_t>(parameter)];
    }
    double operator[](ProjectionParameter parameter) const {
        return parameters[static_cast<std::size_t>(parameter)];
    }

    // Whether the projection's coordinates are longitude and latitude in degrees.
    bool IsGeographic() const { return projection->code == 1; }
};

// Returns the datum that a clause's places refer to: its own, or WGS 84 for an unknown one.
gcs::DatumDef DatumOf(const Clause& clause);
gcs::DatumDef Wgs84Datum();

// Returns which parameter of projection or datum is out of range; empty when all is well.
std::string ProblemOf(const Clause& clause);

// Returns "World Geodetic System 1984 (WGS 84) / Transverse Mercator".
std::string NameInWords(const Clause& clause);

// Whether coordinates of both clauses mean the same places without a transformation.
bool HaveSameCoordinates(const Clause& left, const Clause& right);

}  // namespace app
