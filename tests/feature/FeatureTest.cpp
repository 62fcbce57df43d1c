// Typed values and curves of features.
#include "app/feature/Feature.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

namespace {

using app::ColumnKind;
using app::Geometry;
using app::GeometryKind;
using app::Value;

struct ValueRow {
    std::string name;  // letters and digits
    ColumnKind kind;
    std::string text;
    Value value;
};

class AText : public testing::TestWithParam<ValueRow> {};

TEST_P(AText, HasThisValueInItsColumn) {
    app::LayerColumn column;
    column.kind = GetParam().kind;

    EXPECT_EQ(app::TypedValue(column, GetParam().text), GetParam().value);
}

const ValueRow kValues[] = {
    {"CharStaysText", ColumnKind::Char, "007", std::string("007")},
    {"EmptyCharStaysText", ColumnKind::Char, "", std::string()},
    {"UnknownTypeIsText", ColumnKind::Other, "1", std::string("1")},
    {"Integer", ColumnKind::Integer, "-42", std::int64_t{-42}},
    {"IntegerWithPlusAndBlanks", ColumnKind::Integer, " +42 ", std::int64_t{42}},
    {"LargeInt", ColumnKind::LargeInt, "9223372036854775807", std::int64_t{9223372036854775807}},
    {"IntegerWithDecimals", ColumnKind::SmallInt, "1.5", 1.5},
    {"IntegerThatIsNone", ColumnKind::Integer, "many", std::string("many")},
    {"EmptyInteger", ColumnKind::Integer, "", std::monostate()},
    {"BlankInteger", ColumnKind::Integer, "  ", std::monostate()},
    {"Decimal", ColumnKind::Decimal, "12.50", 12.5},
    {"Float", ColumnKind::Float, "1e-3", 0.001},
    {"FloatWithComma", ColumnKind::Float, "1,5", std::string("1,5")},
    {"FloatThatIsNotFinite", ColumnKind::Float, "inf", std::string("inf")},
    {"True", ColumnKind::Logical, "T", true},
    {"False", ColumnKind::Logical, "f", false},
    {"LogicalThatIsNone", ColumnKind::Logical, "maybe", std::string("maybe")},
    {"Date", ColumnKind::Date, "20240229", std::string("2024-02-29")},
    {"DateInWords", ColumnKind::Date, "29.2.2024", std::string("29.2.2024")},
    {"EmptyDate", ColumnKind::Date, "", std::monostate()},
    {"Time", ColumnKind::Time, "235959999", std::string("23:59:59.999")},
    {"TimeWithoutMilliseconds", ColumnKind::Time, "235959", std::string("23:59:59")},
    {"DateTime", ColumnKind::DateTime, "20240229235959999", std::string("2024-02-29T23:59:59.999")},
    {"DateTimeThatIsNone", ColumnKind::DateTime, "2024", std::string("2024")},
};
INSTANTIATE_TEST_SUITE_P(, AText, testing::ValuesIn(kValues),
                         [](const auto& row) { return row.param.name; });

Geometry Box(GeometryKind kind) {
    Geometry geometry;
    geometry.kind = kind;
    geometry.box = {0.0, 0.0, 4.0, 2.0};
    return geometry;
}

TEST(FlattenCurves, MakesFourCornersOfARectangle) {
    Geometry geometry = Box(GeometryKind::Rectangle);

    app::FlattenCurves(geometry, 64);

    EXPECT_EQ(geometry.kind, GeometryKind::Region);
    EXPECT_EQ(geometry.points,
              (std::vector<shr::Vec2d>{{0.0, 0.0}, {4.0, 0.0}, {4.0, 2.0}, {0.0, 2.0}}));
    EXPECT_EQ(geometry.partSizes, std::vector<std::size_t>{4});
}

TEST(FlattenCurves, PutsThePointsOfAnEllipseOnIt) {
    Geometry geometry = Box(GeometryKind::Ellipse);

    app::FlattenCurves(geometry, 64);

    double worst = 0.0;
    for (const shr::Vec2d& point : geometry.points) {
        const double x = (point.x - 2.0) / 2.0;
        const double y = (point.y - 1.0) / 1.0;
        worst = std::max(worst, std::abs(x * x + y * y - 1.0));
    }
    EXPECT_LT(worst, 1e-12);
    EXPECT_GE(geometry.points.size(), 64U);
}

TEST(FlattenCurves, RoundsTheCornersByTheirRadii) {
    Geometry geometry = Box(GeometryKind::Rectangle);
    geometry.radiusX = 0.5;
    geometry.radiusY = 0.5;

    app::FlattenCurves(geometry, 8);

    EXPECT_EQ(geometry.points.front(), (shr::Vec2d{4.0, 1.5}));
    EXPECT_EQ(geometry.points.size(), 12U);
}

TEST(FlattenCurves, TakesRadiiThatAreTooLargeAsHalfTheSides) {
    Geometry geometry = Box(GeometryKind::Rectangle);
    geometry.radiusX = 100.0;
    geometry.radiusY = 100.0;

    app::FlattenCurves(geometry, 8);

    EXPECT_EQ(geometry.points.front(), (shr::Vec2d{4.0, 1.0}));
}

TEST(FlattenCurves, PutsThePointsOfAnArcOnItsEllipse) {
    Geometry arc = Box(GeometryKind::Arc);
    arc.startDegrees = 270.0;
    arc.endDegrees = 90.0;

    app::FlattenCurves(arc, 64);

    ASSERT_EQ(arc.kind, GeometryKind::Line);
    EXPECT_EQ(arc.points.size(), 33U);
    EXPECT_NEAR(arc.points.front().x, 2.0, 1e-12);
    EXPECT_NEAR(arc.points.front().y, 0.0, 1e-12);
    EXPECT_NEAR(arc.points[16].x, 4.0, 1e-12);  // by way of the positive x axis
    EXPECT_NEAR(arc.points.back().y, 2.0, 1e-12);
}

TEST(FlattenCurves, TakesEqualAnglesAsTheWholeEllipse) {
    Geometry arc = Box(GeometryKind::Arc);
    arc.startDegrees = 30.0;
    arc.endDegrees = 30.0;

    app::FlattenCurves(arc, 64);

    EXPECT_EQ(arc.points.size(), 65U);
}

TEST(FlattenCurves, FlattensTheMembersOfACollection) {
    app::Feature feature;
    feature.geometry.kind = GeometryKind::Collection;
    feature.members = {Box(GeometryKind::Ellipse)};

    app::FlattenCurves(feature, 8);

    EXPECT_EQ(feature.members[0].kind, GeometryKind::Region);
}

TEST(SectionsOf, GivesTheOneSectionOfALineWithoutPartSizes) {
    Geometry line;
    line.points = {{0.0, 0.0}, {1.0, 1.0}};

    EXPECT_EQ(app::SectionsOf(line).size(), 1U);
}

TEST(SectionsOf, CutsThePointsByThePartSizes) {
    Geometry line;
    line.points = {{0.0, 0.0}, {1.0, 1.0}, {2.0, 2.0}};
    line.partSizes = {2, 1};

    const auto sections = app::SectionsOf(line);

    ASSERT_EQ(sections.size(), 2U);
    EXPECT_EQ(sections[1].front(), (shr::Vec2d{2.0, 2.0}));
}

TEST(FlattenCurves, LeavesLinesAlone) {
    Geometry geometry;
    geometry.kind = GeometryKind::Line;
    geometry.points = {{0.0, 0.0}, {1.0, 1.0}};

    app::FlattenCurves(geometry, 8);

    EXPECT_EQ(geometry.kind, GeometryKind::Line);
    EXPECT_EQ(geometry.points.size(), 2U);
}

TEST(RoundCoordinates, RoundsAllThatHasAPlace) {
    app::Feature feature;
    feature.geometry.points = {{1.2345, -6.789}};
    feature.geometry.box = {0.126, 0.124, 1.005, 2};
    feature.geometry.center = shr::Vec2d{0.333, 0.666};
    feature.geometry.placement.box = shr::Box2d{0.001, 0.009, 1, 1};
    feature.geometry.placement.labelLine = app::LabelLine{false, {0.555, 5}};
    feature.members = {feature.geometry};

    app::RoundCoordinates(feature, 2);

    EXPECT_EQ(feature.geometry.points, (std::vector<shr::Vec2d>{{1.23, -6.79}}));
    EXPECT_EQ(feature.geometry.box, (shr::Box2d{0.13, 0.12, 1, 2}));
    EXPECT_EQ(feature.geometry.center, (shr::Vec2d{0.33, 0.67}));
    EXPECT_EQ(feature.geometry.placement.box, (shr::Box2d{0, 0.01, 1, 1}));
    EXPECT_EQ(feature.geometry.placement.labelLine->end, (shr::Vec2d{0.56, 5}));
    EXPECT_EQ(feature.members.front(), feature.geometry);
}

TEST(RoundCoordinates, LeavesWhatHasNoSuchDecimals) {
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    app::Feature feature;
    feature.geometry.points = {{1e300, 4503599627370497.0}, {kInfinity, -kInfinity}};
    const std::vector<shr::Vec2d> before = feature.geometry.points;

    app::RoundCoordinates(feature, 9);

    EXPECT_EQ(feature.geometry.points, before);
}

}  // namespace
