#include "app/crs/CrsIdentity.h"

#include "app/crs/GcsToProj.h"
#include "app/crs/detail/DatumCodes.h"
#include "app/crs/detail/ProjHandles.h"

#include <nlohmann/json.hpp>

#include <cmath>
#include <string_view>

namespace app {

namespace {

constexpr const wchar_t* kPopularVisualisationDatum = L"DATUM_EPSG_CRS4055_DAT6055_OP15973";
constexpr int kPseudoMercator = 3857;

bool IsWebMap(const gcs::GCSDef& system) {
    const gcs::ProjectionParameters p = system.GetProjection().GetParameters();
    return system.GetDatum().GetToken() == kPopularVisualisationDatum &&
           system.GetProjection().GetMethod() == gcs::ProjectionMethod::Mercator &&
           p.centralLongitude == 0.0 && p.falseEasting == 0.0 && p.falseNorthing == 0.0 &&
           p.unitsPerMetre == 1.0;
}

nlohmann::json JsonOf(PJ_CONTEXT* context, const PJ* object) {
    const char* text = proj_as_projjson(context, object, nullptr);
    return text == nullptr ? nlohmann::json() : nlohmann::json::parse(text);
}

// The register's geographic system of the datum, when it means the same frame: same ellipsoid (to
// 1 mm), and degrees as the file has them.
detail::PjHandle RegisteredFrame(PJ_CONTEXT* context, const gcs::DatumDef& datum) {
    const int code = detail::EpsgGeographicCodeOf(datum);
    if (code == 0) {
        return nullptr;
    }
    detail::PjHandle frame = detail::FromRegister(context, code);
    const detail::PjHandle ellipsoid(frame ? proj_get_ellipsoid(context, frame.get()) : nullptr);
    double major = 0.0;
    double minor = 0.0;
    if (!ellipsoid || !proj_ellipsoid_get_parameters(context, ellipsoid.get(), &major, &minor,
                                                     nullptr, nullptr)) {
        return nullptr;
    }
    constexpr double kSameMetres = 1e-3;
    const bool isSame = std::fabs(major - datum.GetEllipsoid().GetMajorRadius()) < kSameMetres &&
                        std::fabs(minor - datum.GetEllipsoid().GetMinorRadius()) < kSameMetres;
    return isSame ? std::move(frame) : nullptr;
}

bool HasDegrees(PJ_CONTEXT* context, const PJ* frame) {
    const detail::PjHandle axes(proj_crs_get_coordinate_system(context, frame));
    const char* unit = nullptr;
    return axes &&
           proj_cs_get_axis_info(context, axes.get(), 0, nullptr, nullptr, nullptr, nullptr, &unit,
                                 nullptr, nullptr) != 0 &&
           unit != nullptr && std::string_view(unit) == "degree";
}

detail::PjHandle FromJson(PJ_CONTEXT* context, const nlohmann::json& json) {
    return detail::PjHandle(proj_create(context, json.dump().c_str()));
}

// The projected system on the register's geographic one; null when PROJ can't make it.
nlohmann::json OnFrame(PJ_CONTEXT* context, const std::string& definition, const PJ* frame,
                       const std::string& name) {
    const detail::PjHandle projected(proj_create(context, definition.c_str()));
    nlohmann::json json;
    if (projected) {
        json = JsonOf(context, projected.get());
        json["base_crs"] = JsonOf(context, frame);
        json["base_crs"].erase("$schema");
        json["name"] = name;
    }
    return json;
}

void IdentifyInRegister(PJ_CONTEXT* context, const PJ* system, CrsIdentity& identity) {
    constexpr int kSure = 90;
    int* confidences = nullptr;
    const detail::PjListHandle list(proj_identify(context, system, "EPSG", nullptr, &confidences));
    detail::PjHandle best;
    int equalDefinitions = 0;
    for (int i = 0; list && i < proj_list_get_count(list.get()); ++i) {
        detail::PjHandle candidate(proj_list_get(context, list.get(), i));
        const bool isSure = confidences[i] >= kSure;
        if (!candidate || detail::EpsgCodeOf(candidate.get()) == 0 ||
            (!isSure && proj_is_equivalent_to_with_ctx(context, system, candidate.get(),
                                                       PJ_COMP_EQUIVALENT) == 0)) {
            continue;
        }
        best = std::move(candidate);
        ++equalDefinitions;
        if (isSure) {
            equalDefinitions = 1;
            break;
        }
    }
    proj_int_list_destroy(confidences);
    if (best && equalDefinitions == 1) {
        identity.epsgCode = detail::EpsgCodeOf(best.get());
        identity.epsgName = proj_get_name(best.get());
    }
}

std::string WktOf(PJ_CONTEXT* context, const PJ* system) {
    const char* wkt =
        system != nullptr ? proj_as_wkt(context, system, PJ_WKT2_2019, nullptr) : nullptr;
    return wkt != nullptr ? wkt : "";
}

// The register has systems with the northing first; those are the same to a file.
void IdentifyInEitherOrder(PJ_CONTEXT* context, nlohmann::json json, CrsIdentity& identity) {
    const detail::PjHandle eastingFirst = FromJson(context, json);
    if (!eastingFirst) {
        return;
    }
    identity.wkt2 = WktOf(context, eastingFirst.get());
    IdentifyInRegister(context, eastingFirst.get(), identity);
    nlohmann::json& axes = json["coordinate_system"]["axis"];
    if (identity.epsgCode == 0 && axes.size() == 2) {
        std::swap(axes[0], axes[1]);
        if (const detail::PjHandle northingFirst = FromJson(context, json)) {
            IdentifyInRegister(context, northingFirst.get(), identity);
        }
    }
}

}  // namespace

CrsIdentity Identify(const gcs::CSDef& system) {
    const ProjDefinition definition = ToProj(system);
    CrsIdentity identity;
    if (!definition) {
        return identity;
    }
    const auto& earth = static_cast<const gcs::GCSDef&>(system);
    const detail::ContextHandle context = detail::MakeContext();
    const bool isWebMap = IsWebMap(earth);
    const detail::PjHandle frame = isWebMap ? detail::FromRegister(context.get(), kPseudoMercator)
                                            : RegisteredFrame(context.get(), earth.GetDatum());
    if (frame && !definition.isGeographic && !isWebMap) {
        const auto json =
            OnFrame(context.get(), definition.crsWithoutShift, frame.get(), NameInWords(system));
        IdentifyInEitherOrder(context.get(), json, identity);
    } else if (frame && (isWebMap || HasDegrees(context.get(), frame.get()))) {
        identity.wkt2 = WktOf(context.get(), frame.get());
        identity.epsgCode = detail::EpsgCodeOf(frame.get());
        identity.epsgName = proj_get_name(frame.get());
    } else {
        const detail::PjHandle crs(proj_create(context.get(), definition.crs.c_str()));
        identity.wkt2 = WktOf(context.get(), crs.get());
    }
    return identity;
}

}  // namespace app
