#include "app/crs/CoordinateSystem.h"

#include "app/crs/ProjText.h"
#include "app/crs/detail/PlainNumber.h"
#include "app/mif/Units.h"

#include <utility>

namespace app {

namespace {

constexpr const char* kEpsg = "EPSG";
constexpr int kWgs84Code = 4326;

}  // namespace

std::string UnitInWords(const CoordinateSystem& system) {
    if (system.kind != SystemKind::Earth && system.kind != SystemKind::Plane) {
        return "";
    }
    if (system.isGeographic) {
        return "degree";
    }
    if (const Unit* const unit = FindUnitByLength(system.metresPerUnit)) {
        return std::string(unit->name);
    }
    return "1/" + detail::PlainNumber(1.0 / system.metresPerUnit) + " m";
}

CoordinateSystem Wgs84System() {
    CoordinateSystem system;
    system.kind = SystemKind::Earth;
    system.name = "WGS 84";
    system.definition = "EPSG:4326";
    system.authority = kEpsg;
    system.code = kWgs84Code;
    system.isGeographic = true;
    return system;
}

bool IsWgs84(const CoordinateSystem& system) {
    if (system.clause) {
        return system.clause->IsGeographic() && !system.clause->affine &&
               DatumOf(*system.clause).GetToken() == Wgs84Datum().GetToken();
    }
    return system.authority == kEpsg && system.code == kWgs84Code;
}

CoordinateSystem PlaneSystem(double metresPerUnit) {
    CoordinateSystem system;
    system.kind = SystemKind::Plane;
    system.name = "Nonearth";
    system.metresPerUnit = metresPerUnit;
    return system;
}

CoordinateSystem UnknownSystem(std::string problem) {
    CoordinateSystem system;
    system.name = "Unknown";
    system.problem = std::move(problem);
    return system;
}

CoordinateSystem SystemOfClause(Clause clause) {
    CoordinateSystem system;
    system.name = NameInWords(clause);
    system.problem = ProblemOf(clause);
    if (!system.problem.empty()) {
        return system;
    }
    if (clause.affine && !clause.affine->CanBeInverted()) {
        system.kind = SystemKind::Faulty;
        system.problem = "the affine transformation of the coordinate system can't be inverted";
        return system;
    }
    system.kind = SystemKind::Earth;
    system.definition = ProjCrs(clause);
    system.isGeographic = clause.IsGeographic() && !clause.affine;
    system.metresPerUnit = clause.affine ? clause.affine->metresPerUnit : clause.metresPerUnit;
    if (std::string difference = DifferenceOfProjCrs(clause); !difference.empty()) {
        system.warnings.push_back(std::move(difference));
    }
    system.clause = std::move(clause);
    return system;
}

bool IsSameSystem(const CoordinateSystem& left, const CoordinateSystem& right) {
    if (left.kind == SystemKind::Plane && right.kind == SystemKind::Plane) {
        return left.metresPerUnit == right.metresPerUnit;
    }
    if (!left.IsOnEarth() || !right.IsOnEarth()) {
        return false;
    }
    if (IsWgs84(left) && IsWgs84(right)) {
        return true;
    }
    if (left.clause && right.clause) {
        return HaveSameCoordinates(*left.clause, *right.clause);
    }
    return left.definition == right.definition &&
           left.clause.has_value() == right.clause.has_value();
}

}  // namespace app
