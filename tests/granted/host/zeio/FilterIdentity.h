// The record of 112 bytes that slot 1 gives.
#pragma once

#include <cstdint>

namespace zeio {

enum class FilterKind : std::uint32_t { Import = 1, Export = 2 };

struct FilterIdentity {
    char tag[12];
    std::uint32_t version;
    char16_t name[40];
    FilterKind kind;
    std::uint8_t reserved[12];
};

}  // namespace zeio
