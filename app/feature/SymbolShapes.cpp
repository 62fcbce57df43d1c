#include "app/feature/SymbolShapes.h"

#include <algorithm>
#include <array>

namespace app {
namespace {

using Point = shr::Vec2d;

constexpr double kSquareSize = 0.85;
constexpr std::array<Point, 4> kSquare{{{-kSquareSize, -kSquareSize},
                                        {kSquareSize, -kSquareSize},
                                        {kSquareSize, kSquareSize},
                                        {-kSquareSize, kSquareSize}}};
constexpr std::array<Point, 4> kDiamond{{{0.0, -1.0}, {1.0, 0.0}, {0.0, 1.0}, {-1.0, 0.0}}};
constexpr std::array<Point, 3> kTriangle{{{0.0, -1.0}, {1.0, 1.0}, {-1.0, 1.0}}};
constexpr std::array<Point, 3> kTriangleDown{{{0.0, 1.0}, {-1.0, -1.0}, {1.0, -1.0}}};

// Five corners on the unit circle, and five between them where their lines cross.
constexpr std::array<Point, 10> kStar{{{0.0, -1.0},
                                       {0.2245, -0.3090},
                                       {0.9511, -0.3090},
                                       {0.3633, 0.1180},
                                       {0.5878, 0.8090},
                                       {0.0, 0.3820},
                                       {-0.5878, 0.8090},
                                       {-0.3633, 0.1180},
                                       {-0.9511, -0.3090},
                                       {-0.2245, -0.3090}}};

constexpr double kArm = 0.2;
constexpr std::array<Point, 12> kPlus{{{-kArm, -1.0},
                                       {kArm, -1.0},
                                       {kArm, -kArm},
                                       {1.0, -kArm},
                                       {1.0, kArm},
                                       {kArm, kArm},
                                       {kArm, 1.0},
                                       {-kArm, 1.0},
                                       {-kArm, kArm},
                                       {-1.0, kArm},
                                       {-1.0, -kArm},
                                       {-kArm, -kArm}}};

constexpr double kHalfRoot = 0.70710678118654752;

// The point turned by half a right angle, clockwise to the eye.
constexpr Point Turned(const Point& point) {
    return {(point.x - point.y) * kHalfRoot, (point.x + point.y) * kHalfRoot};
}

template <std::size_t count>
constexpr std::array<Point, count> Turned(const std::array<Point, count>& outline) {
    std::array<Point, count> turned{};
    for (std::size_t i = 0; i < count; ++i) {
        turned[i] = Turned(outline[i]);
    }
    return turned;
}

template <std::size_t count>
constexpr std::array<Point, count> Opposite(const std::array<Point, count>& outline) {
    std::array<Point, count> opposite{};
    for (std::size_t i = 0; i < count; ++i) {
        opposite[i] = {-outline[i].x, -outline[i].y};
    }
    return opposite;
}

constexpr std::array<Point, 12> kSlantingCross = Turned(kPlus);
constexpr std::array<Point, 7> kArrow{{{0.0, -1.0},
                                       {0.5, -0.5},
                                       {0.25, -0.5},
                                       {0.25, 1.0},
                                       {-0.25, 1.0},
                                       {-0.25, -0.5},
                                       {-0.5, -0.5}}};
constexpr std::array<Point, 7> kArrowUpRight = Turned(kArrow);
constexpr std::array<Point, 7> kArrowDownLeft = Opposite(kArrowUpRight);

struct Row {
    int number;
    SymbolShape shape;
};
// clang-format off
constexpr std::array<Row, 19> kRows{{
    {32, {"square",               kSquare,        false, "square",     kSquareSize}},
    {33, {"diamond",              kDiamond,       false, "diamond"}},
    {34, {"circle",               {},             false, "circle"}},
    {35, {"star",                 kStar,          false, "star"}},
    {36, {"triangle up",          kTriangle,      false, "triangle"}},
    {37, {"triangle down",        kTriangleDown,  false, "triangle",   1.0, 180.0}},
    {38, {"hollow square",        kSquare,        true,  "square",     kSquareSize}},
    {39, {"hollow diamond",       kDiamond,       true,  "diamond"}},
    {40, {"hollow circle",        {},             true,  "circle"}},
    {41, {"hollow star",          kStar,          true,  "star"}},
    {42, {"hollow triangle up",   kTriangle,      true,  "triangle"}},
    {43, {"hollow triangle down", kTriangleDown,  true,  "triangle",   1.0, 180.0}},
    {44, {"square",               kSquare,        false, "square",     kSquareSize}},
    {45, {"triangle up",          kTriangle,      false, "triangle"}},
    {46, {"circle",               {},             false, "circle"}},
    {47, {"arrow up right",       kArrowUpRight,  false, "arrow",      1.0, 45.0}},
    {48, {"arrow down left",      kArrowDownLeft, false, "arrow",      1.0, 225.0}},
    {49, {"upright cross",        kPlus,          false, "cross_fill"}},
    {50, {"slanting cross",       kSlantingCross,         false, "cross_fill", 1.0, 45.0}},
}};
// clang-format on

constexpr SymbolShape kCircleShape{"circle", {}, false, "circle"};

}  // namespace

const SymbolShape& ShapeOf(int number) {
    const auto* const row = std::ranges::find(kRows, number, &Row::number);
    return row == kRows.end() ? kCircleShape : row->shape;
}

}  // namespace app
