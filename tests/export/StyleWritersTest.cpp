// PEN, BRUSH and FONT clauses as in the file.
#include "tests/export/ExportRun.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace mif::test {

namespace {

using testing::EndsWith;
using testing::HasSubstr;
using zeio::TrPen;

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

zeio::TrPolyline Line() {
    return Polyline({{0, 0, 0}, {300, 400, 0}});
}

// The PEN clause of a line, without its line end, and the version: "PEN (1, 2, 0) 300".
std::string PenClause(zeio::TrPen pen) {
    ExportRun run;
    run.Export(pen, Line());
    const std::string objects = run.Objects();
    const std::size_t start = objects.find("PEN");
    return objects.substr(start, objects.size() - start - 1) + run.HeaderLines("VERSION").substr(8);
}

std::string BrushClause(zeio::TrBrush brush) {
    ExportRun run;
    run.Export(brush, Rectangle(0, 0, 1, 1));
    const std::string objects = run.Objects();
    return objects.substr(objects.find("  BRUSH"));
}

std::string FontClause(zeio::TrFont font, double unitsPerPoint = 1.0) {
    ExportRun run;
    static_cast<void>(run.Begin());
    zeio::TrInitGraphicsExp questions;
    questions.unitsPerPoint = unitsPerPoint;
    static_cast<void>(run.Send(questions));
    static_cast<void>(run.Send(font));
    static_cast<void>(run.Send(Text(L"A", 0, 0)));
    static_cast<void>(run.End());
    const std::string objects = run.Objects();
    return objects.substr(objects.find("  FONT"));
}

// The PEN clause of a line while the extent is the given box.
std::string GradedPenClause(const zeio::TrPen& pen, double minX, double minY, double maxX,
                            double maxY) {
    ExportRun run;
    static_cast<void>(run.Begin());
    run.SendExtent(minX, minY, maxX, maxY);
    zeio::TrPen copy = pen;
    static_cast<void>(run.Send(copy));
    static_cast<void>(run.Send(Line()));
    static_cast<void>(run.End());
    const std::string objects = run.Objects();
    return objects.substr(objects.find("  PEN"));
}

}  // namespace

TEST(PenClauseOf, AnAbsoluteWidthIsInTenthsOfAPointAndNeedsVersion450) {
    EXPECT_EQ(PenClause(AbsolutePen(TrPen::Style::Solid, 0.5)), "PEN (370, 2, 0) 450");
}

TEST(PenClauseOf, AnAbsoluteWidthOfZeroIsOneAndLeavesTheVersion) {
    EXPECT_EQ(PenClause(AbsolutePen(TrPen::Style::Solid, 0.0)), "PEN (1, 2, 0) 300");
}

TEST(PenClauseOf, AnAbsoluteWidthThatIsNoWidthIsOneAndLeavesTheVersion) {
    EXPECT_EQ(PenClause(AbsolutePen(TrPen::Style::Solid, -1.0)), "PEN (1, 2, 0) 300");
    EXPECT_EQ(PenClause(AbsolutePen(TrPen::Style::Solid, kNan)), "PEN (1, 2, 0) 300");
}

TEST(PenClauseOf, AnAbsoluteWidthTooLargeIsClamped) {
    EXPECT_EQ(PenClause(AbsolutePen(TrPen::Style::Solid, 1e300)), "PEN (4294967295, 2, 0) 450");
}

TEST(PenClauseOf, AnAbsoluteWidthIsKeptForNoLine) {
    EXPECT_EQ(PenClause(AbsolutePen(TrPen::Style::NoLine, 0.5)), "PEN (370, 1, 0) 450");
}

TEST(PenClauseOf, NoLineOfRelativeWidthHasTheWidthZero) {
    EXPECT_EQ(PenClause(RelativePen(TrPen::Style::NoLine, 100.0)), "PEN (0, 1, 0) 300");
}

TEST(PenClauseOf, ThePensColourDropsItsAlpha) {
    TrPen pen(TrPen::Style::Solid, shr::Color4b(255, 128, 1, 3), 0.0);

    EXPECT_EQ(PenClause(pen), "PEN (1, 2, 16744449) 300");
}

TEST(PenClauseOf, ARelativeWidthIsGradedAgainstTheInputsExtent) {
    EXPECT_EQ(GradedPenClause(RelativePen(TrPen::Style::Solid, 100.0), 0, 0, 600, 800),
              "  PEN (7, 2, 0)\n");
    EXPECT_EQ(GradedPenClause(RelativePen(TrPen::Style::Solid, 30.0), 0, 0, 600, 800),
              "  PEN (5, 2, 0)\n");
    EXPECT_EQ(GradedPenClause(RelativePen(TrPen::Style::Solid, 0.0), 0, 0, 600, 800),
              "  PEN (1, 2, 0)\n");
}

TEST(PenClauseOf, ARelativeWidthBeforeTheExtentIsKnownIsPatchedAgainstTheOutput) {
    EXPECT_EQ(PenClause(RelativePen(TrPen::Style::Solid, 50.0)), "PEN (7, 2, 0) 300");
    EXPECT_EQ(PenClause(RelativePen(TrPen::Style::Solid, 49.0)), "PEN (6, 2, 0) 300");
}

TEST(PenClauseOf, ARelativeWidthIsPatchedWhenTheExtentIsReversed) {
    EXPECT_EQ(GradedPenClause(RelativePen(TrPen::Style::Solid, 49.0), 1000, 1000, 0, 0),
              "  PEN (6, 2, 0)\n");
}

TEST(PenClauseOf, ARelativeWidthIsPatchedWhenTheExtentIsAPoint) {
    EXPECT_EQ(GradedPenClause(RelativePen(TrPen::Style::Solid, 49.0), 5, 5, 5, 5),
              "  PEN (6, 2, 0)\n");
}

TEST(PenClauseOf, EveryPatchedPenLandsOnItsOwnDigit) {
    ExportRun run;
    run.Export(RelativePen(TrPen::Style::Solid, 50.0), Line(),
               RelativePen(TrPen::Style::CustomDash, 10.0), Line(),
               RelativePen(TrPen::Style::NoLine, 50.0), Line(),
               RelativePen(TrPen::Style::Undefined, 2.0), Rectangle(0, 0, 1, 1));

    EXPECT_EQ(run.Objects(), "PLINE 2\n0 0\n300 400\n  PEN (7, 2, 0)\n"
                             "PLINE 2\n0 0\n300 400\n  PEN (4, 19, 0)\n"
                             "PLINE 2\n0 0\n300 400\n  PEN (0, 1, 0)\n"
                             "RECT 0 0 1 1\n  PEN (2, 19, 0)\n  BRUSH (1, 0, 16777215)\n");
}

TEST(PenClauseOf, APatchedPenIsGradedAgainstOneWhenTheOutputIsAPoint) {
    ExportRun run;
    run.Export(RelativePen(TrPen::Style::Solid, 0.1), Polyline({{5, 5, 0}}));

    EXPECT_THAT(run.Objects(), EndsWith("  PEN (7, 2, 0)\n"));
}

TEST(PenClauseOf, APatchedPenIsOneWhenNoCoordinateWasWritten) {
    ExportRun run;
    run.Export(RelativePen(TrPen::Style::Solid, 1e300), Polygon({}));

    EXPECT_THAT(run.Objects(), HasSubstr("  PEN (1, 2, 0)\n"));
}

TEST(APen, AppliesToTheObjectsThatFollowIt) {
    ExportRun run;
    run.Export(Polyline({{0, 0, 0}, {1, 1, 0}}), AbsolutePen(TrPen::Style::Solid, 0.1),
               Polyline({{2, 2, 0}, {3, 3, 0}}));

    EXPECT_EQ(run.Objects(), "PLINE 2\n0 0\n1 1\n  PEN (1, 19, 0)\n"
                             "PLINE 2\n2 2\n3 3\n  PEN (82, 2, 0)\n");
}

struct AlphaRow {
    std::string name;
    std::uint8_t alpha;
    std::string clause;
};
class KeptABackColour : public testing::TestWithParam<AlphaRow> {};

TEST_P(KeptABackColour, IsLeftOutWhenItIsOpaque) {
    zeio::TrBrush brush(zeio::TrBrush::Pattern::Solid);
    brush.fore = shr::Color4b(0, 0, 255, 9);
    brush.back = shr::Color4b(0, 1, 0, GetParam().alpha);

    EXPECT_EQ(BrushClause(brush), GetParam().clause);
}
INSTANTIATE_TEST_SUITE_P(, KeptABackColour,
                         testing::Values(AlphaRow{"Transparent", 0, "  BRUSH (2, 255, 256)\n"},
                                         AlphaRow{"LastThatIsWritten", 127,
                                                  "  BRUSH (2, 255, 256)\n"},
                                         AlphaRow{"FirstThatIsNot", 128, "  BRUSH (2, 255)\n"},
                                         AlphaRow{"Opaque", 255, "  BRUSH (2, 255)\n"}),
                         [](const auto& row) { return row.param.name; });

TEST(FontClauseOf, AFontHasItsFaceStyleAndSize) {
    zeio::TrFont font(L"Times New Roman");
    font.flags = 0x37;
    font.height = 25.9;

    EXPECT_EQ(FontClause(font), "  FONT (\"Times New Roman\", 7, 25, 0)\n");
}

TEST(FontClauseOf, AFontIsOfTheDefaultFaceWithoutOneOfItsOwn) {
    EXPECT_EQ(FontClause(zeio::TrFont(L"")), "  FONT (\"Arial\", 0, 1, 0)\n");
}

TEST(FontClauseOf, ASizeIsTheHeightInPoints) {
    zeio::TrFont font;
    font.height = 25.0;

    EXPECT_EQ(FontClause(font, 2.0), "  FONT (\"Arial\", 0, 12, 0)\n");
}

TEST(FontClauseOf, ASizeIsNotScaledWhenTheHostStatesNoUnitsPerPoint) {
    zeio::TrFont font;
    font.height = 25.0;

    EXPECT_EQ(FontClause(font, 0.0), "  FONT (\"Arial\", 0, 25, 0)\n");
}

struct SizeRow {
    std::string name;
    double height;
    std::string size;
};
class AFontSize : public testing::TestWithParam<SizeRow> {};

TEST_P(AFontSize, IsClampedToItsRange) {
    zeio::TrFont font;
    font.height = GetParam().height;

    EXPECT_EQ(FontClause(font), "  FONT (\"Arial\", 0, " + GetParam().size + ", 0)\n");
}
INSTANTIATE_TEST_SUITE_P(, AFontSize,
                         testing::Values(SizeRow{"Negative", -3.0, "0"},
                                         SizeRow{"NotANumber", kNan, "0"},
                                         SizeRow{"Huge", 1e300, "4294967295"}),
                         [](const auto& row) { return row.param.name; });

TEST(FontClauseOf, AFontHasTheBrushesForeColour) {
    ExportRun run;
    zeio::TrBrush brush(zeio::TrBrush::Pattern::Solid);
    brush.fore = shr::Color4b(1, 0, 0);
    run.Export(brush, Text(L"A", 0, 0));

    EXPECT_THAT(run.Objects(), EndsWith("  FONT (\"Arial\", 0, 1, 65536)\n"));
}

TEST(FontClauseOf, AFaceIsOfCodePageZeroWithAQuestionMarkForWhatItCannotHold) {
    EXPECT_EQ(FontClause(zeio::TrFont(L"Gro\u00DF\u4E2D")), "  FONT (\"Gro\xDF?\", 0, 1, 0)\n");
}

}  // namespace mif::test
