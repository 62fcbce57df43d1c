#include "app/diff/GeometryComparison.h"

#include "tests/support/Features.h"

#include <gtest/gtest.h>

#include <limits>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

namespace {

using app::Feature;
using app::GeometryKind;
using app::GeometryRules;
using support::LineThrough;
using support::PointAt;
using support::PointsAt;
using support::RegionOf;
using support::Square;

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

Feature TextAt(double x, double y, const std::string& text, double angle = 0) {
    Feature feature = PointAt(x, y);
    feature.geometry.kind = GeometryKind::Text;
    feature.geometry.placement.text = text;
    feature.geometry.placement.angleDegrees = angle;
    return feature;
}

Feature SectionsOf(std::vector<shr::Vec2d> points, std::vector<std::size_t> sizes) {
    Feature feature = LineThrough(std::move(points));
    feature.geometry.partSizes = std::move(sizes);
    return feature;
}

Feature CollectionOf(const std::vector<Feature>& members) {
    Feature feature;
    feature.geometry.kind = GeometryKind::Collection;
    for (const Feature& member : members) {
        feature.members.push_back(member.geometry);
    }
    return feature;
}

struct ComparisonRow {
    const char* name;
    Feature left;
    Feature right;
    const char* difference;
};

std::ostream& operator<<(std::ostream& out, const ComparisonRow& row) {
    return out << row.name;
}

class TwoGeometries : public testing::TestWithParam<ComparisonRow> {};

TEST_P(TwoGeometries, DifferInThis) {
    const ComparisonRow& row = GetParam();

    EXPECT_EQ(app::GeometryDifferenceOf(row.left, row.right, GeometryRules{.tolerance = 0.1}),
              row.difference);
}

INSTANTIATE_TEST_SUITE_P(
    , TwoGeometries,
    testing::Values(
        ComparisonRow{"EqualPoints", PointAt(1, 2), PointAt(1, 2), ""},
        ComparisonRow{"PointsWithinTheTolerance", PointAt(1, 2), PointAt(1.0625, 1.95), ""},
        ComparisonRow{"PointsBeyondIt", PointAt(1, 2), PointAt(1, 2.5), "moved by 0.5"},
        ComparisonRow{"PointsThatAreNoNumbers", PointAt(kNan, 2), PointAt(kNan, 2), ""},
        ComparisonRow{"OneThatIsNoNumber", PointAt(kNan, 2), PointAt(1, 2),
                      "moved by an infinite distance"},
        ComparisonRow{"MorePoints", PointsAt({{0, 0}, {1, 1}}), PointAt(0, 0), "vertices: 2 -> 1"},
        ComparisonRow{"NoGeometryOnBothSides", Feature{}, Feature{}, ""},
        ComparisonRow{"NoGeometryOnOneSide", PointAt(1, 2), Feature{},
                      "kind: point -> no geometry"},
        ComparisonRow{"ALineTheOtherWayRound", LineThrough({{0, 0}, {4, 0}}),
                      LineThrough({{4, 0}, {0, 0}}), "2 of 2 vertices moved, by up to 4"},
        ComparisonRow{"ALineOfOneSectionThatIsCounted", LineThrough({{0, 0}, {4, 0}}),
                      SectionsOf({{0, 0}, {4, 0}}, {2}), ""},
        ComparisonRow{"MoreSections", SectionsOf({{0, 0}, {1, 0}, {2, 0}, {3, 0}}, {2, 2}),
                      LineThrough({{0, 0}, {1, 0}, {2, 0}, {3, 0}}), "sections: 2 -> 1"},
        ComparisonRow{"SectionsOfOtherLengths", SectionsOf({{0, 0}, {1, 0}, {2, 0}}, {1, 2}),
                      SectionsOf({{0, 0}, {1, 0}, {2, 0}}, {2, 1}),
                      "sections divided in another way"},
        ComparisonRow{"ARingFromAnotherVertex", RegionOf({{{0, 0}, {4, 0}, {4, 4}, {0, 4}}}),
                      RegionOf({{{4, 4}, {0, 4}, {0, 0}, {4, 0}}}), ""},
        ComparisonRow{"ARingTheOtherWayRound", RegionOf({{{0, 0}, {4, 0}, {4, 4}, {0, 4}}}),
                      RegionOf({{{0, 4}, {4, 4}, {4, 0}, {0, 0}}}), ""},
        ComparisonRow{"ARingThatIsClosed", RegionOf({{{0, 0}, {4, 0}, {4, 4}}}),
                      RegionOf({{{0, 0}, {4, 0}, {4, 4}, {0, 0}}}), ""},
        ComparisonRow{"RingsInAnotherOrder", RegionOf({Square(0, 0, 1), Square(5, 5, 1)}),
                      RegionOf({Square(5, 5, 1), Square(0, 0, 1)}), ""},
        ComparisonRow{"OneRingTwice", RegionOf({Square(0, 0, 1), Square(5, 5, 1)}),
                      RegionOf({Square(0, 0, 1), Square(0, 0, 1)}),
                      "4 of 8 vertices moved, by up to 5"},
        ComparisonRow{"MoreRings", RegionOf({Square(0, 0, 1), Square(5, 5, 1)}),
                      RegionOf({Square(0, 0, 1)}), "rings: 2 -> 1"},
        ComparisonRow{"MoreVerticesOfARing", RegionOf({Square(0, 0, 1)}),
                      RegionOf({{{0, 0}, {1, 0}, {1, 1}}}), "vertices: 4 -> 3"},
        ComparisonRow{"RingsOfOtherSizes", RegionOf({{{0, 0}, {1, 0}, {1, 1}}, Square(5, 5, 1)}),
                      RegionOf({Square(0, 0, 1), {{5, 5}, {6, 5}, {6, 6}}}), "another outline"},
        ComparisonRow{"EqualEllipses", support::EllipseIn({0, 0, 2, 1}),
                      support::EllipseIn({0, 0, 2.05, 1}), ""},
        ComparisonRow{"OtherEllipses", support::EllipseIn({0, 0, 2, 1}),
                      support::EllipseIn({0, 0, 3, 1}), "the box moved by up to 1"},
        ComparisonRow{"EqualTexts", TextAt(0, 0, "a"), TextAt(0, 0, "a"), ""},
        ComparisonRow{"OtherTexts", TextAt(0, 0, "a"), TextAt(0, 0, "b"), "text: \"a\" -> \"b\""},
        ComparisonRow{"ATurnedText", TextAt(0, 0, "a"), TextAt(0, 0, "a", 45), "angle: 0 -> 45"},
        ComparisonRow{"AMovedText", TextAt(0, 0, "a"), TextAt(1, 0, "a"), "moved by 1"},
        ComparisonRow{"ATextAndAPoint", TextAt(0, 0, "a"), PointAt(0, 0), "kind: text -> point"},
        ComparisonRow{"EqualCollections", CollectionOf({PointAt(0, 0), LineThrough({{0, 0}})}),
                      CollectionOf({PointAt(0, 0), LineThrough({{0, 0}})}), ""},
        ComparisonRow{"AnotherPartOfACollection", CollectionOf({PointAt(0, 0), PointAt(1, 1)}),
                      CollectionOf({PointAt(0, 0), PointAt(1, 2)}), "part 2: moved by 1"},
        ComparisonRow{"MoreParts", CollectionOf({PointAt(0, 0), PointAt(1, 1)}),
                      CollectionOf({PointAt(0, 0)}), "parts: 2 -> 1"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(GeometriesWithoutTolerance, DifferInTheLastDigit) {
    EXPECT_EQ(app::GeometryDifferenceOf(PointAt(1, 2), PointAt(1, 2), {}), "");
    EXPECT_NE(app::GeometryDifferenceOf(PointAt(1, 2), PointAt(1, 2 + 1e-15), {}), "");
}

TEST(ATextOfOneFormat, MayBeAPointOfAnother) {
    const GeometryRules rules{.areTextsPoints = true};

    EXPECT_EQ(app::GeometryDifferenceOf(TextAt(1, 2, "a"), PointAt(1, 2), rules), "");
    EXPECT_EQ(app::GeometryDifferenceOf(PointAt(1, 2), TextAt(1, 3, "a"), rules), "moved by 1");
    EXPECT_EQ(app::GeometryDifferenceOf(TextAt(1, 2, "a"), LineThrough({{1, 2}}), rules),
              "kind: text -> line");
}

TEST(GeometryInWords, SaysKindAndSize) {
    EXPECT_EQ(app::GeometryInWords({}), "no geometry");
    EXPECT_EQ(app::GeometryInWords(PointAt(1, 2.5)), "point at 1 2.5");
    EXPECT_EQ(app::GeometryInWords(PointsAt({{0, 0}, {1, 1}})), "2 points");
    EXPECT_EQ(app::GeometryInWords(LineThrough({{0, 0}, {1, 1}})), "line of 2 vertices");
    EXPECT_EQ(app::GeometryInWords(RegionOf({Square(0, 0, 1)})), "region of 1 ring, 4 vertices");
    EXPECT_EQ(app::GeometryInWords(TextAt(0, 0, "a")), "text \"a\"");
    EXPECT_EQ(app::GeometryInWords(CollectionOf({PointAt(0, 0)})), "collection of 1 part");
    EXPECT_EQ(app::GeometryInWords(support::EllipseIn({0, 0, 1, 1})), "ellipse");
}

}  // namespace
