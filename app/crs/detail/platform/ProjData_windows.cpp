#include "app/crs/detail/platform/ProjData.h"

#include "app/base/Paths.h"
#include "app/base/platform/System.h"

#include <string>

namespace app::detail {

void UseDataBesideProgram(PJ_CONTEXT* context) {
    static const std::string folder = [] {
        const std::filesystem::path beside = ProgramFolder() / "proj";
        std::error_code error;
        return std::filesystem::exists(beside / "proj.db", error) ? ArgumentFromPath(beside) : "";
    }();
    if (!folder.empty()) {
        const char* const paths[] = {folder.c_str()};
        proj_context_set_search_paths(context, 1, paths);
    }
}

}  // namespace app::detail
