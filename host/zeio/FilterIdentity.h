// The record by which a host recognises a filter. Its layout is part of the interface: 112 bytes
// with a UTF-16 name on every system.
//
// A filter class has one such record, which is constant and lives as long as the module is loaded.
#pragma once

#include <cstddef>
#include <cstdint>

namespace zeio {

enum class FilterKind : std::uint32_t { Import = 1, Export = 2 };

struct FilterIdentity {
    char tag[12];           // "$ZEIO_FILT$"
    std::uint32_t version;  // 100
    char16_t name[40];      // of the module, NUL-terminated and zero-padded
    FilterKind kind;
    std::uint8_t reserved[12];
};

static_assert(sizeof(FilterIdentity) == 112);
static_assert(offsetof(FilterIdentity, tag) == 0);
static_assert(offsetof(FilterIdentity, version) == 12);
static_assert(offsetof(FilterIdentity, name) == 16);
static_assert(offsetof(FilterIdentity, kind) == 96);
static_assert(offsetof(FilterIdentity, reserved) == 100);

}  // namespace zeio
