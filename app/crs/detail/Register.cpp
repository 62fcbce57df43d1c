#include "app/crs/detail/Register.h"

#include "app/base/Angles.h"
#include "app/base/Paths.h"
#include "app/crs/ProjText.h"
#include "app/crs/detail/Frames.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

namespace app::detail {

namespace {

constexpr double kArcSecond = kDegree / 3600.0;

// Codes of the register.
constexpr int kSexagesimal = 9110;  // 7.26225 is 7 degrees 26 minutes 22.5 seconds
constexpr int kFalseEasting = 8806;
constexpr int kTransverseMercator = 9807;
constexpr int kPositionVector = 9606;
constexpr std::array kOriginLongitudes = {8802, 8812, 8822, 8833};

std::filesystem::path DatabasePath(PJ_CONTEXT* context) {
    const char* path = proj_context_get_database_path(context);
    return path != nullptr ? PathFromArgument(path) : std::filesystem::path();
}

double FromSexagesimal(double value) {
    const double size = std::fabs(value);
    const double degrees = std::floor(size + 1e-12);
    const double minutes = std::floor((size - degrees) * 100.0 + 1e-9);
    const double seconds = ((size - degrees) * 100.0 - minutes) * 100.0;
    return std::copysign(degrees + minutes / 60.0 + seconds / 3600.0, value);
}

// factor: radians per unit, of no meaning for sexagesimal values.
double Degrees(double value, std::int64_t unit, double factor) {
    return unit == kSexagesimal ? FromSexagesimal(value) : value * factor / kDegree;
}

// A parameter of a conversion with its unit.
struct Parameter {
    std::int64_t code = 0;
    double value = 0.0;
    std::int64_t unit = 0;
    double factor = 0.0;
};

// Seven parameters of four columns each, from this column on.
std::vector<Parameter> ParametersFrom(const SqliteStatement& row, int column) {
    std::vector<Parameter> parameters;
    for (int i = 0; i < 7; ++i, column += 4) {
        parameters.push_back(
            {row.Whole(column), row.Real(column + 1), row.Whole(column + 2), row.Real(column + 3)});
    }
    return parameters;
}

bool IsNear(double left, double right, double tolerance) {
    return std::fabs(std::remainder(left - right, 360.0)) < tolerance;
}

bool HasOriginOf(const Clause& clause, const std::vector<Parameter>& parameters,
                 double meridianDegrees, bool isTransverse) {
    constexpr double kDegrees = 1e-4;
    constexpr double kMetres = 0.05;
    const double wanted = CentralMeridian(clause) + DatumOf(clause).GetParameters().primeMeridian;
    for (const Parameter& p : parameters) {
        const bool isLongitude = std::find(kOriginLongitudes.begin(), kOriginLongitudes.end(),
                                           p.code) != kOriginLongitudes.end();
        if (isLongitude &&
            !IsNear(Degrees(p.value, p.unit, p.factor) + meridianDegrees, wanted, kDegrees)) {
            return false;
        }
        const double easting = clause[ProjectionParameter::FalseEasting] * clause.metresPerUnit;
        if (isTransverse && p.code == kFalseEasting &&
            std::fabs(p.value * p.factor - easting) > kMetres) {
            return false;
        }
    }
    return true;
}

std::string ListOf(std::span<const int> numbers) {
    std::string text;
    for (const int number : numbers) {
        text += (text.empty() ? "'" : ",'") + std::to_string(number) + "'";
    }
    return text;
}

std::string ParameterColumns() {
    std::string text;
    for (int i = 1; i <= 7; ++i) {
        const std::string n = std::to_string(i);
        text += ", c.param" + n + "_code, c.param" + n + "_value, c.param" + n +
                "_uom_code, (SELECT conv_factor FROM unit_of_measure WHERE auth_name = c.param" +
                n + "_uom_auth_name AND code = c.param" + n + "_uom_code)";
    }
    return text;
}

constexpr const char* kFrameJoins =
    " JOIN geodetic_datum d ON d.auth_name = g.datum_auth_name AND d.code = g.datum_code"
    " JOIN ellipsoid e ON e.auth_name = d.ellipsoid_auth_name AND e.code = d.ellipsoid_code"
    " JOIN unit_of_measure u ON u.auth_name = e.uom_auth_name AND u.code = e.uom_code"
    " JOIN prime_meridian m ON m.auth_name = d.prime_meridian_auth_name"
    " AND m.code = d.prime_meridian_code"
    " JOIN unit_of_measure n ON n.auth_name = m.uom_auth_name AND n.code = m.uom_code";

// The vector by which a shift moves a point given in metres from the centre of the Earth.
std::array<double, 3> Moved(const Shift& s, const std::array<double, 3>& at) {
    const auto& [x, y, z] = at;
    return {s.dx + s.scale * x + s.rz * y - s.ry * z, s.dy - s.rz * x + s.scale * y + s.rx * z,
            s.dz + s.ry * x - s.rx * y + s.scale * z};
}

}  // namespace

Shift ShiftOf(const gcs::DatumParameters& datum) {
    Shift shift{datum.dx, datum.dy, datum.dz};
    if (datum.kind == gcs::DatumMethod::SevenParameters) {
        shift.rx = datum.rx * kArcSecond;
        shift.ry = datum.ry * kArcSecond;
        shift.rz = datum.rz * kArcSecond;
        shift.scale = datum.scale * 1e-6;
    }
    return shift;
}

bool AreSameOver(const Area& area, const Shift& left, const Shift& right) {
    constexpr double kRadius = 6378137.0;
    constexpr double kCentimetre = 0.01;
    const AreaPoints points = PointsIn(area);
    for (std::size_t i = 0; i < points.longitudes.size(); ++i) {
        const double longitude = points.longitudes[i] * kDegree;
        const double latitude = points.latitudes[i] * kDegree;
        const std::array at{kRadius * std::cos(latitude) * std::cos(longitude),
                            kRadius * std::cos(latitude) * std::sin(longitude),
                            kRadius * std::sin(latitude)};
        const auto a = Moved(left, at);
        const auto b = Moved(right, at);
        if (std::hypot(a[0] - b[0], a[1] - b[1], a[2] - b[2]) > kCentimetre) {
            return false;
        }
    }
    return true;
}

Register::Register(PJ_CONTEXT* context)
    : database_(DatabasePath(context), SqliteDatabase::Mode::Read, "the register of PROJ") {}

std::vector<RegisterEntry> Register::ProjectedLike(const Clause& clause,
                                                   std::span<const int> methods) {
    SqliteStatement statement(
        database_,
        "SELECT p.code, p.name, g.code, g.name, c.method_code, m.longitude, m.uom_code,"
        " n.conv_factor" +
            ParameterColumns() +
            " FROM projected_crs p JOIN conversion_table c ON c.auth_name = p.conversion_auth_name"
            " AND c.code = p.conversion_code JOIN geodetic_crs g ON"
            " g.auth_name = p.geodetic_crs_auth_name AND g.code = p.geodetic_crs_code" +
            kFrameJoins +
            " WHERE p.auth_name = 'EPSG' AND p.deprecated = 0 AND c.method_auth_name = 'EPSG'"
            " AND c.method_code IN (" +
            ListOf(methods) + ") AND abs(e.semi_major_axis * u.conv_factor - ?1) < 1.0");
    statement.BindReal(1, DatumOf(clause).GetEllipsoid().GetMajorRadius());
    std::vector<RegisterEntry> found;
    while (statement.Step()) {
        const double meridian = Degrees(statement.Real(5), statement.Whole(6), statement.Real(7));
        if (HasOriginOf(clause, ParametersFrom(statement, 8), meridian,
                        statement.Whole(4) == kTransverseMercator)) {
            found.push_back({static_cast<int>(statement.Whole(0)), std::string(statement.Text(1)),
                             static_cast<int>(statement.Whole(2)), std::string(statement.Text(3))});
        }
    }
    return found;
}

std::vector<RegisterEntry> Register::GeographicLike(const Clause& clause) {
    SqliteStatement statement(
        database_,
        std::string("SELECT DISTINCT g.code, g.name FROM helmert_transformation_table h"
                    " JOIN geodetic_crs g ON g.auth_name = h.source_crs_auth_name"
                    " AND g.code = h.source_crs_code") +
            kFrameJoins +
            " WHERE h.deprecated = 0 AND h.target_crs_auth_name = 'EPSG'"
            " AND h.target_crs_code = '4326' AND g.auth_name = 'EPSG' AND g.deprecated = 0"
            " AND g.type = 'geographic 2D' AND abs(h.tx - ?1) < 0.01 AND abs(h.ty - ?2) < 0.01"
            " AND abs(h.tz - ?3) < 0.01 AND abs(e.semi_major_axis * u.conv_factor - ?4) < 0.001"
            " AND m.longitude = 0 ORDER BY g.code");
    const gcs::DatumParameters datum = DatumOf(clause).GetParameters();
    statement.BindReal(1, datum.dx);
    statement.BindReal(2, datum.dy);
    statement.BindReal(3, datum.dz);
    statement.BindReal(4, datum.ellipsoid.GetMajorRadius());
    std::vector<RegisterEntry> found;
    while (statement.Step()) {
        const int code = static_cast<int>(statement.Whole(0));
        const std::string name(statement.Text(1));
        found.push_back({code, name, code, name});
    }
    return found;
}

std::vector<Shift> Register::ShiftsToWgs84(int geographicCode) {
    SqliteStatement statement(
        database_,
        "SELECT h.method_code, h.tx, h.ty, h.tz, h.rx, h.ry, h.rz, r.conv_factor,"
        " h.scale_difference, s.conv_factor FROM helmert_transformation_table h"
        " LEFT JOIN unit_of_measure r ON r.auth_name = h.rotation_uom_auth_name"
        " AND r.code = h.rotation_uom_code"
        " LEFT JOIN unit_of_measure s ON s.auth_name = h.scale_difference_uom_auth_name"
        " AND s.code = h.scale_difference_uom_code"
        " WHERE h.deprecated = 0 AND h.source_crs_auth_name = 'EPSG' AND h.source_crs_code = ?1"
        " AND h.target_crs_auth_name = 'EPSG' AND h.target_crs_code = '4326'"
        " AND h.method_code IN ('9603', '9606', '9607')");
    const std::string code = std::to_string(geographicCode);
    statement.BindText(1, code);
    std::vector<Shift> shifts;
    while (statement.Step()) {
        const double turn =
            statement.Whole(0) == kPositionVector ? -statement.Real(7) : statement.Real(7);
        shifts.push_back({statement.Real(1), statement.Real(2), statement.Real(3),
                          statement.Real(4) * turn, statement.Real(5) * turn,
                          statement.Real(6) * turn, statement.Real(8) * statement.Real(9)});
    }
    return shifts;
}

}  // namespace app::detail
