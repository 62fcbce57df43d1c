#include "app/crs/detail/ProjHandles.h"

#include "app/crs/detail/platform/ProjData.h"

#include <cstdlib>
#include <cstring>
#include <string>

namespace app::detail {

ContextHandle MakeContext() {
    ContextHandle context(proj_context_create());
    proj_log_level(context.get(), PJ_LOG_NONE);
    proj_context_set_enable_network(context.get(), 0);
    UseDataBesideProgram(context.get());
    return context;
}

int EpsgCodeOf(const PJ* object) {
    const char* authority = proj_get_id_auth_name(object, 0);
    const char* code = proj_get_id_code(object, 0);
    if (authority == nullptr || code == nullptr || std::strcmp(authority, "EPSG") != 0) {
        return 0;
    }
    return std::atoi(code);
}

PjHandle FromRegister(PJ_CONTEXT* context, int code) {
    return PjHandle(proj_create_from_database(context, "EPSG", std::to_string(code).c_str(),
                                              PJ_CATEGORY_CRS, /*usePROJAlternativeGridNames=*/0,
                                              nullptr));
}

Axes AxesOf(PJ_CONTEXT* context, const PJ* crs) {
    if (proj_get_type(crs) == PJ_TYPE_BOUND_CRS) {
        const PjHandle source(proj_get_source_crs(context, crs));
        return source ? AxesOf(context, source.get()) : Axes();
    }
    const PjHandle system(proj_crs_get_coordinate_system(context, crs));
    Axes axes;
    if (system) {
        axes.areAngles = proj_cs_get_type(context, system.get()) == PJ_CS_TYPE_ELLIPSOIDAL;
        proj_cs_get_axis_info(context, system.get(), 0, nullptr, nullptr, nullptr, &axes.unit,
                              nullptr, nullptr, nullptr);
    }
    return axes;
}

}  // namespace app::detail
