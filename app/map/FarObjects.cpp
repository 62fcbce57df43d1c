#include "app/map/FarObjects.h"

#include "app/map/MapExtent.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace app {

namespace {

constexpr std::size_t kLargestSample = 2048;
constexpr std::size_t kFewestObjects = 8;
constexpr std::size_t kTrimmedPart = 20;  // a twentieth of the sample at each end
constexpr double kNeighbourhood = 3.0;    // times the size of where most objects are, on each side
constexpr double kWorthSaying = 8.0;
constexpr double kMostTimes = 1e15;         // that are said
constexpr std::uint64_t kMostFarPart = 10;  // at most a tenth of the objects

shr::Vec2d MiddleOf(const shr::Box2d& box) {
    return {box.minX / 2.0 + box.maxX / 2.0, box.minY / 2.0 + box.maxY / 2.0};
}

bool Contains(const shr::Box2d& box, const shr::Vec2d& point) {
    return point.x >= box.minX && point.x <= box.maxX && point.y >= box.minY && point.y <= box.maxY;
}

double Times(double whole, double part) {
    return part > 0.0 ? whole / part : 1.0;
}

// Where the numbers lie but for a few at either end.
std::pair<double, double> Trimmed(std::vector<double> numbers) {
    std::ranges::sort(numbers);
    const std::size_t cut = std::max<std::size_t>(1, numbers.size() / kTrimmedPart);
    return {numbers[cut], numbers[numbers.size() - 1 - cut]};
}

}  // namespace

std::string NoteOf(const FarObjectsFound& far) {
    const bool isWide = far.timesAsWide >= far.timesAsHigh;
    const double times = std::min(isWide ? far.timesAsWide : far.timesAsHigh, kMostTimes);
    const std::string objects =
        far.count == 1 ? "1 object makes" : std::to_string(far.count) + " objects make";
    return objects + " the map " + std::to_string(std::llround(times)) + " times as " +
           (isWide ? "wide" : "high") + "; --bbox " + CornersOf(far.rest) + " shows the rest";
}

void FarObjects::Add(const shr::Box2d& box) {
    if (++skipped_ < stride_) {
        return;
    }
    skipped_ = 0;
    sample_.push_back(MiddleOf(box));
    if (sample_.size() == kLargestSample) {
        for (std::size_t i = 0; i < kLargestSample / 2; ++i) {
            sample_[i] = sample_[2 * i];
        }
        sample_.resize(kLargestSample / 2);
        stride_ *= 2;
    }
}

std::optional<shr::Box2d> FarObjects::MostlyWithin() const {
    if (sample_.size() < kFewestObjects) {
        return std::nullopt;
    }
    std::vector<double> x;
    std::vector<double> y;
    for (const shr::Vec2d& middle : sample_) {
        x.push_back(middle.x);
        y.push_back(middle.y);
    }
    const auto [minX, maxX] = Trimmed(std::move(x));
    const auto [minY, maxY] = Trimmed(std::move(y));
    const double around = std::max(maxX - minX, maxY - minY) * kNeighbourhood;
    return shr::Box2d{minX - around, minY - around, maxX + around, maxY + around};
}

std::optional<FarObjectsFound> FarObjects::Find(const shr::Box2d& extent,
                                                const Boxes& boxes) const {
    const std::optional<shr::Box2d> most = MostlyWithin();
    if (!most || (Contains(*most, {extent.minX, extent.minY}) &&
                  Contains(*most, {extent.maxX, extent.maxY}))) {
        return std::nullopt;
    }
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    FarObjectsFound found;
    found.rest = {kInfinity, kInfinity, -kInfinity, -kInfinity};
    std::uint64_t total = 0;
    boxes([&](const shr::Box2d& box) {
        ++total;
        if (!Contains(*most, MiddleOf(box))) {
            ++found.count;
            return;
        }
        found.rest = {std::min(found.rest.minX, box.minX), std::min(found.rest.minY, box.minY),
                      std::max(found.rest.maxX, box.maxX), std::max(found.rest.maxY, box.maxY)};
    });
    if (found.count == 0 || found.count * kMostFarPart > total || found.rest.IsEmpty()) {
        return std::nullopt;
    }
    found.timesAsWide = Times(extent.maxX - extent.minX, found.rest.maxX - found.rest.minX);
    found.timesAsHigh = Times(extent.maxY - extent.minY, found.rest.maxY - found.rest.minY);
    if (std::max(found.timesAsWide, found.timesAsHigh) < kWorthSaying) {
        return std::nullopt;
    }
    return found;
}

}  // namespace app
