// Styles there and back between MIF's terms and the host's objects.
#include "app/feature/ObjectStyles.h"

#include <gtest/gtest.h>

namespace {

using app::Brush;
using app::Pen;

constexpr double kDiagonal = 3200.0;

class APenWidth : public testing::TestWithParam<int> {};

TEST_P(APenWidth, IsTheSameCodeAfterTheObject) {
    const Pen pen{GetParam(), 2, 0x123456};

    EXPECT_EQ(app::PenOf(app::ObjectOf(pen, kDiagonal), kDiagonal), pen);
}

INSTANTIATE_TEST_SUITE_P(, APenWidth, testing::Values(1, 2, 3, 4, 5, 6, 7, 11, 15, 100, 2047));

TEST(PenOf, GradesAWidthInWorldUnitsByTheDiagonal) {
    const zeio::TrPen pen(zeio::TrPen::Style::Solid, {0, 0, 255, 255}, kDiagonal / 80.0);

    EXPECT_EQ(app::PenOf(pen, kDiagonal), (Pen{4, 2, 255}));
}

TEST(PenOf, TakesOnePixelWithoutADiagonal) {
    const zeio::TrPen pen(zeio::TrPen::Style::Solid, {0, 0, 0, 255}, 10.0);

    EXPECT_EQ(app::PenOf(pen, 0.0).width, 1);
}

class APenPattern : public testing::TestWithParam<int> {};

TEST_P(APenPattern, IsTheSameCodeAfterTheObject) {
    const Pen pen{1, GetParam(), 0};

    EXPECT_EQ(app::PenOf(app::ObjectOf(pen, kDiagonal), kDiagonal), pen);
}

INSTANTIATE_TEST_SUITE_P(, APenPattern, testing::Values(1, 2, 3, 5, 14, 20));

class AFillPattern : public testing::TestWithParam<int> {};

TEST_P(AFillPattern, IsTheSameCodeAfterTheObject) {
    const Brush brush{GetParam(), 0xFF0000, 0x00FF00};

    EXPECT_EQ(app::BrushOf(app::ObjectOf(brush)), brush);
}

INSTANTIATE_TEST_SUITE_P(, AFillPattern, testing::Range(1, 9));

TEST(ObjectOf, TakesAFillPatternThatTheModuleDoesNotKnowAsSolid) {
    EXPECT_EQ(app::ObjectOf(Brush{44, 0, {}}).pattern, zeio::TrBrush::Pattern::Solid);
}

TEST(BrushOf, HasNoBackColourForATransparentOne) {
    EXPECT_FALSE(app::BrushOf(app::ObjectOf(Brush{3, 0, {}})).back.has_value());
}

TEST(FontFlags, AreTheSameStyleBitsAgain) {
    for (int bits = 0; bits < 8; ++bits) {
        EXPECT_EQ(app::FontStyleBits(app::FontFlags(bits)), bits);
    }
}

}  // namespace
