#include "app/draw/MarkerGrid.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace app {

bool MarkerGrid::Take(const Marker& look, const PagePoint& at, PageSize page) {
    if (!(at.x >= 0.0 && at.x < page.width && at.y >= 0.0 && at.y < page.height)) {
        return true;
    }
    if (cellSize_ <= 0.0 || look != look_) {
        Restart(look, page);
    }
    const auto column = static_cast<std::size_t>(at.x / cellSize_);
    const auto row = static_cast<std::size_t>(at.y / cellSize_);
    std::uint32_t& cell = cells_[row * columns_ + column];
    const bool isFree = cell != round_;
    cell = round_;
    return isFree;
}

void MarkerGrid::Forget() {
    cellSize_ = 0.0;
}

void MarkerGrid::Restart(const Marker& look, PageSize page) {
    look_ = look;
    cellSize_ = std::max(look.diameter / 4.0, 1.0);
    columns_ = static_cast<std::size_t>(page.width / cellSize_) + 1;
    const std::size_t rows = static_cast<std::size_t>(page.height / cellSize_) + 1;
    if (cells_.size() < columns_ * rows || round_ == std::numeric_limits<std::uint32_t>::max()) {
        cells_.assign(std::max(cells_.size(), columns_ * rows), 0);
        round_ = 0;
    }
    ++round_;
}

}  // namespace app
