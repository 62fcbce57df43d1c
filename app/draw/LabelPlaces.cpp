#include "app/draw/LabelPlaces.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <utility>

namespace app {

namespace {

constexpr double kCellSize = 3.0;  // pixels
constexpr double kGap = 2.0;       // between a symbol and its label

// Along a line the same text comes again after so many pixels.
constexpr double kRepeatDistance = 200.0;

// A line is straight enough for a label where its ends are at least so far apart.
constexpr double kStraight = 0.95;

constexpr int kScanLines = 15;

PageBox BoxAround(const PagePoint& middle, LabelSize size) {
    return {middle.x - size.width / 2.0, middle.y - size.height / 2.0, middle.x + size.width / 2.0,
            middle.y + size.height / 2.0};
}

struct Interval {
    double left = 0.0;
    double right = 0.0;

    double Length() const { return right - left; }
};

// The parts of a horizontal line that an odd number of rings encloses.
std::vector<Interval> InsideAt(const std::vector<PagePath>& rings, double y) {
    std::vector<double> crossings;
    for (const PagePath& ring : rings) {
        for (std::size_t i = 0; i < ring.size(); ++i) {
            const PagePoint& from = ring[i];
            const PagePoint& to = ring[i + 1 == ring.size() ? 0 : i + 1];
            if ((from.y <= y) != (to.y <= y)) {
                crossings.push_back(from.x + (to.x - from.x) * ((y - from.y) / (to.y - from.y)));
            }
        }
    }
    std::ranges::sort(crossings);
    std::vector<Interval> inside;
    for (std::size_t i = 1; i < crossings.size(); i += 2) {
        inside.push_back({crossings[i - 1], crossings[i]});
    }
    return inside;
}

// The parts that both have.
std::vector<Interval> Common(const std::vector<Interval>& left,
                             const std::vector<Interval>& right) {
    std::vector<Interval> common;
    for (const Interval& a : left) {
        for (const Interval& b : right) {
            const Interval both{std::max(a.left, b.left), std::min(a.right, b.right)};
            if (both.Length() > 0.0) {
                common.push_back(both);
            }
        }
    }
    return common;
}

// A path by the distance from its start.
class Walk {
public:
    explicit Walk(const PagePath& path) : path_(path) {
        distances_.push_back(0.0);
        for (std::size_t i = 1; i < path.size(); ++i) {
            distances_.push_back(distances_.back() +
                                 std::hypot(path[i].x - path[i - 1].x, path[i].y - path[i - 1].y));
        }
    }

    double Length() const { return distances_.back(); }

    PagePoint At(double distance) const {
        const auto next = std::ranges::upper_bound(distances_, distance);
        if (next == distances_.end()) {
            return path_.back();
        }
        const auto i = static_cast<std::size_t>(next - distances_.begin());
        const double part = (distance - distances_[i - 1]) / (distances_[i] - distances_[i - 1]);
        return {path_[i - 1].x + (path_[i].x - path_[i - 1].x) * part,
                path_[i - 1].y + (path_[i].y - path_[i - 1].y) * part};
    }

private:
    const PagePath& path_;
    std::vector<double> distances_;
};

double UprightAngle(const PagePoint& from, const PagePoint& to) {
    const double angle = std::atan2(to.y - from.y, to.x - from.x);
    if (angle > std::numbers::pi / 2.0) {
        return angle - std::numbers::pi;
    }
    return angle < -std::numbers::pi / 2.0 ? angle + std::numbers::pi : angle;
}

// Squares as high as the label, one beside the other, that together cover its turned box.
std::vector<PageBox> SquaresOf(const LabelPlace& place, LabelSize size) {
    constexpr int kMostSquares = 1000;
    const PagePoint along{std::cos(place.angle), std::sin(place.angle)};
    const double reach = std::max(size.width - size.height, 0.0) / 2.0;
    const double wanted = std::ceil(2.0 * reach / std::max(size.height, 1.0));
    const int steps = static_cast<int>(std::clamp<double>(wanted, 1, kMostSquares));
    std::vector<PageBox> boxes;
    for (int i = 0; i <= steps; ++i) {
        const double at = -reach + 2.0 * reach * i / steps;
        boxes.push_back(BoxAround({place.middle.x + along.x * at, place.middle.y + along.y * at},
                                  {size.height, size.height}));
    }
    return boxes;
}

}  // namespace

TakenCells::TakenCells(PageSize page)
    : page_(page), columns_(static_cast<std::size_t>(page.width / kCellSize) + 1),
      rows_(static_cast<std::size_t>(page.height / kCellSize) + 1), cells_(columns_ * rows_) {}

TakenCells::Range TakenCells::RangeOf(const PageBox& box) const {
    const auto cell = [](double at, std::size_t count) {
        return static_cast<std::size_t>(
            std::clamp(at / kCellSize, 0.0, static_cast<double>(count - 1)));
    };
    return {cell(box.left, columns_), cell(box.top, rows_), cell(box.right, columns_),
            cell(box.bottom, rows_)};
}

bool TakenCells::IsFree(const PageBox& box) const {
    if (!(box.left >= 0.0 && box.top >= 0.0 && box.right <= page_.width &&
          box.bottom <= page_.height)) {
        return false;
    }
    const Range range = RangeOf(box);
    for (std::size_t row = range.top; row <= range.bottom; ++row) {
        const auto begin = cells_.begin() + static_cast<std::ptrdiff_t>(row * columns_);
        if (std::find(begin + static_cast<std::ptrdiff_t>(range.left),
                      begin + static_cast<std::ptrdiff_t>(range.right) + 1,
                      1) != begin + static_cast<std::ptrdiff_t>(range.right) + 1) {
            return false;
        }
    }
    return true;
}

void TakenCells::Take(const PageBox& box) {
    if (box.right < 0.0 || box.bottom < 0.0 || box.left > page_.width || box.top > page_.height) {
        return;
    }
    const Range range = RangeOf(box);
    for (std::size_t row = range.top; row <= range.bottom; ++row) {
        const auto begin = cells_.begin() + static_cast<std::ptrdiff_t>(row * columns_);
        std::fill(begin + static_cast<std::ptrdiff_t>(range.left),
                  begin + static_cast<std::ptrdiff_t>(range.right) + 1, std::uint8_t{1});
    }
}

std::optional<LabelPlace> LabelPlaces::AroundPoint(const PagePoint& point, double reach,
                                                   LabelSize size) {
    const double x = reach + kGap + size.width / 2.0;
    const double y = reach + size.height / 2.0;
    const double near = reach * 0.7;  // of the places between two sides
    const double nearX = near + kGap + size.width / 2.0;
    const double nearY = near + size.height / 2.0;
    const std::array<PagePoint, 8> places{{{point.x + x, point.y},
                                           {point.x + nearX, point.y - nearY},
                                           {point.x + nearX, point.y + nearY},
                                           {point.x - x, point.y},
                                           {point.x - nearX, point.y - nearY},
                                           {point.x - nearX, point.y + nearY},
                                           {point.x, point.y - y},
                                           {point.x, point.y + y}}};
    for (const bool avoidsSymbols : {true, false}) {
        for (const PagePoint& middle : places) {
            const PageBox box = BoxAround(middle, size);
            if (labels_.IsFree(box) && (!avoidsSymbols || symbols_.IsFree(box))) {
                labels_.Take(box);
                return LabelPlace{middle, 0.0};
            }
        }
    }
    return std::nullopt;
}

std::optional<LabelPlace> LabelPlaces::AlongLine(const PagePath& line, LabelSize size,
                                                 const std::string& text) {
    if (line.size() < 2) {
        return std::nullopt;
    }
    const Walk walk(line);
    for (const double part : {0.5, 0.35, 0.65, 0.2, 0.8}) {
        const double begin = walk.Length() * part - size.width / 2.0;
        if (begin < 0.0 || begin + size.width > walk.Length()) {
            continue;
        }
        const PagePoint from = walk.At(begin);
        const PagePoint to = walk.At(begin + size.width);
        const LabelPlace place{{(from.x + to.x) / 2.0, (from.y + to.y) / 2.0},
                               UprightAngle(from, to)};
        const bool isStraight = std::hypot(to.x - from.x, to.y - from.y) >= kStraight * size.width;
        if (isStraight && !IsNearSameText(text, place.middle) && TakeTurned(place, size)) {
            onLines_[text].push_back(place.middle);
            return place;
        }
    }
    return std::nullopt;
}

bool LabelPlaces::IsNearSameText(const std::string& text, const PagePoint& at) const {
    const auto same = onLines_.find(text);
    return same != onLines_.end() &&
           std::ranges::any_of(same->second, [&at](const PagePoint& other) {
               return std::hypot(other.x - at.x, other.y - at.y) < kRepeatDistance;
           });
}

void LabelPlaces::Block(const LabelPlace& place, LabelSize size) {
    for (const PageBox& box : SquaresOf(place, size)) {
        labels_.Take(box);
    }
}

bool LabelPlaces::TakeTurned(const LabelPlace& place, LabelSize size) {
    if (!std::ranges::all_of(SquaresOf(place, size),
                             [this](const PageBox& box) { return labels_.IsFree(box); })) {
        return false;
    }
    Block(place, size);
    return true;
}

std::optional<LabelPlace> LabelPlaces::InsideArea(const std::vector<PagePath>& rings,
                                                  LabelSize size) {
    const PageBox page = BoxOf(page_);
    double top = page.bottom;
    double bottom = page.top;
    for (const PagePath& ring : rings) {
        const PageBox bounds = BoundsOf(ring);
        top = std::min(top, bounds.top);
        bottom = std::max(bottom, bounds.bottom);
    }
    top = std::max(top, page.top);
    bottom = std::min(bottom, page.bottom);
    if (bottom - top < size.height) {
        return std::nullopt;
    }
    std::vector<std::pair<double, PagePoint>> found;  // by width
    for (int i = 1; i < kScanLines; ++i) {
        const double y = top + (bottom - top) * i / kScanLines;
        const double half = size.height / 2.0;
        for (Interval inside : Common(Common(InsideAt(rings, y - half), InsideAt(rings, y + half)),
                                      InsideAt(rings, y))) {
            inside = {std::max(inside.left, page.left), std::min(inside.right, page.right)};
            if (inside.Length() >= size.width) {
                found.push_back({inside.Length(), {(inside.left + inside.right) / 2.0, y}});
            }
        }
    }
    std::ranges::stable_sort(found, std::ranges::greater(),
                             [](const auto& place) { return place.first; });
    for (const auto& [width, middle] : found) {
        const PageBox box = BoxAround(middle, size);
        if (labels_.IsFree(box)) {
            labels_.Take(box);
            return LabelPlace{middle, 0.0};
        }
    }
    return std::nullopt;
}

}  // namespace app
