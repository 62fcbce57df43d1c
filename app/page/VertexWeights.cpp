#include "app/page/VertexWeights.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <functional>
#include <limits>
#include <numeric>
#include <queue>
#include <utility>

namespace app {

namespace {

constexpr float kInfinite = std::numeric_limits<float>::infinity();

// Takes vertices away, the one with the smallest triangle first.
class Thinning {
public:
    explicit Thinning(std::span<const shr::Vec2d> points)
        : points_(points), before_(points.size()), behind_(points.size()),
          areas_(points.size(), -1.0), weights_(points.size(), kInfinite) {
        for (std::size_t i = 0; i < points.size(); ++i) {
            before_[i] = i == 0 ? points.size() - 1 : i - 1;
            behind_[i] = i + 1 == points.size() ? 0 : i + 1;
        }
    }

    // `first` to `last` may go, until `fewest` of all vertices are left.
    std::vector<float> Run(std::size_t first, std::size_t last, std::size_t fewest) {
        first_ = first;
        last_ = last;
        for (std::size_t i = first; i < last; ++i) {
            Weigh(i);
        }
        std::size_t left = points_.size();
        double heaviest = 0.0;
        while (left > fewest && !waiting_.empty()) {
            const auto [area, at] = waiting_.top();
            waiting_.pop();
            if (area != areas_[at]) {
                continue;  // a neighbour went since, and it was weighed again
            }
            heaviest = std::max(heaviest, area);
            weights_[at] = static_cast<float>(std::sqrt(heaviest));
            areas_[at] = -1.0;
            behind_[before_[at]] = behind_[at];
            before_[behind_[at]] = before_[at];
            --left;
            Weigh(before_[at]);
            Weigh(behind_[at]);
        }
        return std::move(weights_);
    }

private:
    void Weigh(std::size_t at) {
        if (at < first_ || at >= last_) {
            return;
        }
        const shr::Vec2d& here = points_[at];
        const shr::Vec2d& from = points_[before_[at]];
        const shr::Vec2d& to = points_[behind_[at]];
        areas_[at] =
            std::abs((from.x - here.x) * (to.y - here.y) - (to.x - here.x) * (from.y - here.y)) /
            2.0;
        waiting_.push({areas_[at], at});
    }

    using Entry = std::pair<double, std::size_t>;

    std::span<const shr::Vec2d> points_;
    std::vector<std::size_t> before_;
    std::vector<std::size_t> behind_;
    std::vector<double> areas_;  // negative once the vertex is gone
    std::vector<float> weights_;
    std::size_t first_ = 0;
    std::size_t last_ = 0;
    std::priority_queue<Entry, std::vector<Entry>, std::greater<>> waiting_;
};

}  // namespace

std::vector<float> WeightsOfLine(std::span<const shr::Vec2d> points) {
    if (points.size() <= 2) {
        return std::vector<float>(points.size(), kInfinite);
    }
    return Thinning(points).Run(1, points.size() - 1, 2);
}

std::vector<float> WeightsOfRing(std::span<const shr::Vec2d> points) {
    if (points.size() <= 3) {
        return std::vector<float>(points.size(), kInfinite);
    }
    return Thinning(points).Run(0, points.size(), 3);
}

}  // namespace app
