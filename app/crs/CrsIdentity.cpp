#include "app/crs/CrsIdentity.h"

#include "app/base/Angles.h"
#include "app/base/Errors.h"
#include "app/crs/ClauseForExport.h"
#include "app/crs/Datums.h"
#include "app/crs/ProjText.h"
#include "app/crs/detail/Frames.h"
#include "app/crs/detail/Register.h"
#include "app/json/JsonEdit.h"
#include "app/json/JsonText.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cmath>
#include <optional>
#include <string_view>
#include <tuple>
#include <vector>

namespace app {

namespace {

using detail::PjHandle;
using detail::RegisterEntry;
using enum ProjectionParameter;

constexpr int kWgs84 = 4326;
constexpr int kEtrs89 = 4258;
constexpr int kNad83 = 4269;
constexpr int kPopularVisualisation = 4055;
constexpr int kPseudoMercator = 3857;
constexpr std::int64_t kMercator = 10;

bool IsWebMap(const Clause& clause) {
    return EpsgGeographicCodeOf(clause.datum) == kPopularVisualisation &&
           clause.projection->code == kMercator && clause[OriginLongitude] == 0.0 &&
           clause.metresPerUnit == 1.0;
}

// Empty when PROJ has no JSON for the system.
std::string JsonOf(PJ_CONTEXT* context, const PJ* system) {
    const char* text = proj_as_projjson(context, system, nullptr);
    return text != nullptr ? text : "";
}

std::string WktOf(PJ_CONTEXT* context, const PJ* system) {
    const char* wkt =
        system != nullptr ? proj_as_wkt(context, system, PJ_WKT2_2019, nullptr) : nullptr;
    return wkt != nullptr ? wkt : "";
}

// The clause's system on the register's geographic one, which names the datum; else on its own.
std::string WktOfClause(PJ_CONTEXT* context, const Clause& clause, const PJ* frame) {
    if (frame == nullptr) {
        const PjHandle crs(proj_create(context, ProjCrs(clause).c_str()));
        return WktOf(context, crs.get());
    }
    const PjHandle projected(proj_create(context, ProjCrsWithoutShift(clause).c_str()));
    if (!projected) {
        return "";
    }
    std::string json = JsonOf(context, projected.get());
    const std::string base = JsonOf(context, frame);
    if (json.empty() || base.empty()) {
        return "";
    }
    std::string name;
    AppendJsonString(name, NameInWords(clause));
    json = WithJsonMember(json, "base_crs", WithoutJsonMember(base, "$schema"));
    json = WithJsonMember(json, "name", name);
    const PjHandle crs(proj_create(context, json.c_str()));
    return WktOf(context, crs.get());
}

bool HasDegrees(PJ_CONTEXT* context, const PJ* frame) {
    return std::fabs(detail::AxesOf(context, frame).unit / kDegree - 1.0) < 1e-9;
}

// Whether the entry gives the clause's coordinates over its area, from longitudes and latitudes of
// one datum.
bool GivesCoordinatesOf(PJ_CONTEXT* context, const Clause& clause, const PJ* entry,
                        const detail::Area& area) {
    constexpr double kCentimetre = 0.01;
    const PjHandle frame(proj_crs_get_geodetic_crs(context, entry));
    const PjHandle projection(proj_create(context, PipelineToGeographic(clause).c_str()));
    PjHandle operation(
        proj_create_crs_to_crs_from_pj(context, frame.get(), entry, nullptr, nullptr));
    operation.reset(operation ? proj_normalize_for_visualization(context, operation.get())
                              : nullptr);
    if (!projection || !operation) {
        return false;
    }
    const std::string fromGreenwich = detail::PipelineFromGreenwich(context, frame.get());
    const PjHandle toFrame(fromGreenwich.empty() ? nullptr
                                                 : proj_create(context, fromGreenwich.c_str()));
    const detail::AreaPoints points = detail::PointsIn(area);
    bool isAnyCompared = false;
    for (std::size_t i = 0; i < points.longitudes.size(); ++i) {
        const PJ_COORD place = proj_coord(points.longitudes[i], points.latitudes[i], 0.0, HUGE_VAL);
        const PJ_COORD onFrame = toFrame ? proj_trans(toFrame.get(), PJ_FWD, place) : place;
        const PJ_COORD theirs = proj_trans(operation.get(), PJ_FWD, onFrame);
        const PJ_COORD ours = proj_trans(projection.get(), PJ_INV, place);
        if (theirs.xy.x == HUGE_VAL || ours.xy.x == HUGE_VAL) {
            continue;
        }
        isAnyCompared = true;
        if (!(std::hypot(theirs.xy.x - ours.xy.x, theirs.xy.y - ours.xy.y) * clause.metresPerUnit <
              kCentimetre)) {
            return false;
        }
    }
    return isAnyCompared;
}

// How well an entry's datum fits; the lower the better.
enum class Fit { Name, Numbers, Family };

// "CH1903+" belongs to "CH1903", "NAD83(2011)" to "NAD83".
bool IsInFamily(std::string_view name, const char* family) {
    return family != nullptr && name.starts_with(family) &&
           name.size() > std::string_view(family).size() &&
           std::isalnum(static_cast<unsigned char>(name[std::string_view(family).size()])) == 0;
}

bool HasShiftOf(detail::Register& reg, const Clause& clause, int geographicCode,
                const detail::Area& area) {
    const detail::Shift shift = detail::ShiftOf(DatumOf(clause).GetParameters());
    const std::vector<detail::Shift> known =
        geographicCode == kWgs84 ? std::vector{detail::Shift()} : reg.ShiftsToWgs84(geographicCode);
    return std::any_of(known.begin(), known.end(), [&](const detail::Shift& candidate) {
        return detail::AreSameOver(area, shift, candidate);
    });
}

std::optional<Fit> FitOf(detail::Register& reg, const Clause& clause, const RegisterEntry& entry,
                         const detail::Area& area) {
    const gcs::DatumDef datum = DatumOf(clause);
    const int frame = EpsgGeographicCodeOf(datum);
    if (frame != 0 && entry.geographicCode == frame) {
        return Fit::Name;
    }
    if (HasShiftOf(reg, clause, entry.geographicCode, area)) {
        return Fit::Numbers;
    }
    if (IsInFamily(entry.geographicName, EpsgGeographicNameOf(datum))) {
        return Fit::Family;
    }
    // A modern datum to which the register knows no way is written as WGS 84 on its ellipsoid.
    const bool isUnshifted = detail::AreSameOver(area, detail::ShiftOf(datum.GetParameters()), {});
    return isUnshifted && reg.ShiftsToWgs84(entry.geographicCode).empty()
               ? std::optional(Fit::Family)
               : std::nullopt;
}

// The register has some systems a second time: with the axes in the other order, which the name
// says ("(E,N)" alone is the order that files have), and two zones of UTM under another name.
bool IsVariant(std::string_view name) {
    constexpr std::array<std::string_view, 8> kSuffixes = {
        "(N-E)", "(E-N)", "(N,E)", "(zE-N)", "(N-zE)", "(zN-E)", "TMzn35N", "TMzn36N"};
    return std::any_of(kSuffixes.begin(), kSuffixes.end(),
                       [&](std::string_view suffix) { return name.ends_with(suffix); });
}

// Where the datum of a clause has no name, several geographic systems fit: the lower the more used.
int UseOf(int geographicCode) {
    constexpr std::array kMostUsed = {kWgs84, kEtrs89, kNad83};
    return static_cast<int>(std::ranges::find(kMostUsed, geographicCode) - kMostUsed.begin());
}

void Take(const RegisterEntry& entry, CrsIdentity& identity) {
    identity.epsgCode = entry.code;
    identity.epsgName = entry.name;
}

void IdentifyProjected(PJ_CONTEXT* context, const Clause& clause, CrsIdentity& identity) {
    detail::Register reg(context);
    const std::vector<int> methods = EpsgMethodsOf(*clause.projection);
    using Rank = std::tuple<Fit, bool, int, int>;
    std::optional<Rank> best;
    for (const RegisterEntry& entry : reg.ProjectedLike(clause, methods)) {
        const PjHandle crs = detail::FromRegister(context, entry.code);
        if (!crs) {
            continue;
        }
        const detail::Area area = detail::AreaOf(context, crs.get());
        const auto fit = FitOf(reg, clause, entry, area);
        const Rank rank{fit.value_or(Fit::Family), IsVariant(entry.name),
                        UseOf(entry.geographicCode), entry.code};
        if (fit && (!best || rank < *best) &&
            GivesCoordinatesOf(context, clause, crs.get(), area)) {
            best = rank;
            Take(entry, identity);
        }
    }
}

// A datum with its own numbers, by the numbers alone.
void IdentifyGeographic(PJ_CONTEXT* context, const Clause& clause, CrsIdentity& identity) {
    detail::Register reg(context);
    std::vector<RegisterEntry> entries = reg.GeographicLike(clause);
    std::ranges::stable_sort(entries, {},
                             [](const RegisterEntry& entry) { return UseOf(entry.code); });
    for (const RegisterEntry& entry : entries) {
        const PjHandle crs = detail::FromRegister(context, entry.code);
        if (crs && HasDegrees(context, crs.get()) &&
            detail::HasEllipsoid(context, crs.get(), DatumOf(clause).GetEllipsoid()) &&
            HasShiftOf(reg, clause, entry.code, detail::AreaOf(context, crs.get()))) {
            Take(entry, identity);
            return;
        }
    }
}

// The register's own entry: for longitude and latitude on a known datum, and the web map.
void IdentifyAs(PJ_CONTEXT* context, const PJ* entry, CrsIdentity& identity) {
    identity.wkt2 = WktOf(context, entry);
    identity.epsgCode = detail::EpsgCodeOf(entry);
    identity.epsgName = proj_get_name(entry);
}

CrsIdentity IdentifyClause(PJ_CONTEXT* context, const Clause& clause) {
    CrsIdentity identity;
    if (IsWebMap(clause)) {
        IdentifyAs(context, detail::FromRegister(context, kPseudoMercator).get(), identity);
        return identity;
    }
    const PjHandle frame = detail::RegisteredFrame(context, DatumOf(clause));
    const bool hasMeridian = DatumOf(clause).GetParameters().primeMeridian != 0.0;
    if (!clause.IsGeographic()) {
        identity.wkt2 = WktOfClause(context, clause, frame.get());
        IdentifyProjected(context, clause, identity);
    } else if (frame && HasDegrees(context, frame.get())) {
        IdentifyAs(context, frame.get(), identity);
    } else {
        identity.wkt2 = WktOfClause(context, clause, nullptr);
        if (DatumOf(clause).GetToken().empty() && !hasMeridian) {
            IdentifyGeographic(context, clause, identity);
        }
    }
    return identity;
}

// A definition without a code, such as old WKT: PROJ compares it with the register.
void IdentifyDefinition(PJ_CONTEXT* context, const PJ* crs, CrsIdentity& identity) {
    constexpr int kSure = 90;
    int* confidences = nullptr;
    const detail::PjListHandle list(proj_identify(context, crs, "EPSG", nullptr, &confidences));
    for (int i = 0; list && i < proj_list_get_count(list.get()); ++i) {
        const PjHandle candidate(proj_list_get(context, list.get(), i));
        if (candidate && confidences[i] >= kSure && identity.epsgCode == 0) {
            identity.epsgCode = detail::EpsgCodeOf(candidate.get());
            identity.epsgName = proj_get_name(candidate.get());
        }
    }
    proj_int_list_destroy(confidences);
}

CrsIdentity IdentifyNamed(PJ_CONTEXT* context, const CoordinateSystem& system) {
    CrsIdentity identity;
    const PjHandle crs(proj_create(context, system.definition.c_str()));
    if (!crs) {
        return identity;
    }
    identity.wkt2 = WktOf(context, crs.get());
    if (system.authority == "EPSG") {
        identity.epsgCode = system.code;
        identity.epsgName = system.name;
    } else if (system.authority.empty()) {
        IdentifyDefinition(context, crs.get(), identity);
    }
    return identity;
}

}  // namespace

CrsIdentity Identify(const CoordinateSystem& system) {
    if (!system.IsOnEarth() || (system.clause && system.clause->affine)) {
        return {};
    }
    const detail::ContextHandle context = detail::MakeContext();
    return system.clause ? IdentifyClause(context.get(), *system.clause)
                         : IdentifyNamed(context.get(), system);
}

}  // namespace app
