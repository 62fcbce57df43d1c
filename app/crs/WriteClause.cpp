#include "app/crs/WriteClause.h"

#include "app/crs/Datums.h"
#include "app/crs/detail/PlainNumber.h"
#include "app/mif/Units.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace app {

namespace {

using detail::PlainNumber;
using enum ProjectionParameter;

void AddNumber(std::string& text, double value) {
    text += ", " + PlainNumber(value);
}

// A unit without a name is its number per metre, as the module has it.
std::string UnitText(double metresPerUnit) {
    const Unit* const unit = FindUnitByLength(metresPerUnit);
    return "\"" + (unit != nullptr ? std::string(unit->name) : PlainNumber(1.0 / metresPerUnit)) +
           "\"";
}

// The code that holds at the clause's latitude.
const Projection& ProjectionFor(const Clause& clause) {
    const bool isPolar = std::fabs(clause[OriginLatitude]) == 90.0;
    switch (clause.projection->code) {
    case 4:
    case 29:
        return *KnownProjection(isPolar ? 4 : 29);
    case 5:
    case 28:
        return *KnownProjection(isPolar ? 5 : 28);
    default:
        return *clause.projection;
    }
}

// The ellipsoid for a datum with its own numbers. GRS 80 has a code that some programs read as
// another ellipsoid; WGS 84 differs from it by 0.1 mm.
int EllipsoidCodeFor(const gcs::EllipsoidDef& ellipsoid) {
    if (const auto code = CodeOfEllipsoid(ellipsoid)) {
        return *code;
    }
    constexpr int kCodes = 54;
    int nearest = 0;
    double least = std::numeric_limits<double>::infinity();
    for (int code = 1; code < kCodes; ++code) {
        const auto known = EllipsoidOfCode(code);
        const double error = known
                                 ? std::hypot(known->GetMajorRadius() - ellipsoid.GetMajorRadius(),
                                              known->GetMinorRadius() - ellipsoid.GetMinorRadius())
                                 : least;
        if (error < least) {
            least = error;
            nearest = code;
        }
    }
    return nearest;
}

void AddDatum(ClauseText& clause, const gcs::DatumDef& datum) {
    if (const auto known = CodeOfDatum(datum)) {
        clause.text += ", " + std::to_string(known->code);
        clause.fromVersion = std::max(clause.fromVersion, known->fromVersion);
        return;
    }
    const gcs::DatumParameters& p = datum.GetParameters();
    const bool hasAll = p.kind == gcs::DatumMethod::SevenParameters || p.primeMeridian != 0.0;
    clause.text += hasAll ? ", 9999, " : ", 999, ";
    clause.text += std::to_string(EllipsoidCodeFor(p.ellipsoid));
    for (const double shift : {p.dx, p.dy, p.dz}) {
        AddNumber(clause.text, shift);
    }
    if (hasAll) {
        for (const double value : {p.rx, p.ry, p.rz, p.scale, p.primeMeridian}) {
            AddNumber(clause.text, value);
        }
    }
    clause.fromVersion = std::max(clause.fromVersion, kCustomDatumVersion);
}

void AddAffine(ClauseText& clause, const AffineTransformation& affine, bool isGeographic) {
    clause.text += " Affine Units ";
    clause.text += isGeographic ? "\"degree\"" : UnitText(affine.metresPerUnit);
    for (const double value : {affine.a, affine.b, affine.c, affine.d, affine.e, affine.f}) {
        AddNumber(clause.text, value);
    }
    clause.fromVersion = std::max(clause.fromVersion, kAffineVersion);
}

}  // namespace

ClauseText WriteClause(const Clause& clause) {
    const Projection& projection = ProjectionFor(clause);
    ClauseText written{"CoordSys Earth Projection " + std::to_string(projection.code),
                       projection.fromVersion};
    AddDatum(written, DatumOf(clause));
    if (!clause.IsGeographic()) {
        written.text += ", " + UnitText(clause.metresPerUnit);
    }
    for (const ProjectionParameter parameter : projection.parameters) {
        AddNumber(written.text, clause[parameter]);
    }
    if (projection.hasRange) {
        written.text += ", 90";
    }
    if (clause.affine) {
        AddAffine(written, *clause.affine, clause.IsGeographic());
    }
    return written;
}

ClauseText WritePlaneClause(double metresPerUnit) {
    return {"CoordSys NonEarth Units " + UnitText(metresPerUnit), 300};
}

}  // namespace app
