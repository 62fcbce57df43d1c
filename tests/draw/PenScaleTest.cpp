// Pens in pixels, as the file has them, from what an import makes of them.
#include "app/draw/PenScale.h"

#include "tests/draw/Picture.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace {

using app::PenScale;

zeio::TrPen RelativePen(double widthWorld) {
    zeio::TrPen pen(zeio::TrPen::Style::Solid, draw_test::kBlack, widthWorld);
    pen.isRelative = true;
    return pen;
}

struct ShareRow {
    std::string name;  // letters and digits
    double width;
    int pixels;
};

class AShareOfTheDiagonal : public testing::TestWithParam<ShareRow> {};

TEST_P(AShareOfTheDiagonal, StandsForThisManyPixels) {
    PenScale scale;
    scale.BeginLayer();
    scale.SetBounds({0.0, 0.0, 1920.0, 2560.0});  // a diagonal of 3200

    EXPECT_EQ(scale.Pixels(RelativePen(GetParam().width)), GetParam().pixels);
}

INSTANTIATE_TEST_SUITE_P(
    , AShareOfTheDiagonal,
    testing::Values(ShareRow{"None", 0.0, 1}, ShareRow{"A320th", 10.0, 2},
                    ShareRow{"A160th", 20.0, 3}, ShareRow{"An80th", 40.0, 4},
                    ShareRow{"A40th", 80.0, 5}, ShareRow{"A20th", 160.0, 6},
                    ShareRow{"ATenth", 320.0, 7}, ShareRow{"TheWhole", 3200.0, 7},
                    ShareRow{"AHair", 1e-9, 2}, ShareRow{"Negative", -1.0, 1},
                    ShareRow{"NoNumber", std::numeric_limits<double>::quiet_NaN(), 1}),
    [](const auto& row) { return row.param.name; });

TEST(PenScale, TakesTheObjectsSoFarWhereThereAreNoBounds) {
    PenScale scale;
    scale.BeginLayer();
    scale.Add(draw_test::Line({{0, 0}, {300, 400}}));

    EXPECT_EQ(scale.Pixels(RelativePen(500.0 / 80.0)), 4);
}

TEST(PenScale, TakesTheObjectsForBoundsWithoutSize) {
    PenScale scale;
    scale.BeginLayer();
    scale.SetBounds({5.0, 5.0, 5.0, 5.0});
    scale.Add(draw_test::Line({{0, 0}, {300, 400}}));

    EXPECT_EQ(scale.Pixels(RelativePen(500.0 / 40.0)), 5);
}

TEST(PenScale, ForgetsTheBoundsAndObjectsOfALayerBefore) {
    PenScale scale;
    scale.BeginLayer();
    scale.SetBounds({0.0, 0.0, 3e9, 4e9});
    scale.BeginLayer();
    scale.Add(draw_test::Line({{0, 0}, {300, 400}}));

    EXPECT_EQ(scale.Pixels(RelativePen(500.0 / 10.0)), 7);
}

TEST(PenScale, GivesAHairlineBeforeAnyObject) {
    EXPECT_EQ(PenScale().Pixels(RelativePen(10.0)), 1);
}

}  // namespace
