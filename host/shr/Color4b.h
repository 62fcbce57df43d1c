// A colour of four bytes, 0 to 255 each. Alpha 0 is invisible, 255 opaque; a colour without one is
// opaque.
#pragma once

#include <cstdint>

namespace shr {

struct Color4b {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
    std::uint8_t alpha = 255;

    constexpr Color4b() = default;
    constexpr Color4b(std::uint8_t r, std::uint8_t g, std::uint8_t b, std::uint8_t a = 255)
        : red(r), green(g), blue(b), alpha(a) {}

    // From a packed value: alpha in the highest byte, then red, green and blue. The packed value
    // 0 is (0, 0, 0, 0).
    constexpr explicit Color4b(std::uint32_t packed)
        : red(static_cast<std::uint8_t>(packed >> 16)),
          green(static_cast<std::uint8_t>(packed >> 8)), blue(static_cast<std::uint8_t>(packed)),
          alpha(static_cast<std::uint8_t>(packed >> 24)) {}

    constexpr bool operator==(const Color4b&) const = default;
};

}  // namespace shr
