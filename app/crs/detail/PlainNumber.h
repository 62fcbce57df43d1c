// Numbers in definitions and in what people read.
#pragma once

#include <string>

namespace app::detail {

// Returns the shortest text that reads back as the same number, without an exponent where that is
// readable.
std::string PlainNumber(double value);

}  // namespace app::detail
