// Counts the objects of a MIF file.
#pragma once

#include "app/feature/Feature.h"
#include "app/mif/MifHeader.h"
#include "app/mif/PassSink.h"

#include <cstdint>
#include <optional>

namespace app {

// How many objects a file has, by kind.
struct ObjectCounts {
    std::uint64_t points = 0;  // also those of several positions, which are counted as vertices
    std::uint64_t lines = 0;
    std::uint64_t regions = 0;
    std::uint64_t rectangles = 0;
    std::uint64_t ellipses = 0;
    std::uint64_t arcs = 0;
    std::uint64_t texts = 0;
    std::uint64_t collections = 0;      // with all that they hold
    std::uint64_t withoutPlace = 0;     // None objects
    std::uint64_t vertices = 0;         // of points, lines, regions and texts
    std::optional<shr::Box2d> extent;   // of all vertices and boxes; absent without any
    std::optional<std::uint64_t> rows;  // of the .mid file; absent without one

    std::uint64_t Objects() const {
        return points + lines + regions + rectangles + ellipses + arcs + texts + collections +
               withoutPlace;
    }
};

// Counts what is in the file: the sink of a pass over it (PairPass.h).
class ObjectCounter : public PassSink {
public:
    void TakeHeader(const MifHeader& header) override { transform_ = header.transform; }
    void Take(const ObjectFacts& object) override;
    bool WantsPoints() const override { return true; }
    void TakePoints(const ObjectPart& part) override;

    // After the pass; without the rows, which the pass itself returns.
    ObjectCounts Counts() const;

private:
    void CountVertices(const ObjectFacts& object);

    std::optional<Transform> transform_;
    ObjectCounts counts_;
};

// Counts what the module hands over, for --as-is.
class FeatureCounter {
public:
    void Take(const Feature& feature);
    const ObjectCounts& Counts() const { return counts_; }

private:
    ObjectCounts counts_;
};

}  // namespace app
