// Four bytes, from three (opaque), four, or a packed value.
#pragma once

#include <cstdint>

namespace shr {

struct Color4b {
    std::uint8_t red;
    std::uint8_t green;
    std::uint8_t blue;
    std::uint8_t alpha;

    constexpr Color4b(std::uint8_t r, std::uint8_t g, std::uint8_t b, std::uint8_t a = 255)
        : red(r), green(g), blue(b), alpha(a) {}
    explicit Color4b(std::uint32_t packed);
};

}  // namespace shr
