// The table of the numbered symbols.
#include "app/feature/SymbolShapes.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

namespace {

struct ShapeRow {
    int number;
    std::string name;
    std::size_t corners;
    bool isHollow;
};
class NumberedSymbol : public testing::TestWithParam<ShapeRow> {};

TEST_P(NumberedSymbol, HasThisShape) {
    const app::SymbolShape& shape = app::ShapeOf(GetParam().number);

    EXPECT_EQ(shape.name, GetParam().name);
    EXPECT_EQ(shape.outline.size(), GetParam().corners);
    EXPECT_EQ(shape.isHollow, GetParam().isHollow);
}

INSTANTIATE_TEST_SUITE_P(
    , NumberedSymbol,
    testing::Values(ShapeRow{32, "square", 4, false}, ShapeRow{33, "diamond", 4, false},
                    ShapeRow{34, "circle", 0, false}, ShapeRow{35, "star", 10, false},
                    ShapeRow{36, "triangle up", 3, false}, ShapeRow{37, "triangle down", 3, false},
                    ShapeRow{38, "hollow square", 4, true}, ShapeRow{39, "hollow diamond", 4, true},
                    ShapeRow{40, "hollow circle", 0, true}, ShapeRow{41, "hollow star", 10, true},
                    ShapeRow{42, "hollow triangle up", 3, true},
                    ShapeRow{43, "hollow triangle down", 3, true},
                    ShapeRow{49, "upright cross", 12, false},
                    ShapeRow{50, "slanting cross", 12, false}),
    [](const auto& row) { return "Number" + std::to_string(row.param.number); });

TEST(ShapeOf, IsACircleForNumbersBeyondTheSet) {
    for (const int number : {-1, 0, 51, 67, 200, std::numeric_limits<int>::max()}) {
        EXPECT_EQ(app::ShapeOf(number).name, "circle") << number;
    }
}

TEST(ShapeOf, StaysInItsSquare) {
    for (int number = 31; number <= 67; ++number) {
        for (const shr::Vec2d& corner : app::ShapeOf(number).outline) {
            EXPECT_LE(std::hypot(corner.x, corner.y), std::sqrt(2.0) + 1e-9) << number;
        }
    }
}

TEST(ShapeOf, HasTriangleUpPointingUp) {
    EXPECT_LT(app::ShapeOf(36).outline.front().y, 0.0);  // y is downwards
    EXPECT_GT(app::ShapeOf(37).outline.front().y, 0.0);
}

}  // namespace
