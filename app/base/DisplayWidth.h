// How wide a text is on a terminal.
#pragma once

#include <cstddef>
#include <string_view>

namespace app {

// In cells: characters of East Asia and emoji take two, marks over other characters none.
std::size_t DisplayWidth(std::string_view utf8);

}  // namespace app
