// What lines, areas and shapes look like, read off the pixels of small pictures.
#include "tests/draw/Picture.h"

#include <gtest/gtest.h>

#include <cstring>
#include <limits>
#include <random>

namespace {

using namespace draw_test;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(Polygon, IsFilledInside) {
    RasterPicture picture;

    picture.Add(Polygon({Square(20, 80)}, Area(kRed)));

    EXPECT_EQ(picture.At(50, 50), kRed);
    EXPECT_EQ(picture.At(10, 50), kWhite);
    EXPECT_EQ(picture.InkedPixels(), 60 * 60);
}

TEST(Polygon, HasAHoleWhereARingLiesInAnother) {
    RasterPicture picture;

    picture.Add(Polygon({Square(10, 90), Square(30, 70)}, Area(kRed)));

    EXPECT_EQ(picture.At(20, 50), kRed);
    EXPECT_EQ(picture.At(50, 50), kWhite);
}

TEST(Polygon, HasAnIslandWhereARingLiesInAHole) {
    RasterPicture picture;

    picture.Add(Polygon({Square(10, 90), Square(30, 70), Square(45, 55)}, Area(kRed)));

    EXPECT_EQ(picture.At(40, 50), kWhite);
    EXPECT_EQ(picture.At(50, 50), kRed);
}

TEST(Polygon, HasItsOutlineOverItsArea) {
    RasterPicture picture;

    picture.Add(Polygon({Square(20, 80)}, Pen(kBlue, 4) + Brush(2, kRed)));

    EXPECT_EQ(picture.At(20, 50), kBlue);
    EXPECT_EQ(picture.At(50, 50), kRed);
}

TEST(Polygon, IsOnlyAnOutlineUnderABrushOfNothing) {
    RasterPicture picture;

    picture.Add(Polygon({Square(20, 80)}, Pen(kBlue, 2) + Brush(1, kRed)));

    EXPECT_EQ(picture.At(50, 50), kWhite);
    EXPECT_EQ(picture.At(20, 50), kBlue);
}

TEST(Polygon, OfHatchLinesHasWhiteBetweenThem) {
    RasterPicture picture;

    picture.Add(Polygon({Square(10, 90)}, NoPen() + Brush(3, kBlack)));

    EXPECT_GE(picture.InkedPixelsInColumn(50), 10);
    EXPECT_LE(picture.InkedPixelsInColumn(50), 14);
    EXPECT_EQ(picture.InkedPixelsInColumn(5), 0);
    EXPECT_EQ(picture.InkedPixelsInRow(5), 0);
}

TEST(Polygon, OfHatchLinesHasTheBackColourBetweenThem) {
    RasterPicture picture;

    picture.Add(Polygon({Square(10, 90)}, NoPen() + Brush(4, kBlack, kGreen)));

    EXPECT_EQ(picture.InkedPixels(), 80 * 80);
    EXPECT_EQ(picture.InkedPixelsInRow(50), 80);
}

struct HatchRow {
    std::string name;
    int pattern;
    int fewest;
    int most;
};
class Hatch : public testing::TestWithParam<HatchRow> {};

TEST_P(Hatch, CoversAsMuchOfTheAreaAsItsLines) {
    RasterPicture picture;

    picture.Add(Polygon({Square(10, 90)}, NoPen() + Brush(GetParam().pattern, kBlack)));

    EXPECT_GE(picture.InkedPixels(), GetParam().fewest);
    EXPECT_LE(picture.InkedPixels(), GetParam().most);
}

INSTANTIATE_TEST_SUITE_P(
    , Hatch,
    testing::Values(HatchRow{"Nothing", 1, 0, 0}, HatchRow{"Solid", 2, 6400, 6400},
                    HatchRow{"Horizontal", 3, 800, 1100}, HatchRow{"Vertical", 4, 800, 1100},
                    HatchRow{"Falling", 5, 900, 3000}, HatchRow{"Rising", 6, 900, 3000},
                    HatchRow{"Cross", 7, 1500, 2100}, HatchRow{"DiagonalCross", 8, 1800, 5000},
                    HatchRow{"Bitmap", 44, 6400, 6400}),
    [](const auto& row) { return row.param.name; });

TEST(Tint, IsTheForeColourThinnedOverTheBackColour) {
    RasterPicture picture;

    picture.Add(Polygon({Square(10, 90)}, NoPen() + Brush(44, kBlack, kWhite)));

    EXPECT_NEAR(picture.At(50, 50).red, 128, 2);
}

TEST(Polygon, SmallerThanAPixelLeavesADot) {
    RasterPicture picture;

    picture.Add(Polygon({{{50.01, 50.01}, {50.02, 50.01}, {50.02, 50.02}}}, Pen(kBlack)));

    EXPECT_GT(picture.InkedPixels(), 0);
}

TEST(Line, IsDrawnFromVertexToVertex) {
    RasterPicture picture;

    picture.Add(Line({{10, 50}, {50, 50}, {50, 90}}, Pen(kBlack, 2)));

    EXPECT_EQ(picture.At(30, 50), kBlack);
    EXPECT_EQ(picture.At(50, 70), kBlack);
    EXPECT_EQ(picture.At(30, 70), kWhite);
}

TEST(Line, OfSeveralSectionsHasNothingBetweenThem) {
    RasterPicture picture;
    app::Geometry line = Line({{10, 20}, {90, 20}, {10, 80}, {90, 80}}, Pen(kBlack, 2));
    line.partSizes = {2, 2};

    picture.Add(line);

    EXPECT_EQ(picture.At(50, 20), kBlack);
    EXPECT_EQ(picture.At(50, 80), kBlack);
    EXPECT_EQ(picture.InkedPixelsInRow(50), 0);
}

TEST(Line, OfADashedPenHasGaps) {
    RasterPicture picture;

    picture.Add(Line({{0, 50}, {100, 50}}, Pen(kBlack, 2, 13)));  // 20 pixels on and off

    EXPECT_EQ(picture.InkedPixelsInRow(50), 60);
    EXPECT_EQ(picture.At(10, 50), kBlack);
    EXPECT_EQ(picture.At(30, 50), kWhite);
}

TEST(Line, UnderAPenOfNothingIsNotDrawn) {
    RasterPicture picture;

    picture.Add(Line({{0, 50}, {100, 50}}, NoPen()));

    EXPECT_EQ(picture.InkedPixels(), 0);
}

TEST(Line, OfAPenInPixelsIsSoManyPixelsWide) {
    RasterPicture picture;

    picture.Add(Line({{-50, 50}, {150, 50}}, Pen(kBlack, 6)));

    EXPECT_EQ(picture.InkedPixelsInColumn(50), 6);
}

TEST(Line, OfAPenInPointsHasItsWidthOnPaper) {
    RasterPicture picture;

    picture.Add(Line({{-50, 50}, {150, 50}}, Pen(kBlack, 100)));  // 9 points

    EXPECT_EQ(picture.InkedPixelsInColumn(50), 12);
}

TEST(Line, OfMoreVerticesThanOneStrokeTakesHasNoBreaks) {
    RasterPicture picture;
    std::vector<shr::Vec2d> points;
    for (int row = 0; row < 30; ++row) {
        for (int step = 0; step < 300; ++step) {
            points.push_back({step * 0.34, 10.5 + row * 2.0});
        }
    }

    picture.Add(Line(points, Pen(kBlack)));

    EXPECT_EQ(picture.InkedPixelsInRow(10), 100);
    EXPECT_EQ(picture.InkedPixelsInRow(28), 100);
}

TEST(Rectangle, IsFilledToItsCorners) {
    RasterPicture picture;

    picture.Add(Rectangle({20, 30, 80, 70}, Area(kRed)));

    EXPECT_EQ(picture.At(20, 30), kRed);
    EXPECT_EQ(picture.At(79, 69), kRed);
    EXPECT_EQ(picture.At(80, 70), kWhite);
}

TEST(Rectangle, WithRadiiHasRoundedCorners) {
    RasterPicture picture;
    app::Geometry rectangle = Rectangle({20, 20, 80, 80}, Area(kRed));
    rectangle.radiusX = 20;
    rectangle.radiusY = 20;

    picture.Add(rectangle);

    EXPECT_EQ(picture.At(21, 21), kWhite);
    EXPECT_EQ(picture.At(78, 78), kWhite);
    EXPECT_EQ(picture.At(50, 21), kRed);
    EXPECT_EQ(picture.At(27, 27), kRed);
}

TEST(Ellipse, FillsItsBox) {
    RasterPicture picture;
    app::Geometry ellipse = Rectangle({10, 30, 90, 70}, Area(kRed));
    ellipse.kind = app::GeometryKind::Ellipse;

    picture.Add(ellipse);

    EXPECT_EQ(picture.At(50, 50), kRed);
    EXPECT_EQ(picture.At(12, 50), kRed);
    EXPECT_EQ(picture.At(12, 32), kWhite);
    EXPECT_EQ(picture.At(50, 75), kWhite);
}

TEST(Arc, IsAPartOfItsEllipse) {
    RasterPicture picture;
    app::Geometry arc = Rectangle({10, 10, 90, 90}, Pen(kRed, 4));
    arc.kind = app::GeometryKind::Arc;
    arc.startDegrees = 0.0;
    arc.endDegrees = 90.0;

    picture.Add(arc);

    EXPECT_EQ(picture.At(78, 78), kRed);
    EXPECT_EQ(picture.At(21, 21), kWhite);
    EXPECT_EQ(picture.At(50, 50), kWhite);
}

TEST(Geometry, ThatIsNoNumberIsLeftOut) {
    RasterPicture picture;
    const app::Style pen = Pen(kBlack, 2);

    picture.Add(Line({{10, 50}, {kNaN, kNaN}, {kInfinity, 5}, {90, 50}}, pen));
    picture.Add(Polygon({{{kNaN, 1}, {kInfinity, kNaN}, {-kInfinity, 3}}}, pen));
    picture.Add(Rectangle({kNaN, 0, kInfinity, 10}, pen));
    picture.Add(Points({{kNaN, kInfinity}}, pen));
    picture.Add(Line({}, pen));
    picture.Add(Polygon({}, pen));

    EXPECT_TRUE(picture.IsSound());
    EXPECT_EQ(picture.At(50, 50), kBlack);
    EXPECT_EQ(picture.InkedPixelsInRow(20), 0);
}

TEST(Geometry, OfHugeCoordinatesIsCutAtThePage) {
    RasterPicture picture;
    const app::Style pen = Pen(kBlack, 2) + Brush(1, kRed);

    picture.Add(Line({{-1e300, 50}, {1e300, 50}}, pen));
    picture.Add(Line({{1.7e308, 1.7e308}, {-1.7e308, -1.7e308}}, pen));
    picture.Add(Polygon({Square(-1e290, 1e290)}, pen));
    picture.Add(Rectangle({-1e12, -1e12, 1e12, 1e12}, pen));
    picture.Add(Points({{1e299, -1e299}}, pen));

    EXPECT_TRUE(picture.IsSound());
    EXPECT_EQ(picture.InkedPixelsInRow(50), 100);
    EXPECT_EQ(picture.InkedPixelsInRow(20), 0);
}

TEST(Geometry, OfAPenAsWideAsTheWorldCoversThePage) {
    RasterPicture picture;

    picture.Add(Line({{0, 50}, {100, 50}}, Pen(kBlack, std::numeric_limits<int>::max())));

    EXPECT_TRUE(picture.IsSound());
    EXPECT_EQ(picture.InkedPixels(), 100 * 100);
}

TEST(Geometry, OfArbitraryNumbersLeavesThePictureSound) {
    std::mt19937_64 random(20240607);
    RasterPicture picture;
    const auto next = [&random] {
        const std::uint64_t bits = random();
        double value = 0.0;
        std::memcpy(&value, &bits, sizeof value);
        return value;
    };

    for (int i = 0; i < 300; ++i) {
        const auto code = static_cast<int>(static_cast<std::uint32_t>(random()));
        const app::Style style =
            Pen(kBlack, code, i % 30) + Brush(i % 14, kRed) + Symbol(i % 70, kRed, code);
        picture.Add(Line({{next(), next()}, {next(), next()}, {50, 50}}, style));
        picture.Add(Polygon({{{next(), next()}, {0, 0}, {next(), next()}}}, style));
        picture.Add(Rectangle({next(), next(), next(), next()}, style));
        picture.Add(Points({{static_cast<double>(i % 100), 50}}, style));
        picture.Add(Text("x", {static_cast<double>(i % 100), next(), 50, next()}, next()));
        picture.Add(TextAt("x", {50, 50}, next()));
    }

    EXPECT_TRUE(picture.IsSound());
}

}  // namespace
