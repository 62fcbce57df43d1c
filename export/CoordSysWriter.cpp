#include "export/CoordSysWriter.h"

#include "export/StyleCodes.h"
#include "reader/Numbers.h"
#include "reader/ReferenceTables.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <limits>

namespace mif {

namespace {

using gcs::DatumParameterID;
using gcs::ProjectionMethod;
using gcs::ProjectionParameterID;

constexpr unsigned kCustomDatumVersion = 450;  // datums 999 and 9999

bool HasProjection(const gcs::GCSDef& system) {
    return system.HasProjection(/*resolve=*/false, /*countGeographic=*/true);
}

bool HasDatum(const gcs::GCSDef& system) {
    return system.HasDatum(/*resolve=*/false);
}

void RaiseTo(unsigned& version, int atLeast) {
    version = std::max(version, static_cast<unsigned>(atLeast));
}

// False when the projection is computed on another ellipsoid than the datum's, which MIF can't
// say.
bool EllipsoidsAgree(const gcs::GCSDef& system) {
    if (!HasProjection(system) || !HasDatum(system)) {
        return true;
    }
    const gcs::EllipsoidDef* ofProjection = system.GetProjection().GetEllipsoid();
    const gcs::EllipsoidDef& ofDatum = system.GetDatum().GetEllipsoid();
    const bool hasBoth = ofProjection != nullptr && ofDatum.GetMajorRadius() != 0.0;
    if (!hasBoth) {
        return true;
    }
    return gcs::EllipsoidDef::CompareParameters(*ofProjection, ofDatum, /*exact=*/true);
}

// True for a stereographic projection that MIF would read back as another one.
bool IsRefusedStereographic(const gcs::ProjectionDef& projection) {
    if (projection.GetMethod() != ProjectionMethod::Stereographic) {
        return false;
    }
    // Kept: the difference from 90 degrees is not made absolute, so every latitude of origin from
    // pole to pole counts, and a true-scale latitude alone decides. Hosts expect these refused.
    const double latitude =
        std::abs(projection.GetParameter(ProjectionParameterID::LatitudeOfOrigin));
    const double parallel = projection.GetParameter(ProjectionParameterID::StandardParallel1);
    return latitude - 90.0 <= kSingleEpsilon && std::abs(parallel) > kSingleEpsilon;
}

// False when the projection has a value that its MIF row has no field for.
bool FitsRow(const gcs::ProjectionDef& projection, const ProjectionRow& row) {
    if (!row.hasFalseEasting &&
        projection.GetParameter(ProjectionParameterID::FalseEasting) != 0.0) {
        return false;
    }
    if (!row.hasFalseNorthing &&
        projection.GetParameter(ProjectionParameterID::FalseNorthing) != 0.0) {
        return false;
    }
    switch (projection.GetMethod()) {
    case ProjectionMethod::HotineObliqueMercator:
    case ProjectionMethod::ObliqueMercatorOther:
        return projection.GetParameter(ProjectionParameterID::RectifiedOrigin) != 0.0;
    case ProjectionMethod::Mercator:
        return projection.GetParameter(ProjectionParameterID::LatitudeOfOrigin) == 0.0;
    default:
        return true;
    }
}

// The row that a system can be written with; null when there is none.
const ProjectionRow* UsableRow(const gcs::GCSDef& system) {
    if (!EllipsoidsAgree(system) || IsRefusedStereographic(system.GetProjection()) ||
        !system.HasProjection(/*resolve=*/false, /*countGeographic=*/false)) {
        return nullptr;
    }
    const ProjectionRow* row = FindProjectionByMethod(system.GetProjection().GetMethod());
    return row != nullptr && FitsRow(system.GetProjection(), *row) ? row : nullptr;
}

// The row whose radii come closest, by the product of both: a row that is not strictly closer
// than an earlier one does not win. Null when the radii are no numbers.
const EllipsoidRow* ClosestEllipsoid(const gcs::EllipsoidDef& ellipsoid) {
    const double wanted = ellipsoid.GetMajorRadius() * ellipsoid.GetMinorRadius();
    const EllipsoidRow* closest = nullptr;
    double smallestError = std::numeric_limits<double>::max();
    for (const EllipsoidRow& row : kEllipsoidTable) {
        const double minorRadius = row.majorRadius * (1.0 - Flattening(row));
        const double error = std::abs(row.majorRadius * minorRadius - wanted);
        if (error < smallestError) {
            smallestError = error;
            closest = &row;
        }
    }
    return closest;
}

double DatumParameter(const gcs::DatumDef& datum, DatumParameterID id) {
    double value = 0.0;
    datum.GetParameter(id, value);  // leaves the 0 for an unknown datum
    return value;
}

void AppendDatumParameters(std::string& out, const gcs::DatumDef& datum,
                           std::initializer_list<DatumParameterID> ids) {
    for (const DatumParameterID id : ids) {
        out += ", ";
        AppendDouble16G(out, DatumParameter(datum, id));
    }
}

// Appends a datum that MIF has no code for by its ellipsoid and its shift. False, with nothing
// appended, when MIF has no form for it.
bool AppendCustomDatum(std::string& out, const gcs::DatumDef& datum, unsigned& minVersion) {
    using enum DatumParameterID;
    const EllipsoidRow* ellipsoid = ClosestEllipsoid(datum.GetEllipsoid());
    const std::string code = std::to_string(ellipsoid == nullptr ? 0 : ellipsoid->mifCode);
    const int codeVersion = ellipsoid == nullptr ? 0 : ellipsoid->minVersion;
    const bool isGreenwich = DatumParameter(datum, PrimeMeridian) == 0.0;
    switch (datum.GetMethod()) {
    case gcs::DatumMethod::ThreeParameters:
        if (!isGreenwich) {
            return false;
        }
        out += ", 999, " + code;
        AppendDatumParameters(out, datum, {ShiftX, ShiftY, ShiftZ});
        RaiseTo(minVersion, codeVersion);
        break;
    case gcs::DatumMethod::SevenParameters:
        out += ", 9999, " + code;
        AppendDatumParameters(
            out, datum,
            {ShiftX, ShiftY, ShiftZ, RotationX, RotationY, RotationZ, Scale, PrimeMeridian});
        RaiseTo(minVersion, codeVersion);
        break;
    case gcs::DatumMethod::None:
        if (!isGreenwich) {
            return false;
        }
        out += ", 999, " + code + ", 0, 0, 0";
        break;
    default:
        return false;
    }
    minVersion = std::max(minVersion, kCustomDatumVersion);
    return true;
}

void AppendDatum(std::string& out, const gcs::GCSDef& system, unsigned& minVersion) {
    const gcs::DatumDef& datum = system.GetDatum();
    if (const DatumRow* row = FindDatumByToken(datum.GetToken()); row != nullptr) {
        out += ", " + std::to_string(row->mifCode);
        RaiseTo(minVersion, row->minVersion);
        return;
    }
    if (datum.GetTarget() == gcs::DatumTarget::WGS84 && AppendCustomDatum(out, datum, minVersion)) {
        return;
    }
    out += ", 104";  // WGS 84, whatever the datum is
}

void AppendIf(bool isCarried, std::string& out, double value) {
    if (isCarried) {
        out += ", ";
        AppendDouble16g(out, value);
    }
}

void AppendParameters(std::string& out, const gcs::ProjectionDef& projection,
                      const ProjectionRow& row) {
    const gcs::ProjectionParameters& values = projection.GetParameters();
    const bool isOblique = projection.GetMethod() == ProjectionMethod::HotineObliqueMercator;
    AppendIf(row.hasOriginLongitude, out,
             isOblique ? values.centreLongitude : values.centralLongitude);
    AppendIf(row.hasOriginLatitude, out, values.latitudeOfOrigin);
    AppendIf(row.hasStandardParallel1, out, values.standardParallel1);
    AppendIf(row.hasStandardParallel2, out, values.standardParallel2);
    AppendIf(row.hasAzimuth, out, values.azimuth);
    AppendIf(row.hasScaleFactor, out, values.scaleFactor);
    AppendIf(row.hasFalseEasting, out, values.falseEasting);
    AppendIf(row.hasFalseNorthing, out, values.falseNorthing);
    if (row.hasRange) {
        // Kept: the range is no parameter of the host's projections; 90 degrees is the half that
        // readers draw by default.
        out += ", 90";
    }
}

double UnitFactorOrOne(const gcs::CSDef& system) {
    const double factor = system.UnitFactor();
    return factor == 0.0 ? 1.0 : factor;
}

void AppendEnding(std::string& out, const gcs::GCSDef& system, bool inlineForm) {
    if (!inlineForm) {
        out += '\n';
    } else if (HasProjection(system)) {
        out += "\nUnits " + UnitName(UnitFactorOrOne(system));
    } else if (HasDatum(system)) {
        out += "\nUnits \"degree\"";
    }
}

void WriteEarth(const gcs::GCSDef& system, std::string& out, unsigned& minVersion,
                bool inlineForm) {
    const ProjectionRow* row = UsableRow(system);
    if (row == nullptr) {
        return;
    }
    RaiseTo(minVersion, row->minVersion);
    out = inlineForm ? "CoordSys Earth " : "COORDSYS Earth  \n  ";
    out += "Projection " + std::to_string(row->mifCode);
    AppendDatum(out, system, minVersion);
    if (row->method != ProjectionMethod::LongitudeLatitude) {
        out += ", " + UnitName(system.GetProjection().GetParameters().unitsPerMetre);
    }
    AppendParameters(out, system.GetProjection(), *row);
    AppendEnding(out, system, inlineForm);
}

}  // namespace

void WriteCoordSys(const gcs::CSDef* cs, std::string& out, unsigned& minVersion, bool inlineForm) {
    out.clear();
    minVersion = kFirstVersion;
    if (cs == nullptr) {
        return;
    }
    switch (cs->Type()) {
    case gcs::CSType::Earth:
        WriteEarth(static_cast<const gcs::GCSDef&>(*cs), out, minVersion, inlineForm);
        break;
    case gcs::CSType::Nonearth:
        out = inlineForm ? "CoordSys Nonearth\n" : "COORDSYS Nonearth\n";
        out += "Units " + UnitName(UnitFactorOrOne(*cs)) + '\n';
        break;
    case gcs::CSType::Unknown:
        break;
    }
}

std::string UnitName(double unitsPerMetre) {
    if (std::abs(unitsPerMetre - 3.28083333) < 1e-6) {
        return "\"survey ft\"";
    }
    if (std::abs(unitsPerMetre - 1.0) < 0.001) {
        return "\"m\"";
    }
    // Kept: a unit without a name here, the international foot among them, is the quoted number.
    // Readers of these files take it so.
    std::string name = "\"";
    AppendDouble16G(name, unitsPerMetre);
    name += '"';
    return name;
}

}  // namespace mif
