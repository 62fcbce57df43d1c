// Style clauses: codes to pens, brushes and symbols.
#include "tests/import/ImportRun.h"

#include "host/iolib/Styles.h"
#include "tests/support/ObjectText.h"

#include <gmock/gmock.h>

namespace {

using import_test::Importing;
using import_test::kBounds3200;
using import_test::Lines;
using testing::ElementsAre;

std::string Dashes(const float* table) {
    std::string text = " dashes=";
    for (const float* dash = table; *dash != 0.0F; ++dash) {
        text += (dash == table ? "" : ",") + support::DescribeNumber(double{*dash});
    }
    return text;
}

std::string Marker(const char* position) {
    return std::string("MarkerSet style=1 size=0 font=\"ZEI Default Symbols\" index=0 ") + position;
}

struct ClauseRow {
    std::string name;
    std::string clause;
    std::string received;  // what comes before the point; empty: nothing
};

// In a file whose reference diagonal is 3200.
class AStyleClause : public Importing, public testing::WithParamInterface<ClauseRow> {};

TEST_P(AStyleClause, GivesTheHost) {
    AddToHeader(kBounds3200);

    Import("Point 1 2\n    " + GetParam().clause + "\nPoint 3 4\n");

    Lines expected{Marker("1,2"), Marker("3,4")};
    if (!GetParam().received.empty()) {
        expected.insert(expected.begin(), GetParam().received);
    }
    EXPECT_EQ(HostReceived(), expected);
}

ClauseRow PenRow(const char* name, const char* clause, const std::string& pen) {
    return {name, clause, "Pen " + pen};
}

const ClauseRow kPenRows[] = {
    PenRow("SolidBlack", "Pen (1,2,0)", "style=1 color=0,0,0,255 relative width=0"),
    PenRow("TwoPixelsBlue", "Pen (2,2,255)", "style=1 color=0,0,255,255 relative width=10"),
    PenRow("ThreePixels", "Pen (3,2,0)", "style=1 color=0,0,0,255 relative width=20"),
    PenRow("FourPixels", "Pen (4,2,0)", "style=1 color=0,0,0,255 relative width=40"),
    PenRow("FivePixels", "Pen (5,2,0)", "style=1 color=0,0,0,255 relative width=80"),
    PenRow("SixPixels", "Pen (6,2,0)", "style=1 color=0,0,0,255 relative width=160"),
    PenRow("SevenPixels", "Pen (7,2,0)", "style=1 color=0,0,0,255 relative width=320"),
    PenRow("EightPixelsAsSeven", "Pen (8,2,0)", "style=1 color=0,0,0,255 relative width=320"),
    PenRow("TenPixelsAsSeven", "Pen (10,2,0)", "style=1 color=0,0,0,255 relative width=320"),
    PenRow("NegativeWidthAsThinnest", "Pen (-5,2,0)", "style=1 color=0,0,0,255 relative width=0"),
    PenRow("HalfAPoint", "Pen (15,2,0)",
           "style=1 color=0,0,0,255 inches width=" + support::DescribeNumber(0.5 / 72)),
    PenRow("ATenthOfAPoint", "Pen (11,2,0)",
           "style=1 color=0,0,0,255 inches width=" + support::DescribeNumber(0.1 / 72)),
    PenRow("WidthZeroOfNoLine", "Pen (0,1,0)", "style=2 color=0,0,0,255 relative width=0"),
    PenRow("WidthZeroOfASolidLine", "Pen (0,2,0)", "style=1 color=0,0,0,255 relative width=0"),
    PenRow("NoLine", "Pen (1,1,0)", "style=2 color=0,0,0,255 relative width=0"),
    PenRow("Dots", "Pen (1,3,0)",
           "style=3 color=0,0,0,255 relative width=0" + Dashes(iolib::g_LS_Dot)),
    PenRow("Dashes", "Pen (1,5,0)",
           "style=3 color=0,0,0,255 relative width=0" + Dashes(iolib::g_LS_Dash)),
    PenRow("DashDot", "Pen (1,14,0)",
           "style=3 color=0,0,0,255 relative width=0" + Dashes(iolib::g_LS_DashDot)),
    PenRow("DashDotDot", "Pen (1,20,0)",
           "style=3 color=0,0,0,255 relative width=0" + Dashes(iolib::g_LS_DashDotDot)),
    PenRow("PatternFourAsSolid", "Pen (1,4,0)", "style=1 color=0,0,0,255 relative width=0"),
    PenRow("PatternZeroAsSolid", "Pen (1,0,0)", "style=1 color=0,0,0,255 relative width=0"),
    PenRow("PatternTwentyOneAsSolid", "Pen (1,21,0)", "style=1 color=0,0,0,255 relative width=0"),
    PenRow("PatternBelowZeroAsSolid", "Pen (1,-1,0)", "style=1 color=0,0,0,255 relative width=0"),
    PenRow("ThreeColours", "Pen (1,2,1122867)", "style=1 color=17,34,51,255 relative width=0"),
    PenRow("NegativeColourDividedWithItsSign", "Pen (1,2,-65537)",
           "style=1 color=255,0,255,255 relative width=0"),
    PenRow("NoParenthesis", "Pen 1,2,255", "style=1 color=0,0,255,255 relative width=0"),
    PenRow("NoCommas", "Pen (1 2 255)", "style=1 color=0,0,255,255 relative width=0"),
    PenRow("AnyCase", "PEN (1,2,255)", "style=1 color=0,0,255,255 relative width=0"),
    PenRow("BlanksEverywhere", "Pen ( 1 , 2 , 255 )", "style=1 color=0,0,255,255 relative width=0"),
    PenRow("LargestWidth", "Pen (2147483647,2,0)",
           "style=1 color=0,0,0,255 inches width=" +
               support::DescribeNumber(2147483637 / 10.0 / 72.0)),
};

INSTANTIATE_TEST_SUITE_P(Pen, AStyleClause, testing::ValuesIn(kPenRows),
                         [](const auto& row) { return row.param.name; });

ClauseRow BrushRow(const char* name, const char* clause, const char* brush) {
    return {name, clause, std::string("Brush ") + brush};
}

const ClauseRow kBrushRows[] = {
    BrushRow("RedHorizontalOnNothing", "Brush (3,16711680)",
             "pattern=7 fore=255,0,0,255 back=255,255,255,0"),
    BrushRow("WithABackColour", "Brush (2,16711680,255)",
             "pattern=2 fore=255,0,0,255 back=0,0,255,255"),
    BrushRow("One", "Brush (1,0,0)", "pattern=1 fore=0,0,0,255 back=0,0,0,255"),
    BrushRow("Two", "Brush (2,0,0)", "pattern=2 fore=0,0,0,255 back=0,0,0,255"),
    BrushRow("Four", "Brush (4,0,0)", "pattern=8 fore=0,0,0,255 back=0,0,0,255"),
    BrushRow("Five", "Brush (5,0,0)", "pattern=10 fore=0,0,0,255 back=0,0,0,255"),
    BrushRow("Six", "Brush (6,0,0)", "pattern=9 fore=0,0,0,255 back=0,0,0,255"),
    BrushRow("Seven", "Brush (7,0,0)", "pattern=11 fore=0,0,0,255 back=0,0,0,255"),
    BrushRow("Eight", "Brush (8,0,0)", "pattern=12 fore=0,0,0,255 back=0,0,0,255"),
    BrushRow("NineAsSolid", "Brush (9,0,0)", "pattern=2 fore=0,0,0,255 back=0,0,0,255"),
    BrushRow("ZeroAsSolid", "Brush (0,0,0)", "pattern=2 fore=0,0,0,255 back=0,0,0,255"),
    BrushRow("NoNumbers", "Brush", "pattern=2 fore=0,0,0,255 back=255,255,255,0"),
    BrushRow("NoParenthesis", "Brush 2, 255", "pattern=2 fore=0,0,255,255 back=255,255,255,0"),
};

INSTANTIATE_TEST_SUITE_P(Brush, AStyleClause, testing::ValuesIn(kBrushRows),
                         [](const auto& row) { return row.param.name; });

const ClauseRow kUnseenRows[] = {
    {"Smooth", "Smooth", ""},
    {"Center", "Center 1 2", ""},
    {"Angle", "Angle 45", ""},
    {"Font", "Font (\"Arial\",0,12,255)", ""},
    {"Spacing", "Spacing 1.5", ""},
    {"Justify", "Justify Right", ""},
    {"Label", "Label Line Arrow 1 2", ""},
    {"Symbol", "Symbol (35,0,12)", ""},
};

INSTANTIATE_TEST_SUITE_P(ThatIsNotHandedOver, AStyleClause, testing::ValuesIn(kUnseenRows),
                         [](const auto& row) { return row.param.name; });

using ImportedStyles = Importing;

TEST_F(ImportedStyles, TheLastOfTwoPensCounts) {
    Import("Point 1 2\nPen (1,5,255)\nPen (1,2,0)\n");

    EXPECT_EQ(Host().Received<zeio::TrPen>().size(), 1U);
    EXPECT_EQ(Host().Received<zeio::TrPen>().at(0)->style, zeio::TrPen::Style::Solid);
}

TEST_F(ImportedStyles, DoNotLastBeyondTheirObject) {
    Import("Point 1 2\nPen (1,2,0)\nPoint 3 4\n");

    EXPECT_EQ(Host().Received<zeio::TrPen>().size(), 1U);
}

TEST_F(ImportedStyles, APenWithoutItsLastNumbersTakesTheNextLineWithIt) {
    Import("Point 1 2\nPen (1,2\nPoint 3 4\nPoint 5 6\n");

    EXPECT_THAT(HostReceived(), ElementsAre("Pen style=1 color=0,0,0,255 relative width=0",
                                            Marker("1,2"), Marker("5,6")));
}

struct DiagonalRow {
    std::string name;
    std::string bounds;  // a line of the header, or nothing
    std::string objects;
    double width;  // a tenth of the reference diagonal
};

class TheReferenceDiagonal : public Importing, public testing::WithParamInterface<DiagonalRow> {};

TEST_P(TheReferenceDiagonal, MakesAWidePenATenthOf) {
    AddToHeader(GetParam().bounds);

    Import(GetParam().objects + "Pen (7,2,0)\n");

    EXPECT_EQ(Host().Received<zeio::TrPen>().at(0)->width, GetParam().width);
}

const DiagonalRow kDiagonalRows[] = {
    {"TheBounds", std::string(kBounds3200), "Line 1 1 4 5\n", 320.0},
    {"TheBoundsBackwards", "Bounds (1920, 2560) (0, 0)\n", "Line 1 1 4 5\n", 320.0},
    {"TheCoordinatesWithoutBounds", "", "Line 1 1 4 5\n", 0.5},
    {"TheCoordinatesWhenTheBoundsHaveNoSize", "Bounds (7, 7) (7, 7)\n", "Line 1 1 4 5\n", 0.5},
    {"AllCoordinatesSoFar", "", "Point 1 1\nPoint 4 5\n", 0.5},
    {"NothingForASinglePoint", "", "Point 1 1\n", 0.0},
    {"KeptNothingForAFileBelowZero", "", "Line -1 -1 -4 -5\n", 0.0},
    {"KeptNothingForAFileThatReachesUpToZero", "", "Line 0 0 -4 -5\n", 0.0},
};

INSTANTIATE_TEST_SUITE_P(, TheReferenceDiagonal, testing::ValuesIn(kDiagonalRows),
                         [](const auto& row) { return row.param.name; });

// In a file whose reference diagonal is 3200: a symbol of size 10 is 32 world units large.
class AMultipoint : public Importing {
protected:
    void SetUp() override { AddToHeader(kBounds3200); }
};

constexpr char kBluePen[] = "Pen style=1 color=0,0,255,255 relative width=0";

TEST_F(AMultipoint, TakesTheSizeOfItsSymbol) {
    Import("Multipoint 1\n1 2\nSymbol (35,255,20)\n");

    EXPECT_EQ(HostReceived().back(),
              "MarkerSet style=1 size=64 font=\"ZEI Default Symbols\" index=0 1,2");
}

TEST_F(AMultipoint, KeptHandsItsSymbolsColourOverTwiceAsAPen) {
    Import("Multipoint 1\n1 2\nSymbol (35,255,10)\n");

    EXPECT_THAT(HostReceived(),
                ElementsAre(kBluePen, kBluePen,
                            "MarkerSet style=1 size=32 font=\"ZEI Default Symbols\" index=0 1,2"));
}

TEST_F(AMultipoint, KeptHandsItsSymbolsColourOverUnderIgnoreStylesToo) {
    Remember(L"IgnoreStyles", true);

    Import("Multipoint 1\n1 2\nPen (1,2,0)\nSymbol (35,255,10)\n");

    EXPECT_THAT(HostReceived(),
                ElementsAre(kBluePen, kBluePen,
                            "MarkerSet style=1 size=32 font=\"ZEI Default Symbols\" index=0 1,2"));
}

TEST_F(AMultipoint, HandsItsPenAndBrushOverBeforeItsSymbolsColour) {
    Import("Multipoint 1\n1 2\nSymbol (35,255,10)\nBrush (2,0,0)\nPen (1,2,0)\n");

    EXPECT_THAT(HostReceived(), ElementsAre("Pen style=1 color=0,0,0,255 relative width=0",
                                            "Brush pattern=2 fore=0,0,0,255 back=0,0,0,255",
                                            kBluePen, kBluePen, testing::StartsWith("MarkerSet")));
}

struct SymbolRow {
    std::string name;
    std::string clause;
    std::string markerSet;
};

class ASymbolClause : public AMultipoint, public testing::WithParamInterface<SymbolRow> {};

TEST_P(ASymbolClause, GivesAMultipoint) {
    Import("Multipoint 1\n1 2\n" + GetParam().clause + "\n");

    EXPECT_EQ(HostReceived().back(), "MarkerSet " + GetParam().markerSet + " 1,2");
}

const SymbolRow kSymbolRows[] = {
    {"SizeOneWithoutASize", "Symbol (35,255)",
     "style=1 size=3.2 font=\"ZEI Default Symbols\" index=0"},
    {"SizeOneWorldUnitForASizeOfZero", "Symbol (35,255,0)",
     "style=1 size=1 font=\"ZEI Default Symbols\" index=0"},
    {"SizeOneWorldUnitForASizeBelowZero", "Symbol (35,255,-4)",
     "style=1 size=1 font=\"ZEI Default Symbols\" index=0"},
    {"AFontSymbol", "Symbol (42,255,10,\"Map Symbols\",1,30)",
     "style=0 size=32 font=\"Map Symbols\" index=10"},
    {"AFontSymbolWithoutStyleAndRotation", "Symbol (42,255,10,\"Map Symbols\")",
     "style=0 size=32 font=\"Map Symbols\" index=10"},
    {"ANamelessFontAsTheDefault", "Symbol (42,255,10,\"\",1,30)",
     "style=1 size=32 font=\"ZEI Default Symbols\" index=0"},
    {"TheSmallestShape", "Symbol (-2147483648,255,10,\"F\")",
     "style=0 size=32 font=\"F\" index=-2147483648"},
    {"TheLargestShape", "Symbol (2147483647,255,10,\"F\")",
     "style=0 size=32 font=\"F\" index=2147483615"},
    {"NoParenthesis", "Symbol 42,255,10", "style=1 size=32 font=\"ZEI Default Symbols\" index=0"},
    {"NoNumbers", "Symbol", "style=1 size=3.2 font=\"ZEI Default Symbols\" index=0"},
};

INSTANTIATE_TEST_SUITE_P(, ASymbolClause, testing::ValuesIn(kSymbolRows),
                         [](const auto& row) { return row.param.name; });

TEST(AMultipointInAFileOfUnknownSize, HasSymbolsOfOneWorldUnit) {
    EXPECT_EQ(import_test::ObjectsOf("Multipoint 1\n1 2\nSymbol (35,255,20)\n").back(),
              "MarkerSet style=1 size=1 font=\"ZEI Default Symbols\" index=0 1,2");
}

}  // namespace
