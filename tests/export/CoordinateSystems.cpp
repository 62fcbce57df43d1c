#include "tests/export/CoordinateSystems.h"

#include "export/CoordSysWriter.h"
#include "host/gcs/KnownLists.h"

namespace mif::test {

namespace {

std::string Clause(const gcs::CSDef& system, bool inlineForm) {
    std::string clause = "left from before";
    unsigned minVersion = 1;
    WriteCoordSys(&system, clause, minVersion, inlineForm);
    return std::to_string(minVersion) + ' ' + clause;
}

}  // namespace

gcs::ProjectionDef Projection(gcs::ProjectionMethod method, ProjectionValues values) {
    gcs::ProjectionDef projection;
    projection.SetMethod(method);
    projection.SetParameter(gcs::ProjectionParameterID::UnitsPerMetre, 1.0);
    for (const auto& [id, value] : values) {
        projection.SetParameter(id, value);
    }
    return projection;
}

gcs::DatumDef KnownDatum(const wchar_t* token) {
    gcs::DatumDef datum;
    static_cast<void>(gcs::GCSKnownDatumsList.FindByToken(token, &datum));  // else unknown
    return datum;
}

gcs::DatumDef OwnDatum(const gcs::DatumParameters& parameters) {
    gcs::DatumParameters complete = parameters;
    if (complete.ellipsoid.IsUnknown()) {
        complete.ellipsoid = {6378388.0, 1.0 / 297.0};
    }
    gcs::DatumDef datum;
    datum.SetParameters(&complete);
    return datum;
}

gcs::EllipsoidDef Wgs84Ellipsoid() {
    return {6378137.0, 1.0 / 298.257223563};
}

gcs::GCSDef Earth(const gcs::ProjectionDef& projection, const gcs::DatumDef& datum) {
    gcs::GCSDef system;
    system.SetProjection(projection);
    system.SetDatum(datum);
    return system;
}

gcs::GCSDef Geographic() {
    return Earth(Projection(gcs::ProjectionMethod::LongitudeLatitude), KnownDatum(L"DATUM_WGS84"));
}

std::string HeaderClause(const gcs::CSDef& system) {
    return Clause(system, /*inlineForm=*/false);
}

std::string InlineClause(const gcs::CSDef& system) {
    return Clause(system, /*inlineForm=*/true);
}

}  // namespace mif::test
