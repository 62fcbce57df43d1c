// How wide a text is on a terminal.
#pragma once

#include <cstddef>
#include <string_view>

namespace app {

// In cells: characters of East Asia and emoji take two, marks that stand over others none.
std::size_t DisplayWidth(std::string_view utf8);

}  // namespace app
