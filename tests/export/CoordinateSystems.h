// Coordinate systems for the tests of the COORDSYS writer.
#pragma once

#include "host/gcs/CSDef.h"

#include <initializer_list>
#include <string>
#include <utility>

namespace mif::test {

using ProjectionValues = std::initializer_list<std::pair<gcs::ProjectionParameterID, double>>;

gcs::ProjectionDef Projection(gcs::ProjectionMethod method, ProjectionValues values = {});

gcs::DatumDef KnownDatum(const wchar_t* token);

// A datum without a token, on the Hayford-like ellipsoid 6378388 m, 1/297.
gcs::DatumDef OwnDatum(const gcs::DatumParameters& parameters);

// WGS 84's dimensions.
gcs::EllipsoidDef Wgs84Ellipsoid();

gcs::GCSDef Earth(const gcs::ProjectionDef& projection, const gcs::DatumDef& datum);

// Longitude and latitude on WGS 84.
gcs::GCSDef Geographic();

// The clause, and the version that it needs in front: "300 COORDSYS ...".
std::string HeaderClause(const gcs::CSDef& system);
std::string InlineClause(const gcs::CSDef& system);

}  // namespace mif::test
