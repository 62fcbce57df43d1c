// Who receives what a pass over the objects of a .mif file finds.
#pragma once

#include "app/mif/MifHeader.h"
#include "app/mif/ObjectFacts.h"
#include "host/shr/Geometry.h"

#include <cstdint>
#include <span>
#include <string_view>

namespace app {

// What the points of a part are to their object.
enum class PartShape {
    Corners,  // of a box, or both ends of a Line
    Points,   // each for itself
    Section,  // of a line
    Outline,  // a ring of a region
};

// The coordinates of one part of an object.
struct ObjectPart {
    PartShape shape = PartShape::Points;
    std::span<const shr::Vec2d> points;
    std::uint64_t object = 0;     // 1-based; each part of a collection has a number of its own
    std::uint64_t line = 0;       // of the part's count, or of its keyword
    std::uint64_t firstLine = 0;  // of the first point; the others follow line by line
    std::span<const std::uint64_t> lines = {};  // of each point, where they do not
};

class PassSink {
public:
    PassSink() = default;
    virtual ~PassSink() = default;
    PassSink(const PassSink&) = delete;
    PassSink& operator=(const PassSink&) = delete;

    // Called once, before all else.
    virtual void TakeHeader(const MifHeader& /*header*/) {}

    // Called for each object in the order of the file; for a collection once, behind its members.
    virtual void Take(const ObjectFacts& /*object*/) {}

    // The bytes [begin, end) of the file are not for the module, which gets `text` in their place.
    // Calls come in order, and the ranges do not overlap.
    virtual void Cut(std::uint64_t /*begin*/, std::uint64_t /*end*/, std::string_view /*text*/) {}

    // Whether Take wants to know the coordinates of all objects; reading them takes time.
    virtual bool WantsPoints() const { return false; }
    virtual void TakePoints(const ObjectPart& /*part*/) {}
};

}  // namespace app
