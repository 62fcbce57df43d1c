#include "app/crs/detail/PlainNumber.h"

#include <charconv>
#include <cmath>
#include <iterator>

namespace app::detail {

std::string PlainNumber(double value) {
    const double size = std::fabs(value);
    const bool isPlain = value == 0.0 || (size >= 1e-6 && size < 1e15);
    char text[48];
    const auto result =
        std::to_chars(std::begin(text), std::end(text), value,
                      isPlain ? std::chars_format::fixed : std::chars_format::general);
    return {std::begin(text), result.ptr};
}

}  // namespace app::detail
