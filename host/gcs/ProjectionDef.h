// A map projection: a numbered method and its numbered parameters.
//
// Angles are decimal degrees. The linear unit is given as units per metre; false easting and
// northing are in that unit. A parameter that was never set reads as 0 (unit and scale: 1).
#pragma once

#include "host/gcs/EllipsoidDef.h"
#include "host/platform/Export.h"

#include <array>

namespace gcs {

// The methods by the numbers that filters' tables have. Numbers between those listed are not used.
enum class ProjectionMethod : int {
    Unknown = 0,
    LongitudeLatitude = 1,  // no projection: coordinates are degrees
    ArbitraryPlane = 2,     // coordinates whose place on the Earth is not known
    AlbersEqualAreaConic = 3,
    AzimuthalEquidistant = 4,
    CassiniSoldner = 6,
    EckertIV = 7,
    EckertVI = 8,
    EquidistantCylindrical = 9,
    EquidistantConic = 10,
    HotineObliqueMercator = 12,
    Mercator = 13,
    Mollweide = 14,
    LambertConformalConic = 16,
    LambertAzimuthalEqualArea = 17,
    MillerCylindrical = 18,
    Stereographic = 20,
    Polyconic = 21,
    Robinson = 22,
    Sinusoidal = 24,
    TransverseMercator = 25,
    GaussKrueger = 26,          // the same by another name, which some hosts keep apart
    ObliqueMercatorOther = 28,  // a relative of 12 that no file format at hand names
    NewZealandMapGrid = 29,
};

// The parameters by number. Each takes one kind of value: a number, a boolean or an ellipsoid.
enum class ProjectionParameterID : int {
    None = 0,
    Ellipsoid = 2,      // an EllipsoidDef
    UnitsPerMetre = 3,  // above 0
    FalseEasting = 4,   // in the unit of 3
    FalseNorthing = 5,  // in the unit of 3
    CentralLongitude = 6,
    CentreLongitude = 7,  // longitude of the centre of an oblique projection
    LatitudeOfOrigin = 9,
    StandardParallel1 = 10,  // also the latitude of azimuthal projections
    StandardParallel2 = 11,
    ScaleFactor = 12,       // at the origin; above 0
    Azimuth = 14,           // degrees clockwise from north
    DefinedByAzimuth = 15,  // boolean
    RectifiedOrigin = 16,   // boolean: the false origin lies on the equator of the aposphere
};
inline constexpr int kProjectionParameterCount = 17;  // ids run from 0 to 16

// The parameters by name, each as ProjectionDef::GetParameter gives it: those that were never set
// have the values below.
struct ProjectionParameters {
    double unitsPerMetre = 1.0;
    double falseEasting = 0.0;
    double falseNorthing = 0.0;
    double centralLongitude = 0.0;
    double centreLongitude = 0.0;
    double latitudeOfOrigin = 0.0;
    double standardParallel1 = 0.0;
    double standardParallel2 = 0.0;
    double scaleFactor = 1.0;
    double azimuth = 0.0;
    bool definedByAzimuth = false;
    bool rectifiedOrigin = false;
};

// A value: copies share nothing. The order of the calls that fill it makes no difference, and
// nothing is checked until CheckParameters is called.
class QOLF_HOST_API ProjectionDef {
public:
    ProjectionDef() = default;  // unknown, no parameter set

    // Keeps the parameters: they belong to no method.
    void SetMethod(ProjectionMethod method) { method_ = method; }
    ProjectionMethod GetMethod() const { return method_; }

    // Sets a parameter, replacing its value. One with a value of another kind than its id's, or
    // with an id that is not used, is ignored.
    void SetParameter(ProjectionParameterID id, double value);
    void SetParameter(ProjectionParameterID id, bool value);
    void SetParameter(ProjectionParameterID id, const EllipsoidDef& ellipsoid);

    // True when the parameter was set, whatever the method needs.
    bool HasParameter(ProjectionParameterID id) const;

    // Returns the value, or the default of an unset parameter (above). Booleans as 0 and 1; 0 for
    // the ellipsoid and for an id that is not used.
    double GetParameter(ProjectionParameterID id) const;
    ProjectionParameters GetParameters() const;

    // Returns the ellipsoid, null when none was set. Valid until one is set, or the object goes.
    const EllipsoidDef* GetEllipsoid() const;

    // True while no method is set. The argument asks a host with plug-in methods to resolve the
    // method first; there is nothing to resolve here.
    bool IsUnknown(bool resolve) const;

    // The first parameter, in the order of the ids, that the method needs and lacks or whose value
    // is out of range; None when there is nothing to object to.
    //
    // Out of range: a value that is not finite, a latitude beyond +-90, a longitude beyond +-360, a
    // scale factor, unit or major radius not above 0, a flattening below 0 or from 1 up, equal and
    // opposite standard parallels of a conic (the second is named).
    ProjectionParameterID CheckParameters() const;

    // True when method and parameters are the same, those that were never set included.
    bool operator==(const ProjectionDef&) const;

private:
    ProjectionMethod method_ = ProjectionMethod::Unknown;
    std::array<bool, kProjectionParameterCount> isSet_{};
    std::array<double, kProjectionParameterCount> values_{};  // booleans as 0 and 1
    EllipsoidDef ellipsoid_;
};

}  // namespace gcs
