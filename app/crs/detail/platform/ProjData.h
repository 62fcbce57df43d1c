// Where PROJ finds its register and its grids. One source per system.
#pragma once

#include <proj.h>

namespace app::detail {

// Lets the context use the data that lie in the folder "proj" beside the program, in place of those
// of another program that PROJ_DATA names. Only Windows has them there; elsewhere PROJ looks where
// it was installed.
void UseDataBesideProgram(PJ_CONTEXT* context);

}  // namespace app::detail
