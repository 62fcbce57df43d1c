// What lines, areas and shapes look like, read off the pixels of small pictures.
#include "tests/draw/Picture.h"

#include <gtest/gtest.h>

#include <cstring>
#include <limits>
#include <random>

namespace {

using draw_test::Brush;
using draw_test::Font;
using draw_test::kBlack;
using draw_test::kBlue;
using draw_test::kGreen;
using draw_test::kRed;
using draw_test::kWhite;
using draw_test::Line;
using draw_test::Marker;
using draw_test::NoPen;
using draw_test::Pen;
using draw_test::Polygon;
using draw_test::RasterPicture;
using draw_test::Rectangle;
using draw_test::Square;
using draw_test::Text;
using Pattern = zeio::TrBrush::Pattern;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(Polygon, IsFilledInside) {
    RasterPicture picture;
    picture.Add(NoPen());
    picture.Add(Brush(Pattern::Solid, kRed));

    picture.Add(Polygon({Square(20, 80)}));

    EXPECT_EQ(picture.At(50, 50), kRed);
    EXPECT_EQ(picture.At(10, 50), kWhite);
    EXPECT_EQ(picture.InkedPixels(), 60 * 60);
}

TEST(Polygon, HasAHoleWhereARingLiesInAnother) {
    RasterPicture picture;
    picture.Add(NoPen());
    picture.Add(Brush(Pattern::Solid, kRed));

    picture.Add(Polygon({Square(10, 90), Square(30, 70)}));

    EXPECT_EQ(picture.At(20, 50), kRed);
    EXPECT_EQ(picture.At(50, 50), kWhite);
}

TEST(Polygon, HasAnIslandWhereARingLiesInAHole) {
    RasterPicture picture;
    picture.Add(NoPen());
    picture.Add(Brush(Pattern::Solid, kRed));

    picture.Add(Polygon({Square(10, 90), Square(30, 70), Square(45, 55)}));

    EXPECT_EQ(picture.At(40, 50), kWhite);
    EXPECT_EQ(picture.At(50, 50), kRed);
}

TEST(Polygon, HasItsOutlineOverItsArea) {
    RasterPicture picture;
    picture.Add(Pen(kBlue, 4.0));
    picture.Add(Brush(Pattern::Solid, kRed));

    picture.Add(Polygon({Square(20, 80)}));

    EXPECT_EQ(picture.At(20, 50), kBlue);
    EXPECT_EQ(picture.At(50, 50), kRed);
}

TEST(Polygon, IsOnlyAnOutlineUnderPatternNone) {
    RasterPicture picture;
    picture.Add(Pen(kBlue, 2.0));
    picture.Add(zeio::TrBrush(Pattern::None));

    picture.Add(Polygon({Square(20, 80)}));

    EXPECT_EQ(picture.At(50, 50), kWhite);
    EXPECT_EQ(picture.At(20, 50), kBlue);
}

TEST(Polygon, OfHatchLinesHasWhiteBetweenThem) {
    RasterPicture picture;
    picture.Add(NoPen());
    picture.Add(Brush(Pattern::Horizontal, kBlack));

    picture.Add(Polygon({Square(10, 90)}));

    EXPECT_GE(picture.InkedPixelsInColumn(50), 10);
    EXPECT_LE(picture.InkedPixelsInColumn(50), 14);
    EXPECT_EQ(picture.InkedPixelsInColumn(5), 0);
    EXPECT_EQ(picture.InkedPixelsInRow(5), 0);
}

TEST(Polygon, OfHatchLinesHasTheBackColourBetweenThem) {
    RasterPicture picture;
    zeio::TrBrush brush = Brush(Pattern::Vertical, kBlack);
    brush.back = kGreen;
    picture.Add(NoPen());
    picture.Add(brush);

    picture.Add(Polygon({Square(10, 90)}));

    EXPECT_EQ(picture.InkedPixels(), 80 * 80);
    EXPECT_EQ(picture.InkedPixelsInRow(50), 80);
}

struct HatchRow {
    std::string name;
    Pattern pattern;
    int fewest;
    int most;
};
class Hatch : public testing::TestWithParam<HatchRow> {};

TEST_P(Hatch, CoversAsMuchOfTheAreaAsItsLines) {
    RasterPicture picture;
    picture.Add(NoPen());
    picture.Add(Brush(GetParam().pattern, kBlack));

    picture.Add(Polygon({Square(10, 90)}));

    EXPECT_GE(picture.InkedPixels(), GetParam().fewest);
    EXPECT_LE(picture.InkedPixels(), GetParam().most);
}

INSTANTIATE_TEST_SUITE_P(, Hatch,
                         testing::Values(HatchRow{"None", Pattern::None, 0, 0},
                                         HatchRow{"Solid", Pattern::Solid, 6400, 6400},
                                         HatchRow{"Pattern3", Pattern::Pattern3, 500, 3000},
                                         HatchRow{"Pattern4", Pattern::Pattern4, 6400, 6400},
                                         HatchRow{"Pattern5", Pattern::Pattern5, 6400, 6400},
                                         HatchRow{"Pattern6", Pattern::Pattern6, 6400, 6400},
                                         HatchRow{"Horizontal", Pattern::Horizontal, 800, 1100},
                                         HatchRow{"Vertical", Pattern::Vertical, 800, 1100},
                                         HatchRow{"Backward", Pattern::BackwardDiagonal, 900, 3000},
                                         HatchRow{"Forward", Pattern::ForwardDiagonal, 900, 3000},
                                         HatchRow{"Cross", Pattern::Cross, 1500, 2100},
                                         HatchRow{"DiagonalCross", Pattern::DiagonalCross, 1800,
                                                  5000}),
                         [](const auto& row) { return row.param.name; });

TEST(Tint, IsTheForeColourThinnedOverTheBackColour) {
    RasterPicture picture;
    zeio::TrBrush brush = Brush(Pattern::Pattern5, kBlack);
    brush.back = kWhite;
    picture.Add(NoPen());
    picture.Add(brush);

    picture.Add(Polygon({Square(10, 90)}));

    EXPECT_NEAR(picture.At(50, 50).red, 128, 2);
}

TEST(Polygon, SmallerThanAPixelLeavesADot) {
    RasterPicture picture;
    picture.Add(Pen(kBlack, 1.0));

    picture.Add(Polygon({{{50.01, 50.01}, {50.02, 50.01}, {50.02, 50.02}}}));

    EXPECT_GT(picture.InkedPixels(), 0);
}

TEST(Polyline, IsDrawnFromVertexToVertex) {
    RasterPicture picture;
    picture.Add(Pen(kBlack, 2.0));

    picture.Add(Line({{10, 50}, {50, 50}, {50, 90}}));

    EXPECT_EQ(picture.At(30, 50), kBlack);
    EXPECT_EQ(picture.At(50, 70), kBlack);
    EXPECT_EQ(picture.At(30, 70), kWhite);
}

TEST(Polyline, OfADashedPenHasGaps) {
    RasterPicture picture;
    zeio::TrPen pen = Pen(kBlack, 2.0);
    pen.style = zeio::TrPen::Style::CustomDash;
    pen.dashes = {5, 5};  // times 2: ten pixels each
    picture.Add(pen);

    picture.Add(Line({{0, 50}, {100, 50}}));

    EXPECT_EQ(picture.InkedPixelsInRow(50), 50);
    EXPECT_EQ(picture.At(5, 50), kBlack);
    EXPECT_EQ(picture.At(15, 50), kWhite);
}

TEST(Polyline, UnderANoLinePenIsNotDrawn) {
    RasterPicture picture;
    picture.Add(NoPen());

    picture.Add(Line({{0, 50}, {100, 50}}));

    EXPECT_EQ(picture.InkedPixels(), 0);
}

TEST(Polyline, OfARelativePenHasThePixelsThatItsShareOfTheObjectsStandsFor) {
    RasterPicture picture;
    zeio::TrPen pen(zeio::TrPen::Style::Solid, kBlack, 200.0 / 80.0);
    pen.isRelative = true;
    picture.Add(pen);

    picture.Add(Line({{-50, 50}, {150, 50}}));

    EXPECT_EQ(picture.InkedPixelsInColumn(50), 4);
}

TEST(Polyline, OfARelativePenHasThePixelsThatItsShareOfTheBoundsStandsFor) {
    RasterPicture picture;
    picture.Painter().BeginLayer(0);
    picture.Painter().SetBounds({0.0, 0.0, 300.0, 400.0});
    zeio::TrPen pen(zeio::TrPen::Style::Solid, kBlack, 500.0 / 20.0);
    pen.isRelative = true;
    picture.Add(pen);

    picture.Add(Line({{-50, 50}, {150, 50}}));

    EXPECT_EQ(picture.InkedPixelsInColumn(50), 6);
}

TEST(Polyline, OfAnAbsolutePenHasTheWidthInInches) {
    RasterPicture picture;
    zeio::TrPen pen = Pen(kBlack);
    pen.width = 0.125;
    picture.Add(pen);

    picture.Add(Line({{-50, 50}, {150, 50}}));

    EXPECT_EQ(picture.InkedPixelsInColumn(50), 12);
}

TEST(Polyline, OfMoreVerticesThanOneStrokeTakesHasNoBreaks) {
    RasterPicture picture;
    picture.Add(Pen(kBlack, 1.0));
    zeio::TrPolyline line;
    for (int row = 0; row < 20; ++row) {
        for (int step = 0; step < 500; ++step) {
            line.vertices.push_back({step * 0.2, 10.5 + row * 2.0, 0.0});
        }
    }

    picture.Add(line);

    EXPECT_EQ(picture.InkedPixelsInRow(10), 100);
    EXPECT_EQ(picture.InkedPixelsInRow(28), 100);
}

TEST(Rectangle, IsFilledToItsCorners) {
    RasterPicture picture;
    picture.Add(NoPen());
    picture.Add(Brush(Pattern::Solid, kRed));

    picture.Add(Rectangle(80, 70, 20, 30));

    EXPECT_EQ(picture.At(20, 30), kRed);
    EXPECT_EQ(picture.At(79, 69), kRed);
    EXPECT_EQ(picture.At(80, 70), kWhite);
}

TEST(Rectangle, WithRadiiHasRoundedCorners) {
    RasterPicture picture;
    picture.Add(NoPen());
    picture.Add(Brush(Pattern::Solid, kRed));
    zeio::TrRectangle rectangle = Rectangle(20, 20, 80, 80);
    rectangle.radiusX = 20;
    rectangle.radiusY = 20;

    picture.Add(rectangle);

    EXPECT_EQ(picture.At(21, 21), kWhite);
    EXPECT_EQ(picture.At(78, 78), kWhite);
    EXPECT_EQ(picture.At(50, 21), kRed);
    EXPECT_EQ(picture.At(27, 27), kRed);
}

TEST(Rectangle, WithRadiiBeyondItsSizeIsAnEllipse) {
    RasterPicture picture;
    picture.Add(NoPen());
    picture.Add(Brush(Pattern::Solid, kRed));
    zeio::TrRectangle rectangle = Rectangle(20, 20, 80, 80);
    rectangle.radiusX = 1e9;
    rectangle.radiusY = 1e9;

    picture.Add(rectangle);

    EXPECT_NEAR(picture.InkedPixels(), 3.14159 * 30 * 30, 150);
}

TEST(Ellipse, FillsItsBox) {
    RasterPicture picture;
    picture.Add(NoPen());
    picture.Add(Brush(Pattern::Solid, kRed));
    zeio::TrEllipse ellipse;
    ellipse.x1 = 10;
    ellipse.y1 = 30;
    ellipse.x2 = 90;
    ellipse.y2 = 70;

    picture.Add(ellipse);

    EXPECT_EQ(picture.At(50, 50), kRed);
    EXPECT_EQ(picture.At(12, 50), kRed);
    EXPECT_EQ(picture.At(12, 32), kWhite);
    EXPECT_EQ(picture.At(50, 75), kWhite);
}

TEST(Geometry, ThatIsNoNumberIsLeftOut) {
    RasterPicture picture;
    picture.Add(Pen(kBlack, 2.0));

    picture.Add(Line({{10, 50}, {kNaN, kNaN}, {kInfinity, 5}, {90, 50}}));
    picture.Add(Polygon({{{kNaN, 1}, {kInfinity, kNaN}, {-kInfinity, 3}}}));
    picture.Add(Rectangle(kNaN, 0, kInfinity, 10));
    picture.Add(Marker(kNaN, kInfinity));
    picture.Add(Line({}));
    picture.Add(zeio::TrPolygon());

    EXPECT_TRUE(picture.IsSound());
    EXPECT_EQ(picture.At(50, 50), kBlack);
    EXPECT_EQ(picture.InkedPixelsInRow(20), 0);
}

TEST(Geometry, OfHugeCoordinatesIsCutAtThePage) {
    RasterPicture picture;
    picture.Add(Pen(kBlack, 2.0));
    picture.Add(zeio::TrBrush(Pattern::None));

    picture.Add(Line({{-1e300, 50}, {1e300, 50}}));
    picture.Add(Line({{1.7e308, 1.7e308}, {-1.7e308, -1.7e308}}));
    picture.Add(Polygon({Square(-1e290, 1e290)}));
    picture.Add(Rectangle(-1e12, -1e12, 1e12, 1e12));
    picture.Add(Marker(1e299, -1e299, 1e290));

    EXPECT_TRUE(picture.IsSound());
    EXPECT_EQ(picture.InkedPixelsInRow(50), 100);
    EXPECT_EQ(picture.InkedPixelsInRow(20), 0);
}

TEST(Geometry, OfAPenAsWideAsTheWorldCoversThePage) {
    RasterPicture picture;
    picture.Add(Pen(kBlack, 1e300));

    picture.Add(Line({{0, 50}, {100, 50}}));

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
        zeio::TrPen pen(zeio::TrPen::Style::CustomDash, kBlack, next());
        pen.dashes = {static_cast<float>(i % 7), 2.0F};
        picture.Add(pen);
        picture.Add(Brush(static_cast<Pattern>(i % 14), kRed));
        picture.Add(Line({{next(), next()}, {next(), next()}, {50, 50}}));
        picture.Add(Polygon({{{next(), next()}, {0, 0}, {next(), next()}}}));
        picture.Add(Rectangle(next(), next(), next(), next()));
        picture.Add(Marker(static_cast<double>(i % 100), 50, next()));
        picture.Add(Font(next()));
        picture.Add(Text(L"x", {static_cast<double>(i % 100), next(), 50, next()}, next()));
    }

    EXPECT_TRUE(picture.IsSound());
}

TEST(Transform, PlacesGeometryButLeavesPensAsTheyAre) {
    RasterPicture picture;
    picture.Painter().SetTransform([](const shr::Vec2d& point) {
        return shr::Vec2d{point.x * 10.0, point.y * 10.0};
    });
    zeio::TrPen relative(zeio::TrPen::Style::Solid, kBlack, 20.0 / 80.0);
    relative.isRelative = true;
    picture.Add(relative);

    picture.Add(Line({{-5, 5}, {15, 5}}));

    EXPECT_EQ(picture.InkedPixelsInColumn(50), 4);
}

TEST(Transform, LeavesOutVerticesWithoutAPlace) {
    RasterPicture picture;
    picture.Painter().SetTransform([](const shr::Vec2d& point) {
        return point.y > 0 ? std::optional<shr::Vec2d>(point) : std::nullopt;
    });
    picture.Add(Pen(kBlack, 2.0));

    picture.Add(Line({{10, 50}, {50, -50}, {90, 50}}));

    EXPECT_EQ(picture.At(50, 50), kBlack);
}

}  // namespace
