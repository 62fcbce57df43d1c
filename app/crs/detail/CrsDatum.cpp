#include "app/crs/detail/CrsDatum.h"

#include "app/crs/Datums.h"
#include "app/crs/detail/Frames.h"
#include "host/gcs/KnownLists.h"
#include "standalone/Text.h"

#include <algorithm>
#include <cmath>
#include <string_view>

namespace app::detail {

namespace {

constexpr double kSameDegrees = 1e-7;  // prime meridians are given to that

struct Ellipsoid {
    double major = 0.0;
    double minor = 0.0;
};

std::optional<Ellipsoid> EllipsoidOf(PJ_CONTEXT* context, const PJ* frame) {
    const PjHandle object(proj_get_ellipsoid(context, frame));
    Ellipsoid ellipsoid;
    if (!object || !proj_ellipsoid_get_parameters(context, object.get(), &ellipsoid.major,
                                                  &ellipsoid.minor, nullptr, nullptr)) {
        return std::nullopt;
    }
    return ellipsoid;
}

double Distance(const Ellipsoid& left, const gcs::EllipsoidDef& right) {
    return std::max(std::fabs(left.major - right.GetMajorRadius()),
                    std::fabs(left.minor - right.GetMinorRadius()));
}

struct NearestEllipsoid {
    gcs::EllipsoidDef ellipsoid;
    double metres = HUGE_VAL;  // how far the axes are from those asked for
    std::string name;
};

NearestEllipsoid FindNearestEllipsoid(const Ellipsoid& wanted) {
    NearestEllipsoid nearest;
    for (int index = 1; index < gcs::GCSKnownEllipsoidsList.Count(); ++index) {
        gcs::EllipsoidDef known;
        gcs::GCSKnownEllipsoidsList.Enum(index, known);
        if (Distance(wanted, known) < nearest.metres) {
            nearest = {known, Distance(wanted, known),
                       standalone::Narrow(gcs::GCSKnownEllipsoidsList.Name(index))};
        }
    }
    return nearest;
}

gcs::DatumDef Known(const wchar_t* token) {
    gcs::DatumDef datum;
    static_cast<void>(gcs::GCSKnownDatumsList.FindByToken(token, &datum));
    return datum;
}

// The code of a geographic system; of one without a code, that of its equal in the register.
int CodeOf(PJ_CONTEXT* context, const PJ* frame) {
    if (const int code = EpsgCodeOf(frame); code != 0) {
        return code;
    }
    const PjListHandle list(proj_identify(context, frame, "EPSG", nullptr, nullptr));
    for (int i = 0; list && i < proj_list_get_count(list.get()); ++i) {
        const PjHandle candidate(proj_list_get(context, list.get(), i));
        if (candidate &&
            proj_is_equivalent_to_with_ctx(context, frame, candidate.get(),
                                           PJ_COMP_EQUIVALENT_EXCEPT_AXIS_ORDER_GEOGCRS) != 0) {
            return EpsgCodeOf(candidate.get());
        }
    }
    return 0;
}

struct FoundShift {
    PositionVectorShift values{};
    std::string name;
};

// The first operation to WGS 84, in PROJ's order of merit, that is a Helmert transformation.
std::optional<FoundShift> FindShift(PJ_CONTEXT* context, const PJ* frame) {
    const PjHandle wgs84 = FromRegister(context, 4326);
    const OperationFactoryHandle factory(proj_create_operation_factory_context(context, "EPSG"));
    proj_operation_factory_context_set_spatial_criterion(
        context, factory.get(), PROJ_SPATIAL_CRITERION_PARTIAL_INTERSECTION);
    proj_operation_factory_context_set_grid_availability_use(context, factory.get(),
                                                             PROJ_GRID_AVAILABILITY_IGNORED);
    const PjListHandle list(proj_create_operations(context, frame, wgs84.get(), factory.get()));
    for (int i = 0; list && i < proj_list_get_count(list.get()); ++i) {
        const PjHandle operation(proj_list_get(context, list.get(), i));
        FoundShift found;
        if (operation && proj_coordoperation_get_towgs84_values(context, operation.get(),
                                                                found.values.data(), 7, 0) != 0) {
            found.name = proj_get_name(operation.get());
            return found;
        }
    }
    return std::nullopt;
}

gcs::DatumParameters ParametersOf(const PositionVectorShift& shift) {
    gcs::DatumParameters parameters;
    parameters.dx = shift[0];
    parameters.dy = shift[1];
    parameters.dz = shift[2];
    // 0.0 - x turns to the coordinate-frame convention without making a minus 0.
    parameters.rx = 0.0 - shift[3];
    parameters.ry = 0.0 - shift[4];
    parameters.rz = 0.0 - shift[5];
    parameters.scale = shift[6];
    const bool isShiftOnly =
        std::all_of(shift.begin() + 3, shift.end(), [](double value) { return value == 0.0; });
    parameters.kind =
        isShiftOnly ? gcs::DatumMethod::ThreeParameters : gcs::DatumMethod::SevenParameters;
    return parameters;
}

bool IsZero(const PositionVectorShift& shift) {
    return std::all_of(shift.begin(), shift.end(), [](double value) { return value == 0.0; });
}

constexpr const wchar_t* kGrs80 = L"DATUM_GRS80EUREF89_BURSA";
constexpr const wchar_t* kWgs84 = L"DATUM_WGS84";
constexpr const wchar_t* kNad83 = L"DATUM_NAD83";

// NAD83(HARN), NAD83(CSRS), NAD83(2011), ...
bool IsOfNad83Family(const PJ* frame) {
    return std::string_view(proj_get_name(frame)).starts_with("NAD83");
}

// A datum of its own, or the known one with the same numbers.
ChosenDatum DatumOfShift(const Ellipsoid& ellipsoid, const PositionVectorShift& shift) {
    constexpr double kUnnoticedMetres = 1e-3;
    constexpr double kTolerableMetres = 0.05;
    ChosenDatum chosen;
    NearestEllipsoid nearest = FindNearestEllipsoid(ellipsoid);
    if (nearest.metres > kTolerableMetres) {
        chosen.problem = "MIF has no ellipsoid with the axes " + std::to_string(ellipsoid.major) +
                         " m and " + std::to_string(ellipsoid.minor) + " m";
        return chosen;
    }
    if (nearest.metres > kUnnoticedMetres) {
        chosen.warnings.push_back("the ellipsoid is replaced by \"" + nearest.name +
                                  "\", whose axes differ by " +
                                  std::to_string(std::lround(nearest.metres * 1000.0)) + " mm");
    }
    const gcs::EllipsoidDef grs80 = Known(kGrs80).GetEllipsoid();
    const gcs::EllipsoidDef wgs84 = Known(kWgs84).GetEllipsoid();
    if (IsZero(shift) && (nearest.ellipsoid == grs80 || nearest.ellipsoid == wgs84)) {
        chosen.datum = Known(nearest.ellipsoid == grs80 ? kGrs80 : kWgs84);
        return chosen;
    }
    gcs::DatumParameters parameters = ParametersOf(shift);
    parameters.ellipsoid = nearest.ellipsoid == grs80 ? wgs84 : nearest.ellipsoid;
    chosen.datum.SetParameters(&parameters);
    return chosen;
}

ChosenDatum DatumOfFoundShift(PJ_CONTEXT* context, const PJ* frame, const Ellipsoid& ellipsoid) {
    const std::string name = proj_get_name(frame);
    const auto found = FindShift(context, frame);
    ChosenDatum chosen = DatumOfShift(ellipsoid, found ? found->values : PositionVectorShift{});
    if (!found) {
        if (chosen.datum.GetMethod() != gcs::DatumMethod::None) {
            chosen = ChosenDatum();
            chosen.problem =
                "no transformation without a grid leads from \"" + name + "\" to WGS 84";
            return chosen;
        }
        chosen.warnings.push_back("no transformation leads from \"" + name +
                                  "\" to WGS 84; both are taken as the same");
    } else if (chosen.problem.empty()) {
        chosen.warnings.push_back(
            "the datum of \"" + name + "\" has no code in MIF; " +
            (chosen.datum.GetName().empty()
                 ? "the clause has the numbers of \"" + found->name + "\""
                 : "\"" + standalone::Narrow(chosen.datum.GetName()) + "\" has the same numbers"));
    }
    return chosen;
}

ChosenDatum KnownDatumOf(const gcs::DatumDef& datum, const Ellipsoid& ellipsoid) {
    constexpr double kTolerableMetres = 0.05;
    ChosenDatum chosen;
    chosen.datum = datum;
    if (Distance(ellipsoid, datum.GetEllipsoid()) > kTolerableMetres) {
        chosen.warnings.push_back("MIF has the datum \"" + standalone::Narrow(datum.GetName()) +
                                  "\" on another ellipsoid");
    }
    return chosen;
}

// A known datum on an ellipsoid that is further away would put projected coordinates metres off.
// That of an unknown datum is at 0.
constexpr double kSimilarMetres = 1.0;

// Puts the prime meridian into the datum where only the datum can carry it: geographic coordinates
// count from it. A clause carries it with seven parameters only, so rotations of 0 are written out.
void SettleMeridian(ChosenDatum& chosen, double meridian, bool isProjected) {
    gcs::DatumParameters parameters = chosen.datum.GetParameters();
    const double missing = meridian - parameters.primeMeridian;
    if (std::fabs(missing) < kSameDegrees) {
        return;
    }
    if (isProjected) {
        chosen.leftOverMeridian = missing;
        return;
    }
    parameters.primeMeridian = meridian;
    parameters.kind = gcs::DatumMethod::SevenParameters;
    chosen.datum.SetParameters(&parameters);
}

}  // namespace

ChosenDatum ChooseDatum(PJ_CONTEXT* context, const PJ* frame,
                        const std::optional<PositionVectorShift>& shift, bool isProjected) {
    const auto ellipsoid = EllipsoidOf(context, frame);
    ChosenDatum chosen;
    if (!ellipsoid) {
        chosen.problem = "the system has no ellipsoid";
        return chosen;
    }
    const RegisteredDatum known = DatumOfEpsgCode(CodeOf(context, frame));
    if (shift) {
        chosen = DatumOfShift(*ellipsoid, *shift);
        if (chosen.problem.empty() && HaveSameShift(chosen.datum, known.datum)) {
            chosen.datum = known.datum;
        }
    } else if (Distance(*ellipsoid, known.datum.GetEllipsoid()) < kSimilarMetres) {
        chosen = KnownDatumOf(known.datum, *ellipsoid);
        if (known.isAmbiguous) {
            chosen.warnings.push_back("MIF has several datums for \"" +
                                      std::string(proj_get_name(frame)) + "\"; \"" +
                                      standalone::Narrow(known.datum.GetName()) + "\" is taken");
        }
    } else if (IsOfNad83Family(frame)) {
        chosen = KnownDatumOf(Known(kNad83), *ellipsoid);
        chosen.warnings.push_back("the datum of \"" + std::string(proj_get_name(frame)) +
                                  "\" has no code in MIF; NAD83 is taken, which is up to 2 m away");
    } else {
        chosen = DatumOfFoundShift(context, frame, *ellipsoid);
    }
    if (chosen.problem.empty()) {
        SettleMeridian(chosen, PrimeMeridianOf(context, frame), isProjected);
    }
    return chosen;
}

}  // namespace app::detail
