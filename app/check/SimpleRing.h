// A quick test that clears most rings of crossing themselves.
#pragma once

#include "host/shr/Geometry.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace app {

// Knows most rings by looking around from their middle. Sorts the edges of the others into the
// cells of a grid, and looks at those that share a cell. Takes time and memory in proportion to the
// vertices, and gives up where that would not do.
class SimpleRing {
public:
    // True when the ring, closed if it is not, certainly neither crosses nor touches itself. False:
    // it may, and a slower test has to tell.
    bool IsSimple(std::span<const shr::Vec2d> ring);

private:
    // The cells that an edge may cross: those of the box around it.
    struct Cells {
        std::uint32_t minX, minY, maxX, maxY;
    };

    bool TakePoints(std::span<const shr::Vec2d> ring);
    bool IsStarShaped() const;
    bool AreNeighboursApart() const;
    bool AreAllApart() const;
    bool SortIntoCells();
    void FillCells();
    bool AreApartInCells();
    bool AreApart(std::size_t first, std::size_t second) const;
    std::size_t EdgeCount() const { return points_.size() - 1; }

    std::vector<shr::Vec2d> points_;    // without repeats; the first one is the last one, too
    std::vector<Cells> cellsOf_;        // by edge
    std::vector<std::uint32_t> ends_;   // by cell: where its edges end in edges_
    std::vector<std::uint32_t> edges_;  // cell after cell
    std::uint32_t columns_ = 0;
    std::uint32_t rows_ = 0;
};

}  // namespace app
