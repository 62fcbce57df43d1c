// Which part of each object counts for the extent of a map.
#include "app/draw/ExtentCollector.h"

#include "tests/draw/Picture.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using shr::Box2d;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

std::optional<Box2d> ExtentOf(const std::vector<const zeio::TrBase*>& objects) {
    app::ExtentCollector collector;
    collector.BeginLayer(0);
    for (const zeio::TrBase* object : objects) {
        collector.Add(*object);
    }
    return collector.Extent();
}

TEST(Extent, IsNothingWithoutObjects) {
    EXPECT_EQ(ExtentOf({}), std::nullopt);
}

TEST(Extent, IsNothingForStylesAlone) {
    const zeio::TrPen pen;
    const zeio::TrBrush brush;

    EXPECT_EQ(ExtentOf({&pen, &brush}), std::nullopt);
}

TEST(Extent, HoldsTheVerticesOfLinesBelowZeroToo) {
    const zeio::TrPolyline line = draw_test::Line({{-3, -4}, {-1, -2}});

    EXPECT_EQ(ExtentOf({&line}), (Box2d{-3, -4, -1, -2}));
}

TEST(Extent, HoldsPolygonsMarkersRectanglesAndEllipses) {
    const zeio::TrPolygon polygon = draw_test::Polygon({draw_test::Square(0, 1)});
    const zeio::TrMarkerSet marker = draw_test::Marker(5, 1);
    const zeio::TrRectangle rectangle = draw_test::Rectangle(2, 7, 1, 1);
    zeio::TrEllipse ellipse;
    ellipse.x1 = -8;
    ellipse.y1 = 1;
    ellipse.x2 = -6;
    ellipse.y2 = 2;

    EXPECT_EQ(ExtentOf({&polygon}), (Box2d{0, 0, 1, 1}));
    EXPECT_EQ(ExtentOf({&marker}), (Box2d{5, 1, 5, 1}));
    EXPECT_EQ(ExtentOf({&rectangle}), (Box2d{1, 1, 2, 7}));
    EXPECT_EQ(ExtentOf({&ellipse}), (Box2d{-8, 1, -6, 2}));
}

TEST(Extent, HoldsATextsBoxAsItIsTurned) {
    const zeio::TrText text = draw_test::Text(L"up", {10, 20, 40, 25}, 90.0);

    const auto extent = ExtentOf({&text});

    ASSERT_TRUE(extent);
    EXPECT_NEAR(extent->minX, 5.0, 1e-9);
    EXPECT_NEAR(extent->maxX, 10.0, 1e-9);
    EXPECT_NEAR(extent->minY, 20.0, 1e-9);
    EXPECT_NEAR(extent->maxY, 50.0, 1e-9);
}

TEST(Extent, HoldsThePositionAndTheFontsHeightOfATextWithoutABox) {
    const zeio::TrFont font = draw_test::Font(8.0);
    const zeio::TrText text(L"here", {3, 4, 0});

    EXPECT_EQ(ExtentOf({&font, &text}), (Box2d{3, 4, 3, 12}));
}

TEST(Extent, PassesOverPointsThatCannotBeDrawn) {
    const zeio::TrPolyline line = draw_test::Line({{1, 1}, {kNaN, 5}, {5, kInfinity}, {2, 3}});
    const zeio::TrPolyline huge = draw_test::Line({{1e305, 0}, {0, -1e305}});

    EXPECT_EQ(ExtentOf({&line, &huge}), (Box2d{1, 1, 2, 3}));
}

TEST(Extent, IsInTransformedCoordinates) {
    const zeio::TrPolyline line = draw_test::Line({{1, 1}, {2, 3}});
    app::ExtentCollector collector;
    collector.BeginLayer(0);
    collector.SetTransform([](const shr::Vec2d& point) {
        return shr::Vec2d{point.x * 10, point.y + 100};
    });

    collector.Add(line);

    EXPECT_EQ(collector.Extent(), (Box2d{10, 101, 20, 103}));
}

TEST(Extent, LeavesOutPointsThatTheTransformationCannotPlace) {
    const zeio::TrPolyline line = draw_test::Line({{1, 1}, {2, 3}, {-1, 0}});
    app::ExtentCollector collector;
    collector.BeginLayer(0);
    collector.SetTransform([](const shr::Vec2d& point) {
        return point.x > 0 ? std::optional<shr::Vec2d>(point) : std::nullopt;
    });

    collector.Add(line);

    EXPECT_EQ(collector.Extent(), (Box2d{1, 1, 2, 3}));
}

}  // namespace
