#include "app/crs/Definitions.h"

#include "app/base/Errors.h"
#include "app/crs/detail/ProjHandles.h"

#include <array>
#include <cstdlib>
#include <string_view>

namespace app {

namespace {

using detail::PjHandle;

// What PROJ is given; empty for a text that is neither a code, nor a PROJ string, nor WKT or
// PROJJSON: PROJ would look for a name that contains it and take the first.
std::string DefinitionForProj(const std::string& definition) {
    const std::size_t first = definition.find_first_not_of(" \t\r\n");
    if (first == std::string::npos ||
        definition.find_first_of(":[{+", first) == std::string::npos) {
        return "";
    }
    // A PROJ string means a coordinate system only with this word.
    const bool isProjString = definition[first] == '+';
    return isProjString && definition.find("+type=crs") == std::string::npos
               ? definition + " +type=crs"
               : definition;
}

// A system of the Earth's surface: itself, or what is left of one with heights.
struct Horizontal {
    PjHandle crs;  // null when there is none
    bool hasHeight = false;
    bool isWhole = true;  // the definition as given describes it fully
};

// The flat system of one with heights has a code of its own but the same name. Null for a system
// that the register lacks.
PjHandle FlatOf(PJ_CONTEXT* context, const PJ* crs) {
    constexpr PJ_TYPE kFlat = PJ_TYPE_GEOGRAPHIC_2D_CRS;
    const detail::PjListHandle list(
        proj_create_from_name(context, "EPSG", proj_get_name(crs), &kFlat, 1,
                              /*approximateMatch=*/0, /*limitResultCount=*/1, nullptr));
    return PjHandle(list && proj_list_get_count(list.get()) == 1
                        ? proj_list_get(context, list.get(), 0)
                        : nullptr);
}

Horizontal HorizontalOf(PJ_CONTEXT* context, PjHandle crs) {
    Horizontal found{std::move(crs)};
    if (proj_get_type(found.crs.get()) == PJ_TYPE_COMPOUND_CRS) {
        found = {PjHandle(proj_crs_get_sub_crs(context, found.crs.get(), 0)), true, false};
    }
    if (found.crs && proj_get_type(found.crs.get()) == PJ_TYPE_GEOGRAPHIC_3D_CRS) {
        found.hasHeight = true;
        if (PjHandle flat = FlatOf(context, found.crs.get())) {
            found.crs = std::move(flat);
            found.isWhole = false;
        }
    }
    return found;
}

bool IsOnSurface(PJ_CONTEXT* context, const PJ* crs) {
    const PJ_TYPE type = proj_get_type(crs);
    if (type == PJ_TYPE_BOUND_CRS) {
        const PjHandle source(proj_get_source_crs(context, crs));
        return source && IsOnSurface(context, source.get());
    }
    return type == PJ_TYPE_GEOGRAPHIC_2D_CRS || type == PJ_TYPE_GEOGRAPHIC_3D_CRS ||
           type == PJ_TYPE_PROJECTED_CRS;
}

// A definition by code where there is one, else as given, else in WKT.
void SetDefinition(PJ_CONTEXT* context, const Horizontal& horizontal, const std::string& given,
                   CoordinateSystem& system) {
    const char* authority = proj_get_id_auth_name(horizontal.crs.get(), 0);
    const char* code = proj_get_id_code(horizontal.crs.get(), 0);
    if (authority != nullptr && code != nullptr) {
        system.authority = authority;
        system.code = std::atoi(code);
        system.definition = system.authority + ":" + code;
    } else if (horizontal.isWhole) {
        system.definition = given;
    } else if (const char* wkt =
                   proj_as_wkt(context, horizontal.crs.get(), PJ_WKT2_2019, nullptr)) {
        system.definition = wkt;
    }
}

std::string NameOf(const PJ* crs, const std::string& given) {
    const char* name = proj_get_name(crs);
    return name == nullptr || *name == '\0' || std::string_view(name) == "unknown" ? given : name;
}

}  // namespace

CoordinateSystem SystemOfDefinition(const std::string& definition) {
    if (definition == "wgs84" || definition == "WGS84") {
        return Wgs84System();
    }
    const detail::ContextHandle context = detail::MakeContext();
    const std::string given = DefinitionForProj(definition);
    PjHandle crs(proj_create(context.get(), given.c_str()));
    if (!crs || proj_is_crs(crs.get()) == 0) {
        return UnknownSystem("\"" + definition + "\" is no coordinate system that PROJ knows");
    }
    const std::string name = NameOf(crs.get(), definition);
    const Horizontal horizontal = HorizontalOf(context.get(), std::move(crs));
    if (!horizontal.crs || !IsOnSurface(context.get(), horizontal.crs.get())) {
        return UnknownSystem("\"" + definition + "\" is neither geographic nor projected (" + name +
                             ")");
    }
    CoordinateSystem system;
    system.kind = SystemKind::Earth;
    system.name = NameOf(horizontal.crs.get(), definition);
    SetDefinition(context.get(), horizontal, given, system);
    const detail::Axes axes = detail::AxesOf(context.get(), horizontal.crs.get());
    system.isGeographic = axes.areAngles;
    system.metresPerUnit = axes.areAngles ? 1.0 : axes.unit;
    if (horizontal.hasHeight) {
        system.notes.emplace_back("heights are left out");
    }
    return system;
}

SystemPtr SystemOfOption(const std::string& option, const std::string& definition,
                         Reporter& reporter) {
    CoordinateSystem system = SystemOfDefinition(definition);
    const std::string prefix = option + " " + definition + ": ";
    if (!system.IsOnEarth()) {
        throw UsageError(prefix + system.problem);
    }
    for (const std::string& note : system.notes) {
        reporter.Warning(prefix + note);
    }
    system.notes.clear();  // said once, however many layers have the system
    return std::make_shared<const CoordinateSystem>(std::move(system));
}

std::vector<std::string> RegisteredSystems() {
    const detail::ContextHandle context = detail::MakeContext();
    std::vector<std::string> names;
    for (const PJ_TYPE type : {PJ_TYPE_GEOGRAPHIC_2D_CRS, PJ_TYPE_PROJECTED_CRS}) {
        const PROJ_STRING_LIST codes =
            proj_get_codes_from_database(context.get(), "EPSG", type, /*allow_deprecated=*/0);
        for (const char* const* code = codes; code != nullptr && *code != nullptr; ++code) {
            names.push_back(std::string("EPSG:") + *code);
        }
        proj_string_list_destroy(codes);
    }
    return names;
}

std::string WktTextOf(const std::string& definition) {
    const detail::ContextHandle context = detail::MakeContext();
    const PjHandle system(proj_create(context.get(), definition.c_str()));
    if (!system) {
        return {};
    }
    constexpr std::array<const char*, 2> kOneLine{"MULTILINE=NO", nullptr};
    for (const PJ_WKT_TYPE dialect : {PJ_WKT1_GDAL, PJ_WKT2_2019}) {
        const char* wkt = proj_as_wkt(context.get(), system.get(), dialect, kOneLine.data());
        if (wkt != nullptr) {
            return wkt;
        }
    }
    return {};
}

}  // namespace app
