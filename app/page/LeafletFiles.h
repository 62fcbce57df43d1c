// The map library that every page brings along, put into the program when it is built.
#pragma once

#include <string_view>

namespace app {

// UTF-8, valid as long as the program runs.
std::string_view LeafletScript();
std::string_view LeafletStyles();

}  // namespace app
