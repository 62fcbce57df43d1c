// Which symbols are left out because one like them was drawn there already.
#include "app/draw/MarkerGrid.h"

#include "tests/draw/Picture.h"

#include <gtest/gtest.h>

namespace {

constexpr app::PageSize kPage{100, 100};

app::Marker Dot(const shr::Color4b& color, double diameter) {
    app::Marker look;
    look.color = color;
    look.diameter = diameter;
    return look;
}

const app::Marker kRedDot = Dot(draw_test::kRed, 8.0);
const app::Marker kBlueDot = Dot(draw_test::kBlue, 8.0);

TEST(MarkerGrid, RefusesASecondSymbolOnTheSamePlace) {
    app::MarkerGrid grid;

    EXPECT_TRUE(grid.Take(kRedDot, {50.1, 50.1}, kPage));
    EXPECT_FALSE(grid.Take(kRedDot, {50.2, 50.3}, kPage));
}

TEST(MarkerGrid, TakesASymbolMoreThanAQuarterOfItsDiameterAway) {
    app::MarkerGrid grid;

    EXPECT_TRUE(grid.Take(kRedDot, {50, 50}, kPage));
    EXPECT_TRUE(grid.Take(kRedDot, {52.1, 50}, kPage));
    EXPECT_TRUE(grid.Take(kRedDot, {50, 52.1}, kPage));
}

TEST(MarkerGrid, TakesASymbolOfAnotherLookOnTheSamePlace) {
    app::MarkerGrid grid;

    EXPECT_TRUE(grid.Take(kRedDot, {50, 50}, kPage));
    EXPECT_TRUE(grid.Take(kBlueDot, {50, 50}, kPage));
    EXPECT_TRUE(grid.Take(kRedDot, {50, 50}, kPage));
}

TEST(MarkerGrid, TakesASymbolAgainAfterSomethingWasDrawnOverIt) {
    app::MarkerGrid grid;

    EXPECT_TRUE(grid.Take(kRedDot, {50, 50}, kPage));
    grid.Forget();
    EXPECT_TRUE(grid.Take(kRedDot, {50, 50}, kPage));
}

TEST(MarkerGrid, TakesEverySymbolOffThePage) {
    app::MarkerGrid grid;

    EXPECT_TRUE(grid.Take(kRedDot, {-1, 50}, kPage));
    EXPECT_TRUE(grid.Take(kRedDot, {-1, 50}, kPage));
    EXPECT_TRUE(grid.Take(kRedDot, {100, 100}, kPage));
    EXPECT_TRUE(grid.Take(kRedDot, {100, 100}, kPage));
}

TEST(MarkerGrid, KnowsTheLastPixelOfThePage) {
    app::MarkerGrid grid;

    EXPECT_TRUE(grid.Take(kRedDot, {99.999, 99.999}, kPage));
    EXPECT_FALSE(grid.Take(kRedDot, {99.999, 99.999}, kPage));
    EXPECT_TRUE(grid.Take(kRedDot, {0, 0}, kPage));
}

TEST(MarkerGrid, GrowsWithAFinerLook) {
    app::MarkerGrid grid;
    const app::Marker small = Dot(draw_test::kRed, 3.0);

    EXPECT_TRUE(grid.Take(kRedDot, {99, 99}, kPage));
    EXPECT_TRUE(grid.Take(small, {99, 99}, kPage));
    EXPECT_FALSE(grid.Take(small, {99, 99}, kPage));
}

TEST(Symbols, StandOnTopOfAnAreaDrawnBetweenThem) {
    draw_test::RasterPicture picture;
    const app::Geometry symbol =
        draw_test::Points({{50, 50}}, draw_test::Symbol(34, draw_test::kRed, 15));
    picture.Add(symbol);
    picture.Add(draw_test::Rectangle({10, 10, 90, 90}, draw_test::Area(draw_test::kGreen)));

    picture.Add(symbol);

    EXPECT_EQ(picture.At(50, 50), draw_test::kRed);
    EXPECT_EQ(picture.At(20, 50), draw_test::kGreen);
}

}  // namespace
