// Text objects.
#include "tests/import/ImportRun.h"

#include <gmock/gmock.h>

#include <cmath>
#include <numbers>

namespace {

using import_test::Importing;
using import_test::kBounds3200;
using testing::ElementsAre;

constexpr char kNoLine[] = "Pen style=2 color=0,0,0,0 relative width=0";
constexpr char kBlack[] = "Brush pattern=2 fore=0,0,0,255 back=255,255,255,0";

class ImportedText : public Importing {
protected:
    const zeio::TrText& Received() { return *Host().Received<zeio::TrText>().at(0); }
    const zeio::TrFont& ReceivedFont() { return *Host().Received<zeio::TrFont>().at(0); }
};

struct PlaceRow {
    std::string name;
    std::string text;  // what follows the keyword
    double height;
    std::string placed;
};

// In a file whose reference diagonal is 3200.
class ATextIsPlaced : public ImportedText, public testing::WithParamInterface<PlaceRow> {};

TEST_P(ATextIsPlaced, By) {
    AddToHeader(kBounds3200);

    Import("Text " + GetParam().text);

    EXPECT_EQ(ReceivedFont().height, GetParam().height);
    EXPECT_THAT(Host().CallsStartingWith("Text"), ElementsAre("Text " + GetParam().placed));
}

const PlaceRow kPlaceRows[] = {
    {"APointOfAllZeros", "\"a\"\n0 0 0 0\n", 32.0,
     "\"a\" at 0,0 box=0,0,16,32 justify=0 align=1 rotation=0"},
    {"APointOfEqualCorners", "\"ab\"\n5 6 5 6\n", 32.0,
     "\"ab\" at 5,6 box=5,6,37,38 justify=0 align=1 rotation=0"},
    {"APointInTheSecondCorner", "\"ab\"\n0 0 5 6\n", 32.0,
     "\"ab\" at 5,6 box=5,6,37,38 justify=0 align=1 rotation=0"},
    {"APointInTheFirstCorner", "\"ab\"\n5 6 0 0\n", 32.0,
     "\"ab\" at 5,6 box=5,6,37,38 justify=0 align=1 rotation=0"},
    {"ABox", "\"abcde\"\n10 20 60 30\n", 10.0,
     "\"abcde\" at 10,20 box=10,20,60,30 justify=0 align=1 rotation=0"},
    {"ABoxAtTheOriginWithoutWidth", "\"a\"\n0 0 0 8\n", 8.0,
     "\"a\" at 0,0 box=0,0,0,8 justify=0 align=1 rotation=0"},
    {"ABoxWiderThanItsText", "\"a\"\n1 1 7 9\n", 8.0,
     "\"a\" at 1,1 box=1,1,7,9 justify=0 align=1 rotation=0"},
    {"ABoxUpsideDown", "\"a\"\n1 9 7 1\n", 5.0,
     "\"a\" at 1,9 box=1,9,7,17 justify=0 align=1 rotation=0"},
    {"ABoxBackwards", "\"a\"\n7 1 1 9\n", 8.0,
     "\"a\" at 7,1 box=7,1,13,9 justify=0 align=1 rotation=0"},
};

INSTANTIATE_TEST_SUITE_P(, ATextIsPlaced, testing::ValuesIn(kPlaceRows),
                         [](const auto& row) { return row.param.name; });

TEST_F(ImportedText, KeptIsAPointOnlyByExactComparison) {
    Import("Text \"abc\"\n0 0 1e-300 1e-300\nText \"abc\"\n1 1 1.0000000000000002 1\n");

    EXPECT_THAT(Host().CallsStartingWith("Font"),
                ElementsAre("Font \"\" flags=4 height=1", "Font \"\" flags=4 height=1"));
    EXPECT_EQ(Received().box, (shr::Box2d{1e-300, 1e-300, 1.5, 1.0}));
    EXPECT_EQ(Host().Received<zeio::TrText>().at(1)->box,
              (shr::Box2d{1.0, 1.0, 1.0000000000000002, 1.0}));
}

TEST_F(ImportedText, InAFileOfUnknownSizeAPointTextIsOneUnitHigh) {
    Import("Text \"a\"\n0 0 0 0\n");

    EXPECT_EQ(ReceivedFont().height, 1.0);
    EXPECT_EQ(Received().box, (shr::Box2d{0.0, 0.0, 0.5, 1.0}));
}

TEST_F(ImportedText, OfNoHeightIsOneUnitHigh) {
    Import("Text \"a\"\n1 2 1.00000001 2\n");

    EXPECT_EQ(ReceivedFont().height, 1.0);
}

TEST_F(ImportedText, TakesItsBoxFromTheNumberOfBytes) {
    Import("Text \"a\xE4z\"\n5 5 5 5\n");

    EXPECT_EQ(Received().text, L"a\u00E4z");
    EXPECT_EQ(Received().box, (shr::Box2d{5.0, 5.0, 6.5, 6.0}));
}

TEST_F(ImportedText, AtAPointTurnsAboutThatPoint) {
    Import("Text \"abc\"\n5 6 5 6\nAngle 90\n");

    const shr::Vec3d turned = Received().transform.Transform({6.0, 6.0, 0.0});
    EXPECT_NEAR(turned.x, 5.0, 1e-12);
    EXPECT_NEAR(turned.y, 7.0, 1e-12);
    EXPECT_EQ(Received().position, (shr::Vec3d{5.0, 6.0, 0.0}));
}

TEST_F(ImportedText, InABoxStartsWhereTheFirstCornerIsTurnedTo) {
    // The box 50 x 10 turned by 90 degrees about (10, 30): the corner (10, 20) below it moves to
    // the right.
    Import("Text \"abcde\"\n10 20 60 30\nAngle 90\n");

    EXPECT_NEAR(Received().position.x, 20.0, 1e-12);
    EXPECT_NEAR(Received().position.y, 30.0, 1e-12);
    EXPECT_NEAR(Received().box.minX, 20.0, 1e-12);
    EXPECT_NEAR(Received().box.minY, 30.0, 1e-12);
    EXPECT_NEAR(Received().box.maxX, 70.0, 1e-12);
    EXPECT_NEAR(Received().box.maxY, 40.0, 1e-12);
    EXPECT_NEAR(Received().transform.GetRotation2(), std::numbers::pi / 2, 1e-12);
}

TEST_F(ImportedText, KeptTurnsByWholeDegrees) {
    Import("Text \"abc\"\n5 6 5 6\nAngle 45.9\n");

    EXPECT_NEAR(Received().transform.GetRotation2(), std::numbers::pi / 4, 1e-12);
}

TEST_F(ImportedText, AddsItsAnchorToTheExtentsAfterItsHeightIsChosen) {
    Import("Point 1 1\nText \"a\"\n4 5 4 5\n");

    EXPECT_EQ(ReceivedFont().height, 1.0);
    EXPECT_EQ(Filter().extents().Diagonal(), 5.0);
}

TEST_F(ImportedText, StandsBehindTheKeyword) {
    Import("Text \"abc\"\n1 2 3 4\nPoint 1 2\n");

    EXPECT_EQ(Received().text, L"abc");
    EXPECT_EQ(Host().Received<zeio::TrMarkerSet>().size(), 1U);
}

TEST_F(ImportedText, StandsOnTheNextLineWhenNothingIsBehindTheKeyword) {
    Import("Text\n  \"abc\"\n  1 2 3 4\nPoint 1 2\n");

    EXPECT_EQ(Received().text, L"abc");
    EXPECT_EQ(Received().position, (shr::Vec3d{1.0, 2.0, 0.0}));
    EXPECT_EQ(Host().Received<zeio::TrMarkerSet>().size(), 1U);
}

TEST_F(ImportedText, KeptLooksForAStringOnTheNextLineAfterAnEmptyOne) {
    Import("Text \"\"\nabc\n1 2 3 4\n");

    EXPECT_EQ(Received().text, L"abc");
}

TEST_F(ImportedText, KeptTakesTheFirstNumberForItsStringAfterAnEmptyOne) {
    Import("Text \"\"\n10 20 30 40\n1 2 3 4\n");

    EXPECT_EQ(Received().text, L"10");
    EXPECT_EQ(Received().position, (shr::Vec3d{1.0, 2.0, 0.0}));
}

TEST_F(ImportedText, WithoutAStringGivesNothing) {
    Import("Text\n\"\"\n1 2 3 4\nFont (\"Arial\",0,0,0)\nPen (1,2,0)\n");

    EXPECT_THAT(HostReceived(), ElementsAre());
}

TEST_F(ImportedText, KeptHandsItsClauseBrushAndPenOverBehindTheText) {
    Import("Text \"abc\"\n5 6 5 6\nPen (1,2,255)\nBrush (3,255)\n");

    EXPECT_THAT(HostReceived(),
                ElementsAre("Font \"\" flags=4 height=1", kNoLine, kBlack,
                            "Text \"abc\" at 5,6 box=5,6,6.5,7 justify=0 align=1 rotation=0",
                            "Brush pattern=7 fore=0,0,255,255 back=255,255,255,0",
                            "Pen style=1 color=0,0,255,255 relative width=0"));
}

TEST_F(ImportedText, UnderIgnoreStylesIsFontAndTextAlone) {
    Remember(L"IgnoreStyles", true);

    Import("Text \"abc\"\n5 6 5 6\nPen (1,2,255)\nBrush (3,255)\nFont (\"Arial\",1,0,255)\n");

    EXPECT_THAT(HostReceived(),
                ElementsAre("Font \"Arial\" flags=7 height=1",
                            "Text \"abc\" at 5,6 box=5,6,6.5,7 justify=0 align=1 rotation=0"));
}

struct FontRow {
    std::string name;
    std::string clause;
    std::string font;  // without its height, which is 1
    std::string fore;
};

class AFontClause : public ImportedText, public testing::WithParamInterface<FontRow> {};

TEST_P(AFontClause, GivesAText) {
    Import("Text \"abc\"\n5 6 5 6\n" + GetParam().clause + "\nPoint 1 2\n");

    EXPECT_EQ(HostReceived().at(0), "Font " + GetParam().font + " height=1");
    EXPECT_EQ(HostReceived().at(2),
              "Brush pattern=2 fore=" + GetParam().fore + " back=255,255,255,0");
    EXPECT_EQ(Host().Received<zeio::TrMarkerSet>().size(), 1U);
}

const FontRow kFontRows[] = {
    {"Plain", "Font (\"Arial\",0,12,255)", "\"Arial\" flags=4", "0,0,255,255"},
    {"Bold", "Font (\"Arial\",1,12,255)", "\"Arial\" flags=7", "0,0,255,255"},
    {"BoldAndItalic", "Font (\"Arial\",3,12,255)", "\"Arial\" flags=23", "0,0,255,255"},
    {"Underlined", "Font (\"Arial\",4,12,255)", "\"Arial\" flags=36", "0,0,255,255"},
    {"WithOtherBits", "Font (\"Arial\",1288,12,255)", "\"Arial\" flags=4", "0,0,255,255"},
    {"WithABackColour", "Font (\"Arial\",0,12,255,65535)", "\"Arial\" flags=4", "0,0,255,255"},
    {"ByACommaInItsName", "Font (\"Arial,Bold\",0,12,255)", "\"Arial,Bold\" flags=4",
     "0,0,255,255"},
    {"InTheHostsCodePage", "Font (\"\xC4\",0,12,255)", "\"\u00C4\" flags=4", "0,0,255,255"},
    {"WithoutParenthesis", "Font \"Arial\",0,12,255", "\"Arial\" flags=4", "0,0,255,255"},
    {"WithoutAName", "Font (\"\",1,12,255)", "\"\" flags=7", "0,0,255,255"},
};

INSTANTIATE_TEST_SUITE_P(, AFontClause, testing::ValuesIn(kFontRows),
                         [](const auto& row) { return row.param.name; });

struct JustifyRow {
    std::string name;
    std::string clause;
    zeio::TrText::Justify justify;
};

class AJustifyClause : public ImportedText, public testing::WithParamInterface<JustifyRow> {};

TEST_P(AJustifyClause, GivesAText) {
    Import("Text \"abc\"\n5 6 5 6\n" + GetParam().clause + "\n");

    EXPECT_EQ(Received().justify, GetParam().justify);
    EXPECT_EQ(Received().align, 1);
}

const JustifyRow kJustifyRows[] = {
    {"Left", "Justify Left", zeio::TrText::Justify::Left},
    {"Center", "Justify Center", zeio::TrText::Justify::Centre},
    {"Right", "Justify Right", zeio::TrText::Justify::Right},
    {"AnyCase", "JUSTIFY RIGHT", zeio::TrText::Justify::Right},
    {"AnotherWord", "Justify Middle", zeio::TrText::Justify::Left},
    {"TheLastOne", "Justify Right\nJustify Left", zeio::TrText::Justify::Left},
};

INSTANTIATE_TEST_SUITE_P(, AJustifyClause, testing::ValuesIn(kJustifyRows),
                         [](const auto& row) { return row.param.name; });

TEST_F(ImportedText, SkipsSpacingAndLabelClauses) {
    Import("Text \"abc\"\n5 6 5 6\nSpacing 1.5\nLabel Line Simple 1 2\nPoint 1 2\n");

    EXPECT_EQ(Host().Received<zeio::TrText>().size(), 1U);
    EXPECT_EQ(Host().Received<zeio::TrMarkerSet>().size(), 1U);
}

TEST_F(ImportedText, DoesNotKeepTheJustificationOfTheTextBefore) {
    Import("Text \"abc\"\n5 6 5 6\nJustify Right\nText \"abc\"\n5 6 5 6\n");

    EXPECT_EQ(Host().Received<zeio::TrText>().at(1)->justify, zeio::TrText::Justify::Left);
}

}  // namespace
