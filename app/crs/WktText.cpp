#include "app/crs/WktText.h"

#include "app/crs/detail/ProjHandles.h"

#include <array>

namespace app {

std::string WktTextOf(const std::string& definition) {
    const detail::ContextHandle context = detail::MakeContext();
    const detail::PjHandle system(proj_create(context.get(), definition.c_str()));
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
