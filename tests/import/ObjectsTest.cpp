// Each kind of object, from its text to what the host receives.
#include "tests/import/ImportRun.h"

#include <gmock/gmock.h>

#include <cmath>
#include <utility>

namespace {

using import_test::Importing;
using import_test::Lines;
using import_test::ObjectsOf;
using std::string_literals::operator""s;
using testing::ElementsAre;

constexpr char kPen[] = "Pen style=1 color=0,0,0,255 relative width=0";
constexpr char kBrush[] = "Brush pattern=2 fore=255,0,0,255 back=255,255,255,0";

std::string Marker(const char* positions) {
    return std::string("MarkerSet style=1 size=0 font=\"ZEI Default Symbols\" index=0 ") +
           positions;
}

std::string Markers(const char* positions) {
    return std::string("MarkerSet style=1 size=10 font=\"ZEI Default Symbols\" index=0 ") +
           positions;
}

struct ObjectRow {
    std::string name;
    std::string text;
    Lines received;
};

class AnObject : public testing::TestWithParam<ObjectRow> {};

TEST_P(AnObject, ReachesTheHostAs) {
    EXPECT_EQ(ObjectsOf(GetParam().text), GetParam().received);
}

const ObjectRow kObjectRows[] = {
    {"NothingAtAll", "", {}},
    {"OnlyLineEnds", "\n\n\n", {}},
    {"None", "none\n", {}},
    {"Point", "Point 1.5 -2\n", {Marker("1.5,-2")}},
    {"PointAfterEmptyLines", "\n\nPoint 1 2\n\n\nPoint 3 4\n", {Marker("1,2"), Marker("3,4")}},
    {"PointWithoutFinalLineEnd", "Point 1 2", {Marker("1,2")}},
    {"PointWithPenAndBrush",
     "Point 1 2\n  Brush (2,16711680)\n  Pen (1,2,0)\n",
     {kPen, kBrush, Marker("1,2")}},
    {"Line", "Line 1 2 3 4\n", {"Polyline 1,2 3,4"}},
    {"LineWithPen", "Line 1 2 3 4\nPen (1,2,0)\n", {kPen, "Polyline 1,2 3,4"}},
    {"Polyline", "Pline 3\n1 2\n3 4\n5 6\n", {"Polyline 1,2 3,4 5,6"}},
    {"PolylineWithItsCountOnTheNextLineAfterMultiple",
     "Pline Multiple 2\n2\n1 2\n3 4\n2\n5 6\n7 8\n",
     {"Polyline 1,2 3,4", "Polyline 5,6 7,8"}},
    {"PolylineOfOneVertex", "Pline 1\n1 2\nPen (1,2,0)\nPoint 3 4\n", {Marker("3,4")}},
    {"PolylineWithTrailingWordsOnAVertexLine",
     "Pline 2\n1 2 junk\n3 4 (junk)\n",
     {"Polyline 1,2 3,4"}},
    {"RegionOfOneRing", "Region 1\n3\n0 0\n1 0\n1 1\n", {"Polygon parts=3 0,0 1,0 1,1"}},
    {"RegionOfTwoRings",
     "Region 2\n3\n0 0\n9 0\n9 9\n3\n1 1\n2 1\n2 2\n  Pen (1,2,0)\n  Brush (2,16711680)\n"
     "  Center 5 5\n",
     {kPen, kBrush, "Polygon parts=3,3 0,0 9,0 9,9 1,1 2,1 2,2"}},
    {"RegionWithClausesBetweenItsRings",
     "Region 2\n1\n0 0\nPen (1,2,0)\n1\n1 1\nBrush (2,16711680)\n",
     {kPen, kBrush, "Polygon parts=1,1 0,0 1,1"}},
    {"Multipoint", "Multipoint 2\n1 2\n3 4\n", {Markers("1,2 3,4")}},
    {"Rectangle", "Rect 1 2 3 4\n", {"Rectangle 1,2,3,4 radii=0,0"}},
    {"RectangleFromItsOtherCorners", "Rect 3 2 1 4\n", {"Rectangle 1,2,3,4 radii=0,0"}},
    {"RoundedRectangle", "Roundrect 1 2 3 4\n0.5\n", {"Rectangle 1,2,3,4 radii=0.5,0.5"}},
    {"RoundedRectangleOnOneLine",
     "Roundrect 1 2 3 4 0.5\nPen (1,2,0)\n",
     {kPen, "Rectangle 1,2,3,4 radii=0.5,0.5"}},
    {"Ellipse", "Ellipse 3 4 1 2\n", {"Ellipse 1,2,3,4"}},
    {"EllipseWithStyles",
     "Ellipse 1 2 3 4\nPen (1,2,0)\nBrush (2,16711680)\n",
     {kPen, kBrush, "Ellipse 1,2,3,4"}},
    {"CollectionOfTwo",
     "Collection 2\nPoint 1 2\nLine 1 2 3 4\n",
     {Marker("1,2"), "Polyline 1,2 3,4"}},
    {"CollectionOfZeroReadsThree",
     "Collection 0\nPoint 1 1\nPoint 2 2\nPoint 3 3\n",
     {Marker("1,1"), Marker("2,2"), Marker("3,3")}},
    {"CollectionWithoutACountReadsThree",
     "Collection\nPoint 1 1\nPoint 2 2\nPoint 3 3\n",
     {Marker("1,1"), Marker("2,2"), Marker("3,3")}},
    {"CollectionOfANegativeCountReadsThree",
     "Collection -7\nPoint 1 1\nPoint 2 2\nPoint 3 3\n",
     {Marker("1,1"), Marker("2,2"), Marker("3,3")}},
    {"CollectionsInCollectionsInTheirOrder",
     "Collection 3\nPoint 1 1\nCollection 2\nPoint 2 2\nCollection 1\nPoint 3 3\nPoint 4 4\n"
     "Point 5 5\n",
     {Marker("1,1"), Marker("2,2"), Marker("3,3"), Marker("4,4"), Marker("5,5")}},
    {"MalformedNumbersAsZero", "Point abc 1e2x\n", {Marker("0,100")}},
    {"MissingNumbersAsZero", "Point\n", {Marker("0,0")}},
    {"KeywordsInAnyCase",
     "PLINE 2\n1 2\n3 4\npLiNe MULTIPLE 1\n2\n1 2\n3 4\nPline 2\n1 2\n3 4\n",
     {"Polyline 1,2 3,4", "Polyline 1,2 3,4", "Polyline 1,2 3,4"}},
};

INSTANTIATE_TEST_SUITE_P(, AnObject, testing::ValuesIn(kObjectRows),
                         [](const auto& row) { return row.param.name; });

TEST(APoint, KeptItsSymbolClauseIsReadButNotApplied) {
    EXPECT_THAT(ObjectsOf("Point 1 2\nSymbol (35,255,12,\"Wingdings\",0)\nPoint 3 4\n"),
                ElementsAre(Marker("1,2"), Marker("3,4")));
}

TEST(APolyline, KeptASectionOfOneVertexIsDroppedWithItsStyle) {
    EXPECT_THAT(ObjectsOf("Pline Multiple 2\n1\n9 9\nPen (1,2,0)\n2\n1 2\n3 4\n"),
                ElementsAre("Polyline 1,2 3,4"));
}

TEST(APolyline, KeptThePenBehindTheLastSectionIsThatSectionsAlone) {
    EXPECT_THAT(ObjectsOf("Pline Multiple 2\n2\n1 2\n3 4\n2\n5 6\n7 8\nPen (1,2,0)\n"),
                ElementsAre("Polyline 1,2 3,4", kPen, "Polyline 5,6 7,8"));
}

TEST(APolyline, OfWhichOneSectionIsBadLeavesTheEarlierSectionsWithTheHost) {
    EXPECT_THAT(ObjectsOf("Pline Multiple 2\n2\n1 2\n3 4\n0\n"), ElementsAre("Polyline 1,2 3,4"));
}

TEST(ARectangle, KeptWithStyleClausesReadTwiceTakesEachOnce) {
    EXPECT_THAT(
        ObjectsOf("Rect 1 2 3 4\nPen (1,2,0)\nBrush (2,16711680)\nRect 1 2 3 4\n"),
        ElementsAre(kPen, kBrush, "Rectangle 1,2,3,4 radii=0,0", "Rectangle 1,2,3,4 radii=0,0"));
}

class AreasToCurves : public Importing {
protected:
    void SetUp() override { Remember(L"AreasToCurves", true); }
};

TEST_F(AreasToCurves, TurnARegionIntoPolylinesEachBehindThePenAndTheBrush) {
    Import("Region 2\n3\n0 0\n9 0\n9 9\n2\n1 1\n2 1\n  Pen (1,2,0)\n  Brush (2,16711680)\n");

    EXPECT_THAT(HostReceived(), ElementsAre(kPen, kBrush, "Polyline 0,0 9,0 9,9", kPen, kBrush,
                                            "Polyline 1,1 2,1"));
}

TEST_F(AreasToCurves, WithoutClausesAreThePolylinesAlone) {
    Import("Region 2\n2\n0 0\n9 0\n2\n1 1\n2 1\n");

    EXPECT_THAT(HostReceived(), ElementsAre("Polyline 0,0 9,0", "Polyline 1,1 2,1"));
}

TEST_F(AreasToCurves, WithIgnoreStylesAreThePolylinesAlone) {
    Remember(L"IgnoreStyles", true);

    Import("Region 2\n2\n0 0\n9 0\n2\n1 1\n2 1\n  Pen (1,2,0)\n  Brush (2,16711680)\n");

    EXPECT_THAT(HostReceived(), ElementsAre("Polyline 0,0 9,0", "Polyline 1,1 2,1"));
}

TEST_F(AreasToCurves, HandOverEveryPenWholeEvenToAHostThatMovesItsDashesOut) {
    Host().onObject = [](zeio::TrBase& object) {
        if (object.GetTypeId() == zeio::TrPen::GetClassTypeId()) {
            std::exchange(static_cast<zeio::TrPen&>(object).dashes, {});
        }
    };

    Import("Region 2\n2\n0 0\n9 0\n2\n1 1\n2 1\n  Pen (1,5,0)\n");

    const auto pens = Host().Received<zeio::TrPen>();
    EXPECT_EQ(pens.at(0)->dashes, pens.at(1)->dashes);
    EXPECT_FALSE(pens.at(1)->dashes.empty());
}

struct IgnoredRow {
    std::string name;
    std::string text;
    Lines received;
};

class IgnoreStyles : public Importing, public testing::WithParamInterface<IgnoredRow> {};

TEST_P(IgnoreStyles, HandsOverTheGeometryWithoutItsClauses) {
    Remember(L"IgnoreStyles", true);

    Import(GetParam().text + "Pen (1,2,0)\nBrush (2,16711680)\n");

    EXPECT_EQ(HostReceived(), GetParam().received);
}

const IgnoredRow kIgnoredRows[] = {
    {"Point", "Point 1 2\n", {Marker("1,2")}},
    {"Line", "Line 1 2 3 4\n", {"Polyline 1,2 3,4"}},
    {"Polyline", "Pline 2\n1 2\n3 4\n", {"Polyline 1,2 3,4"}},
    {"Region", "Region 1\n2\n1 2\n3 4\n", {"Polygon parts=2 1,2 3,4"}},
    {"Rectangle", "Rect 1 2 3 4\n", {"Rectangle 1,2,3,4 radii=0,0"}},
    {"RoundedRectangle", "Roundrect 1 2 3 4 5\n", {"Rectangle 1,2,3,4 radii=5,5"}},
    {"Ellipse", "Ellipse 1 2 3 4\n", {"Ellipse 1,2,3,4"}},
    {"ArcWithoutGeometry", "Arc 1 2 3 4\n10 10\n", {}},
    {"Multipoint", "Multipoint 1\n1 2\n", {Markers("1,2")}},
};

INSTANTIATE_TEST_SUITE_P(, IgnoreStyles, testing::ValuesIn(kIgnoredRows),
                         [](const auto& row) { return row.param.name; });

struct NulRow {
    std::string name;
    std::string text;
    Lines expected;
};

class AKeyword : public testing::TestWithParam<NulRow> {};

TEST_P(AKeyword, EndsAtANul) {
    EXPECT_EQ(ObjectsOf(GetParam().text), GetParam().expected);
}

const NulRow kNulRows[] = {
    {"OfAnObject", "Point\0Line 1 2\n"s, {Marker("1,2")}},
    {"OfANone", "None\0\nPoint 1 2\n"s, {Marker("1,2")}},
    {"OfACollection", "Collection\0x 1\nPoint 1 2\n"s, {Marker("1,2")}},
    {"OfAMultiplePolyline", "Pline Multiple\0x 1\n2\n1 2\n3 4\n"s, {"Polyline 1,2 3,4"}},
    {"OfAClause", "Line 1 2 3 4\nPen\0x (1,2,0)\n"s, {kPen, "Polyline 1,2 3,4"}},
    {"OfAJustification",
     "Text \"abc\"\n1 2 3 4\nJustify Right\0x\n"s,
     {"Font \"\" flags=4 height=2", "Pen style=2 color=0,0,0,0 relative width=0",
      "Brush pattern=2 fore=0,0,0,255 back=255,255,255,0",
      "Text \"abc\" at 1,2 box=1,2,3,4 justify=2 align=1 rotation=0"}},
    {"ThatIsAParenthesis", "Line 1 2 3 4\nPen \"(\0\" 1,2,0)\n"s, {kPen, "Polyline 1,2 3,4"}},
};

INSTANTIATE_TEST_SUITE_P(, AKeyword, testing::ValuesIn(kNulRows),
                         [](const auto& row) { return row.param.name; });

using ImportedArcs = Importing;

TEST_F(ImportedArcs, BecomePolylinesOfThreeHundredPoints) {
    Import("Arc 0 0 4 2\n0 90\nPen (1,2,0)\n");

    EXPECT_EQ(HostReceived().front(), kPen);
    EXPECT_EQ(Host().Received<zeio::TrPolyline>().at(0)->vertices.size(), 300U);
}

TEST_F(ImportedArcs, OnOneLineAreReadLikeThoseOnTwo) {
    EXPECT_EQ(ObjectsOf("Arc 0 0 4 2 0 90\n"), ObjectsOf("Arc 0 0 4 2\n0 90\n"));
}

TEST_F(ImportedArcs, NormaliseTheirBox) {
    EXPECT_EQ(ObjectsOf("Arc 4 2 0 0\n0 90\n"), ObjectsOf("Arc 0 0 4 2\n0 90\n"));
}

TEST_F(ImportedArcs, StayOnTheEllipseInTheirBox) {
    Import("Arc 0 0 4 2\n0 90\n");

    EXPECT_THAT(Host().Received<zeio::TrPolyline>().at(0)->vertices,
                testing::Each(testing::Truly([](const shr::Vec3d& point) {
                    const double onCircle =
                        std::pow((point.x - 2) / 2, 2) + std::pow(point.y - 1, 2);
                    return std::fabs(onCircle - 1) < 1e-9;
                })));
}

TEST_F(ImportedArcs, KeptTakeBothHalfAxesIntoEachCoordinateOfTheirEnds) {
    // With half-axes 2 and 1 about (2, 1) the start at 0 degrees is (2 + 1, 1 + 2) and the end at
    // 180 degrees (2 - 1, 1 - 2); they look along (1, 2) and (-1, -2), which meet the ellipse at
    // its centre plus and minus (1, 2) / sqrt(1/4 + 4).
    Import("Arc 0 0 4 2\n0 180\n");

    const auto& vertices = Host().Received<zeio::TrPolyline>().at(0)->vertices;
    EXPECT_NEAR(vertices.front().x, 2 + 1 / std::sqrt(4.25), 1e-9);
    EXPECT_NEAR(vertices.front().y, 1 + 2 / std::sqrt(4.25), 1e-9);
    EXPECT_NEAR(vertices.back().x, 2 - 1 / std::sqrt(4.25), 1e-9);
    EXPECT_NEAR(vertices.back().y, 1 - 2 / std::sqrt(4.25), 1e-9);
}

TEST_F(ImportedArcs, WhoseEndsCoincideHandOverTheirStylesOnly) {
    Import("Arc 0 0 4 2\n30 390\nPen (1,2,0)\nBrush (2,16711680)\n");

    EXPECT_THAT(HostReceived(), ElementsAre(kPen, kBrush));
}

TEST_F(ImportedArcs, WhoseEndsDifferInOneCoordinateBecomeTwoPoints) {
    // With half-axes 1 and 3 about (1, 3) the y of an end is 3 + cos t + 3 sin t, which is the same
    // for t and for 2 atan(3) - t; their x differ.
    Import("Arc 0 0 2 6\n0 143.1301023541559835\n");

    ASSERT_EQ(Host().Received<zeio::TrPolyline>().size(), 1U);
    const auto& vertices = Host().Received<zeio::TrPolyline>().at(0)->vertices;
    ASSERT_EQ(vertices.size(), 2U);
    EXPECT_EQ(vertices[0], (shr::Vec3d{4, 4, 0}));
    EXPECT_NEAR(vertices[1].x, -0.8, 1e-9);
    EXPECT_NEAR(vertices[1].y, 4, 1e-9);
}

TEST_F(ImportedArcs, OfACircleAt135DegreesStartAtItsRightEnd) {
    // Both half-axes enter each coordinate, so at 135 degrees they cancel: the start is the centre.
    Import("Arc 0 0 4 4\n135 0\n");

    ASSERT_EQ(Host().Received<zeio::TrPolyline>().size(), 1U);
    const auto& vertices = Host().Received<zeio::TrPolyline>().at(0)->vertices;
    EXPECT_EQ(vertices.size(), 300U);
    EXPECT_EQ(vertices.front(), (shr::Vec3d{4, 2, 0}));
}

struct OddArcRow {
    std::string name;
    std::string text;
};

class AnArc : public Importing, public testing::WithParamInterface<OddArcRow> {};

TEST_P(AnArc, NeverEndsAnImport) {
    Import(GetParam().text + "Point 1 2\n");

    EXPECT_EQ(FirstError(), "");
    EXPECT_EQ(Host().Received<zeio::TrMarkerSet>().size(), 1U);
}
INSTANTIATE_TEST_SUITE_P(
    , AnArc,
    testing::Values(OddArcRow{"WithoutWidth", "Arc 0 0 0 2\n0 90\n"},
                    OddArcRow{"WithoutHeight", "Arc 0 0 4 0\n0 90\n"},
                    OddArcRow{"WithoutEither", "Arc 0 0 0 0\n0 90\n"},
                    OddArcRow{"OfACircleAt135Degrees", "Arc -2 -2 2 2\n135 10\n"},
                    OddArcRow{"OfACircleTo315Degrees", "Arc 0 0 4 4\n10 315\n"},
                    OddArcRow{"OfTheLargestBox", "Arc -1e308 -1e308 1e308 1e308\n0 60\n"},
                    OddArcRow{"OfABoxFarOut", "Arc 0 0 1.7e308 1.7e308\n0 230\n"},
                    OddArcRow{"OfAnInfiniteBox", "Arc -inf 0 inf 2\n0 90\n"},
                    OddArcRow{"WithoutANumber", "Arc nan nan nan nan\nnan nan\n"}),
    [](const auto& row) { return row.param.name; });

struct ExtentsRow {
    std::string name;
    std::string text;
    std::array<double, 4> box;  // min x, min y, max x, max y
};

class TheRunningExtents : public Importing, public testing::WithParamInterface<ExtentsRow> {};

TEST_P(TheRunningExtents, GrowByEveryCoordinateOf) {
    Import(GetParam().text);

    const mif::RunningExtents& extents = Filter().extents();
    EXPECT_EQ((std::array{extents.minX, extents.minY, extents.maxX, extents.maxY}), GetParam().box);
}

const ExtentsRow kExtentsRows[] = {
    {"APoint", "Point 1 2\n", {1, 2, 1, 2}},
    {"ALine", "Line 1 4 3 2\n", {1, 2, 3, 4}},
    {"APolyline", "Pline 3\n1 2\n5 1\n3 4\n", {1, 1, 5, 4}},
    {"ADroppedSection", "Pline 1\n1 2\n", {1, 2, 1, 2}},
    {"ARegion", "Region 1\n3\n1 2\n5 1\n3 4\n", {1, 1, 5, 4}},
    {"AMultipoint", "Multipoint 2\n1 2\n3 4\n", {1, 2, 3, 4}},
    {"ARectangle", "Rect 3 2 1 4\n", {1, 2, 3, 4}},
    {"ARoundedRectangle", "Roundrect 3 2 1 4 9\n", {1, 2, 3, 4}},
    {"AnEllipse", "Ellipse 3 2 1 4\n", {1, 2, 3, 4}},
    {"AnArcWithoutGeometry", "Arc 3 2 1 4\n10 10\n", {1, 2, 3, 4}},
    {"ATextByItsAnchorOnly", "Text \"abc\"\n1 2 3 4\n", {1, 2, 1, 2}},
    {"KeptAFileBelowZeroWithAMaximumOfTheSmallestPositiveNumber",
     "Line -4 -5 -1 -2\n",
     {-4, -5, 2.2250738585072014e-308, 2.2250738585072014e-308}},
};

INSTANTIATE_TEST_SUITE_P(, TheRunningExtents, testing::ValuesIn(kExtentsRows),
                         [](const auto& row) { return row.param.name; });

}  // namespace
