// Remembers where symbols of one look were drawn, so that a million points do not become a million
// symbols on top of each other.
#pragma once

#include "app/draw/Viewport.h"
#include "app/feature/DrawnStyle.h"

#include <cstdint>
#include <vector>

namespace app {

class MarkerGrid {
public:
    // True when no symbol of this look was drawn within about a quarter of its diameter, since the
    // last one of another look or the last Forget; it does from now on. Places off the page are
    // always free.
    bool Take(const Marker& look, const PagePoint& at, PageSize page);

    // Something was drawn over the symbols so far.
    void Forget();

private:
    void Restart(const Marker& look, PageSize page);

    Marker look_;
    double cellSize_ = 0.0;  // pixels; 0: nothing taken since Forget
    std::size_t columns_ = 0;
    std::uint32_t round_ = 0;           // cells of an earlier round are free
    std::vector<std::uint32_t> cells_;  // the round in which each was taken, row by row
};

}  // namespace app
