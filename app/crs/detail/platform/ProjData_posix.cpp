#include "app/crs/detail/platform/ProjData.h"

namespace app::detail {

void UseDataBesideProgram(PJ_CONTEXT* /*context*/) {}

}  // namespace app::detail
