// Checks the objects behind the Data line of a .mif file.
#pragma once

#include "app/check/HeaderFacts.h"
#include "app/check/Report.h"
#include "app/mif/LineReader.h"

#include <cstdint>

namespace app::check {

// How many objects there are, counted in the ways that a .mid file can count its rows.
struct ObjectCounts {
    std::uint64_t objects = 0;      // as the reader pairs them: each part of a collection is one
    std::uint64_t collections = 0;  // collections outside of others
    std::uint64_t parts = 0;        // objects inside of collections
    std::uint64_t emptyTexts = 0;
};

// object is kept at the number of the object under check, for findings made elsewhere meanwhile.
ObjectCounts CheckObjects(LineReader& lines, Report& report, const CheckedHeader& header,
                          std::uint64_t& object);

}  // namespace app::check
