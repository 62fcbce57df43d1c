#pragma once

#include "host/gcs/EllipsoidDef.h"

namespace gcs {

// Names for the numbers that the tables have.
enum class ProjectionMethod : int {
    LongitudeLatitude = 1,
    ArbitraryPlane = 2,
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
    GaussKrueger = 26,
    ObliqueMercatorOther = 28,
    NewZealandMapGrid = 29,
};

enum class ProjectionParameterID : int {
    None = 0,
    Ellipsoid = 2,
    UnitsPerMetre = 3,
    FalseEasting = 4,
    FalseNorthing = 5,
    CentralLongitude = 6,
    CentreLongitude = 7,
    LatitudeOfOrigin = 9,
    StandardParallel1 = 10,
    StandardParallel2 = 11,
    ScaleFactor = 12,
    Azimuth = 14,
    DefinedByAzimuth = 15,
    RectifiedOrigin = 16,
};

struct ProjectionParameters {
    ProjectionParameters(const ProjectionParameters&) = delete;
    ProjectionParameters& operator=(const ProjectionParameters&) = delete;

    double unitsPerMetre;
    double falseEasting;
    double falseNorthing;
    double centralLongitude;
    double centreLongitude;
    double latitudeOfOrigin;
    double standardParallel1;
    double standardParallel2;
    double scaleFactor;
    double azimuth;
};

class ProjectionDef {
public:
    ProjectionDef();
    ProjectionDef(const ProjectionDef&) = delete;
    ProjectionDef& operator=(const ProjectionDef&);

    void SetMethod(ProjectionMethod method);
    ProjectionMethod GetMethod() const;
    void SetParameter(ProjectionParameterID id, double value);
    void SetParameter(ProjectionParameterID id, bool value);
    void SetParameter(ProjectionParameterID id, const EllipsoidDef& ellipsoid);
    double GetParameter(ProjectionParameterID id) const;
    const ProjectionParameters& GetParameters() const;
    const EllipsoidDef* GetEllipsoid() const;
    bool IsUnknown(bool resolve) const;
    ProjectionParameterID CheckParameters() const;
};

}  // namespace gcs
