// The MIF text of each kind of graphic object.
#include "tests/export/ExportRun.h"

#include "standalone/Text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>
#include <string>

namespace mif::test {

namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

constexpr const char* kInitialPen = "  PEN (1, 19, 0)\n";
constexpr const char* kInitialBrush = "  BRUSH (1, 0, 16777215)\n";

// What follows DATA after exporting the objects.
template <class... Objects> std::string ObjectsOf(Objects&&... objects) {
    ExportRun run;
    run.Export(std::forward<Objects>(objects)...);
    return run.Objects();
}

// The object with areas written as curves.
std::string CurvesOf(zeio::TrPolygon polygon) {
    ExportRun run;
    run.host.optionStore().Set(L"AreasToCurves", true, false);
    run.Export(polygon);
    return run.Objects();
}

zeio::TrFont Font(double height, double divisor = 0.0) {
    zeio::TrFont font;
    font.height = height;
    font.widthDivisor = divisor;
    return font;
}

zeio::TrText RotatedText(double degrees, double x, double y) {
    zeio::TrText text = Text(L"AB", x, y);
    text.transform.RotateZ(degrees * std::numbers::pi / 180.0);
    return text;
}

zeio::TrPolyline LongLine(std::size_t count) {
    zeio::TrPolyline line;
    line.vertices.resize(count);
    return line;
}

// A version line of a run that exported a line and a polygon of this many vertices.
std::string VersionOfLine(std::size_t count) {
    ExportRun run;
    run.Export(LongLine(count));
    return run.HeaderLines("VERSION");
}

std::string VersionOfRegion(std::size_t count) {
    ExportRun run;
    zeio::TrPolygon polygon;
    polygon.vertices.resize(count);
    run.Export(polygon);
    return run.HeaderLines("VERSION");
}

}  // namespace

TEST(Pline, HasALineForEachVertexThenThePenAndNoBrush) {
    EXPECT_EQ(ObjectsOf(Polyline({{0.5, 1.0, 7.0}, {-2.0, 3e20, 8.0}, {1.0 / 3.0, 1e-7, 9.0}})),
              std::string("PLINE 3\n0.5 1\n-2 3E+20\n0.333333333333333315 9.99999999999999955E-08\n"
                          "  PEN (1, 19, 0)\n"));
}

TEST(Pline, OfOneVertexGetsASecondOneBesideIt) {
    EXPECT_EQ(ObjectsOf(Polyline({{5.0, 5.0, 0.0}})),
              std::string("PLINE 2\n5 5\n5.00000011920928955 5\n") + kInitialPen);
}

TEST(Pline, OfNoVertexIsNotWritten) {
    ExportRun run;
    static_cast<void>(run.Begin());
    static_cast<void>(run.Send(Polyline({})));
    static_cast<void>(run.Send(Markers({})));
    static_cast<void>(run.End());

    EXPECT_EQ(run.Objects(), "");
    EXPECT_EQ(run.Mid(), "");
}

struct NumberRow {
    std::string name;
    double value;
    std::string text;
};
class ACoordinate : public testing::TestWithParam<NumberRow> {};

TEST_P(ACoordinate, HasEighteenSignificantDigits) {
    EXPECT_THAT(ObjectsOf(Markers({{GetParam().value, 1.0, 0.0}})),
                "POINT " + GetParam().text + " 1\n");
}
INSTANTIATE_TEST_SUITE_P(
    , ACoordinate,
    testing::Values(NumberRow{"Zero", 0.0, "0"}, NumberRow{"MinusZero", -0.0, "-0"},
                    NumberRow{"Tenth", 0.1, "0.100000000000000006"},
                    NumberRow{"LastWithoutExponent", 123456789012345678.0, "123456789012345680"},
                    NumberRow{"FirstWithExponent", 1e18, "1E+18"},
                    NumberRow{"Large", 1e20, "1E+20"},
                    NumberRow{"Small", 0.0001, "0.000100000000000000005"},
                    NumberRow{"FirstSmallExponent", 0.00001, "1.00000000000000008E-05"},
                    NumberRow{"Exponent7", 1e-7, "9.99999999999999955E-08"},
                    NumberRow{"ExactPowerOfTwo", 0x1p-23, "1.1920928955078125E-07"},
                    NumberRow{"ThreeDigitExponent", 1e300, "1.00000000000000005E+300"},
                    NumberRow{"Largest", std::numeric_limits<double>::max(),
                              "1.79769313486231571E+308"},
                    NumberRow{"Smallest", std::numeric_limits<double>::denorm_min(),
                              "4.94065645841246544E-324"},
                    NumberRow{"Infinite", std::numeric_limits<double>::infinity(), "INF"},
                    NumberRow{"MinusInfinite", -std::numeric_limits<double>::infinity(), "-INF"},
                    NumberRow{"NotANumber", std::numeric_limits<double>::quiet_NaN(), "NAN"}),
    [](const auto& row) { return row.param.name; });

TEST(TheVersionOfAPline, StaysUpTo4084Vertices) {
    EXPECT_EQ(VersionOfLine(4084), "VERSION  300");
}

TEST(TheVersionOfAPline, KeptRisesTo450From4085VerticesOn) {
    EXPECT_EQ(VersionOfLine(4085), "VERSION  450");
    EXPECT_EQ(VersionOfLine(1'000'000), "VERSION  450");
}

TEST(TheVersionOfAPline, RisesTo800BeyondAMillionVertices) {
    EXPECT_EQ(VersionOfLine(1'000'001), "VERSION  800");
}

TEST(TheVersionOfARegion, FollowsTheVerticesOfAllRings) {
    EXPECT_EQ(VersionOfRegion(4084), "VERSION  300");
    EXPECT_EQ(VersionOfRegion(4085), "VERSION  450");
    EXPECT_EQ(VersionOfRegion(1'000'001), "VERSION  800");
}

TEST(Region, HasItsRingsThenPenAndBrush) {
    EXPECT_EQ(
        ObjectsOf(Polygon(
            {{0, 0, 0}, {9, 0, 0}, {9, 9, 0}, {0, 0, 0}, {1, 1, 0}, {2, 1, 0}, {2, 2, 0}}, {4, 3})),
        std::string("REGION 2\n  4\n0 0\n9 0\n9 9\n0 0\n  3\n1 1\n2 1\n2 2\n") + kInitialPen +
            kInitialBrush);
}

TEST(Region, WithoutPartSizesIsOneRing) {
    EXPECT_THAT(ObjectsOf(Polygon({{0, 0, 0}, {9, 0, 0}, {9, 9, 0}})),
                StartsWith("REGION 1\n  3\n0 0\n9 0\n9 9\n  PEN"));
}

TEST(Region, OfTwoVerticesIsDeclaredWithThree) {
    EXPECT_THAT(ObjectsOf(Polygon({{1, 2, 0}, {3, 4, 0}}, {2})),
                StartsWith("REGION 1\n  3\n1 2\n3 4\n1.00000011920928955 2\n  PEN"));
}

TEST(Region, OfOneVertexIsPaddedInBothDirections) {
    EXPECT_THAT(
        ObjectsOf(Polygon({{1, 2, 0}})),
        StartsWith("REGION 1\n  3\n1 2\n1.00000011920928955 2\n1 2.00000011920928955\n  PEN"));
}

TEST(Region, LeavesEmptyRingsOut) {
    EXPECT_THAT(ObjectsOf(Polygon({{0, 0, 0}, {9, 0, 0}, {9, 9, 0}}, {0, 3, 0})),
                StartsWith("REGION 1\n  3\n0 0\n9 0\n9 9\n  PEN"));
}

TEST(Region, WithoutVerticesHasNoRing) {
    EXPECT_EQ(ObjectsOf(Polygon({})), std::string("REGION 0\n") + kInitialPen + kInitialBrush);
}

TEST(Region, HasOneRowForAllItsRings) {
    ExportRun run;
    static_cast<void>(run.Begin());
    run.SendColumns({L"A"});
    static_cast<void>(run.Send(
        With(Polygon({{0, 0, 0}, {1, 0, 0}, {2, 2, 0}, {3, 3, 0}}, {2, 2}), {{L"A", L"x"}})));
    static_cast<void>(run.End());

    EXPECT_EQ(run.Mid(), "\"x\"\n");
}

struct PartSizesRow {
    std::string name;
    std::vector<std::int32_t> partSizes;
    std::string text;
};
class WrongPartSizes : public testing::TestWithParam<PartSizesRow> {};

TEST_P(WrongPartSizes, AreClampedToTheVerticesThatAreThere) {
    EXPECT_THAT(
        ObjectsOf(Polygon({{1, 1, 0}, {2, 2, 0}, {3, 3, 0}, {4, 4, 0}}, GetParam().partSizes)),
        StartsWith(GetParam().text + "  PEN"));
}
INSTANTIATE_TEST_SUITE_P(
    , WrongPartSizes,
    testing::Values(PartSizesRow{"Negative", {-1, 3}, "REGION 1\n  3\n1 1\n2 2\n3 3\n"},
                    PartSizesRow{"Lowest", {INT32_MIN, 3}, "REGION 1\n  3\n1 1\n2 2\n3 3\n"},
                    PartSizesRow{"TooLarge", {5}, "REGION 1\n  4\n1 1\n2 2\n3 3\n4 4\n"},
                    PartSizesRow{"TooLargeAtTheEnd",
                                 {3, INT32_MAX, 3},
                                 "REGION 2\n  3\n1 1\n2 2\n3 3\n  3\n4 4\n4.00000011920928955 4\n"
                                 "4 4.00000011920928955\n"},
                    PartSizesRow{"TooSmall", {3}, "REGION 1\n  3\n1 1\n2 2\n3 3\n"}),
    [](const auto& row) { return row.param.name; });

TEST(AreasAsCurves, HaveAPlineForEachRingOfTwoVerticesAndMore) {
    EXPECT_EQ(CurvesOf(Polygon({{0, 0, 0}, {1, 0, 0}, {2, 2, 0}, {3, 3, 0}, {4, 4, 0}, {5, 5, 0}},
                               {3, 1, 2})),
              std::string("PLINE 3\n0 0\n1 0\n2 2\n") + kInitialPen + "PLINE 2\n4 4\n5 5\n" +
                  kInitialPen);
}

TEST(AreasAsCurves, KeptAreNotClosed) {
    EXPECT_THAT(CurvesOf(Polygon({{0, 0, 0}, {1, 0, 0}, {1, 1, 0}}, {3})),
                StartsWith("PLINE 3\n0 0\n1 0\n1 1\n  PEN"));
}

TEST(AreasAsCurves, KeptAreNotWrittenWithoutPartSizes) {
    EXPECT_EQ(CurvesOf(Polygon({{0, 0, 0}, {1, 0, 0}, {1, 1, 0}})), "");
}

TEST(AreasAsCurves, HaveARowForEachPline) {
    ExportRun run;
    run.host.optionStore().Set(L"AreasToCurves", true, false);
    run.Export(Polygon({{0, 0, 0}, {1, 0, 0}, {2, 2, 0}, {3, 3, 0}}, {2, 2}));

    EXPECT_EQ(run.Mid(), "\"\"\n\"\"\n");
}

TEST(AreasAsCurves, CountAsPlinesForTheVersion) {
    ExportRun run;
    run.host.optionStore().Set(L"AreasToCurves", true, false);
    zeio::TrPolygon polygon;
    polygon.vertices.resize(64002);
    polygon.partSizes.assign(32001, 2);
    run.Export(polygon);

    EXPECT_EQ(run.HeaderLines("VERSION"), "VERSION  800");
}

TEST(Points, AreOneForEachPositionWithARowEachAndKeptWithoutASymbol) {
    ExportRun run;
    static_cast<void>(run.Begin());
    run.SendColumns({L"A"});
    static_cast<void>(
        run.Send(With(Markers({{1, 2, 0}, {3, 4, 0}, {5.5, -6, 0}}), {{L"A", L"x"}})));
    static_cast<void>(run.End());

    EXPECT_EQ(run.Objects(), "POINT 1 2\nPOINT 3 4\nPOINT 5.5 -6\n");
    EXPECT_EQ(run.Mid(), "\"x\"\n\"x\"\n\"x\"\n");
}

TEST(AnEmptyMarkerSet, WritesTheHeaderAlone) {
    ExportRun run;
    run.Export(Markers({}));

    EXPECT_EQ(run.Objects(), "");
    EXPECT_TRUE(run.HasMid());
    EXPECT_EQ(run.Mid(), "");
}

TEST(Rect, HasItsCornersThenPenAndBrush) {
    EXPECT_EQ(ObjectsOf(Rectangle(1, 2, 3.5, 4)),
              std::string("RECT 1 2 3.5 4\n") + kInitialPen + kInitialBrush);
}

TEST(Roundrect, HasTheMeanOfBothRadii) {
    EXPECT_THAT(ObjectsOf(Rectangle(1, 2, 3, 4, 2.0, 4.0)), StartsWith("ROUNDRECT 1 2 3 4 3\n"));
}

TEST(Roundrect, IsWrittenForOneRadiusAlone) {
    EXPECT_THAT(ObjectsOf(Rectangle(1, 2, 3, 4, 0.0, 1.0)), StartsWith("ROUNDRECT 1 2 3 4 0.5\n"));
}

TEST(Roundrect, IsWrittenForARadiusThatIsNotANumber) {
    EXPECT_THAT(ObjectsOf(Rectangle(1, 2, 3, 4, std::numeric_limits<double>::quiet_NaN(), 0.0)),
                StartsWith("ROUNDRECT 1 2 3 4 NAN\n"));
}

TEST(EllipseObject, HasItsCornersThenPenAndBrush) {
    EXPECT_EQ(ObjectsOf(Ellipse(1, 2, 3, 4)),
              std::string("ELLIPSE 1 2 3 4\n") + kInitialPen + kInitialBrush);
}

TEST(RectEllipseAndText, HaveARowEach) {
    ExportRun run;
    run.Export(Rectangle(0, 0, 1, 1), Ellipse(0, 0, 1, 1), Text(L"A", 0, 0));

    EXPECT_EQ(run.Mid(), "\"\"\n\"\"\n\"\"\n");
}

TEST(TextObject, WithoutABoxIsAsLongAsItsCharactersAndHangsBelowItsPosition) {
    EXPECT_EQ(ObjectsOf(Font(2.0), Text(L"AB", 0, 0)), "TEXT \"AB\"\n"
                                                       "  0 0 2.79999999999999982 -2\n"
                                                       "Angle 0\n"
                                                       "  FONT (\"Arial\", 0, 2, 0)\n");
}

TEST(TextObject, TakesTheWidthFromTheFontsDivisor) {
    EXPECT_THAT(ObjectsOf(Font(2.0, 4.0), Text(L"ABC", 1, 10)),
                HasSubstr("\n  1 10 2.5 8\nAngle 0\n"));
}

TEST(TextObject, HasAHeightOfOneWithoutAFontHeight) {
    EXPECT_THAT(ObjectsOf(Font(0.0, 2.0), Text(L"AB", 0, 0)), HasSubstr("\n  0 0 1 -1\n"));
}

TEST(TextObject, WithABoxIsAsLargeAsTheBox) {
    zeio::TrText text = Text(L"AB", 10, 20);
    text.box = {-1.0, -2.0, 4.0, 1.5};
    text.transform.Translate(100.0, 100.0, 0.0);

    EXPECT_THAT(ObjectsOf(Font(2.0), text), HasSubstr("\n  10 20 15 23.5\nAngle 0\n"));
}

TEST(TextObject, WithABoxIsScaledWithItsTransform) {
    zeio::TrText text = Text(L"AB", 0, 0);
    text.box = {0.0, 0.0, 2.0, 1.0};
    text.transform = shr::Mat4d({3, 0, 0, 0, 0, 5, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1});

    EXPECT_THAT(ObjectsOf(text), HasSubstr("\n  0 0 6 5\nAngle 0\n"));
}

TEST(TextObject, WithABoxReversedInOneDirectionHasNoBox) {
    zeio::TrText reversedInX = Text(L"AB", 1, 2);
    reversedInX.box = {5.0, 0.0, 4.0, 9.0};
    zeio::TrText reversedInY = Text(L"AB", 1, 2);
    reversedInY.box = {0.0, 5.0, 9.0, 4.0};

    EXPECT_THAT(ObjectsOf(Font(1.0, 1.0), reversedInX), HasSubstr("\n  1 2 3 1\nAngle 0\n"));
    EXPECT_THAT(ObjectsOf(Font(1.0, 1.0), reversedInY), HasSubstr("\n  1 2 3 1\nAngle 0\n"));
}

TEST(TextObject, WithABoxOfNoWidthIsNotEmpty) {
    zeio::TrText text = Text(L"AB", 1, 2);
    text.box = {3.0, 3.0, 3.0, 3.0};

    EXPECT_THAT(ObjectsOf(text), HasSubstr("\n  1 2 1 2\nAngle 0\n"));
}

TEST(TextObject, ThatIsRotatedStandsOnItsTurnedHeight) {
    ExportRun run;
    run.Export(Font(2.0, 2.0), RotatedText(90.0, 10, 20));

    EXPECT_THAT(run.Objects(), StartsWith("TEXT \"AB\"\n  8 18 10 20\nAngle 90\n"));
    EXPECT_EQ(run.HeaderLines("  Bounds"), "  Bounds (        8.0000000000,        18.0000000000) "
                                           "(       10.0000000000,        20.0000000000)");
}

TEST(TextObject, ThatIsRotatedIgnoresItsBox) {
    zeio::TrText text = RotatedText(90.0, 10, 20);
    text.box = {0.0, 0.0, 100.0, 100.0};

    EXPECT_THAT(ObjectsOf(Font(2.0, 2.0), text), HasSubstr("\n  8 18 10 20\nAngle 90\n"));
}

TEST(TextObject, ThatIsRotatedClockwiseHasANegativeAngle) {
    EXPECT_THAT(ObjectsOf(Font(2.0, 2.0), RotatedText(-90.0, 10, 20)),
                HasSubstr("\n  12 18 14 20\nAngle -90\n"));
}

TEST(TextObject, HasNeitherPenNorBrush) {
    EXPECT_THAT(ObjectsOf(Text(L"AB", 0, 0)), EndsWith("Angle 0\n  FONT (\"Arial\", 0, 1, 0)\n"));
}

TEST(TextObject, KeptStandsAsItIs) {
    EXPECT_THAT(ObjectsOf(Text(L"a \"b\"\nc %s", 0, 0)), StartsWith("TEXT \"a \"b\"\nc %s\"\n"));
}

TEST(TextObject, KeptEndsAtANulButIsMeasuredWhole) {
    EXPECT_THAT(ObjectsOf(Font(1.0, 1.0), Text(std::wstring(L"a\0b", 3), 0, 0)),
                StartsWith("TEXT \"a\"\n  0 0 3 -1\n"));
}

TEST(TextObject, IsOfCodePageZeroWithAQuestionMarkForWhatItCannotHold) {
    EXPECT_THAT(ObjectsOf(Text(L"Stra\u00DFe \u20AC \u4E2D", 0, 0)), StartsWith("TEXT \"Stra\xDF"
                                                                                "e \x80 ?\"\n"));
}

TEST(TextObject, IsOfTheCodePageThatTheHostHasSet) {
    ASSERT_TRUE(standalone::SetCodePage0("UTF-8"));
    const std::string objects = ObjectsOf(Text(L"\u4E2D", 0, 0));
    ASSERT_TRUE(standalone::SetCodePage0("CP1252"));

    EXPECT_THAT(objects, StartsWith("TEXT \"\xE4\xB8\xAD\"\n"));
}

}  // namespace mif::test
