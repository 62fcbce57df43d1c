// Finds out whether a few objects far from all others make a map many times as wide.
#pragma once

#include "host/shr/Geometry.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace app {

// What there is to say of far objects.
struct FarObjectsFound {
    std::uint64_t count = 0;
    double timesAsWide = 1.0;  // the whole map against the rest
    double timesAsHigh = 1.0;
    shr::Box2d rest;  // of the other objects
};

// Says how to see the rest: "3 objects make the map 40 times as wide; --bbox ... shows the rest".
std::string NoteOf(const FarObjectsFound& far);

class FarObjects {
public:
    // An object's box, which is not empty.
    void Add(const shr::Box2d& box);

    // Hands the boxes of all objects to the function that it is given, once more.
    using Boxes = std::function<void(const std::function<void(const shr::Box2d&)>&)>;

    // Looks at all boxes again when `extent`, that of all, is much larger than where most objects
    // are. Absent when there are no far objects, or more than a few.
    std::optional<FarObjectsFound> Find(const shr::Box2d& extent, const Boxes& boxes) const;

private:
    std::optional<shr::Box2d> MostlyWithin() const;

    std::vector<shr::Vec2d> sample_;  // middles of every stride_-th box
    std::size_t stride_ = 1;
    std::size_t skipped_ = 0;  // since the last one of the sample
};

}  // namespace app
