#include "export/StyleCodes.h"

#include "host/iolib/Styles.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

namespace mif::test {

namespace {

using zeio::TrBrush;
using zeio::TrPen;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

TrPen PenOf(int style, std::vector<float> dashes = {}) {
    TrPen pen(static_cast<TrPen::Style>(style), shr::Color4b(), 0.0);
    pen.dashes = std::move(dashes);
    return pen;
}

// A dash table of the host up to its closing 0.
std::vector<float> Dashes(const float* table) {
    std::vector<float> dashes;
    while (*table != 0.0F) {
        dashes.push_back(*table++);
    }
    return dashes;
}

}  // namespace

TEST(MifColor, PutsRedInTheHighByteAndDropsAlpha) {
    EXPECT_EQ(MifColor(shr::Color4b(1, 2, 3, 4)), 66051U);
    EXPECT_EQ(MifColor(shr::Color4b(255, 255, 255, 0)), 16777215U);
}

struct PenPatternRow {
    std::string name;
    int style;
    std::vector<float> dashes;
    unsigned long pattern;
};
class PenPattern : public testing::TestWithParam<PenPatternRow> {};

TEST_P(PenPattern, FollowsTheStyle) {
    EXPECT_EQ(MifPenPattern(PenOf(GetParam().style, GetParam().dashes)), GetParam().pattern);
}
INSTANTIATE_TEST_SUITE_P(
    , PenPattern,
    testing::Values(PenPatternRow{"Initial", 0, {}, 19}, PenPatternRow{"Solid", 1, {}, 2},
                    PenPatternRow{"NoLine", 2, {}, 1}, PenPatternRow{"Other", 4, {}, 19},
                    PenPatternRow{"Largest", 65535, {}, 19},
                    PenPatternRow{"Dashes", 3, Dashes(iolib::g_LS_Dash), 5},
                    PenPatternRow{"Dots", 3, Dashes(iolib::g_LS_Dot), 3},
                    PenPatternRow{"DashDots", 3, Dashes(iolib::g_LS_DashDot), 14},
                    PenPatternRow{"DashDotDots", 3, Dashes(iolib::g_LS_DashDotDot), 20},
                    PenPatternRow{"CustomWithoutDashes", 3, {}, 19}),
    [](const auto& row) { return row.param.name; });

struct FillPatternRow {
    int pattern;
    unsigned long mifPattern;
};
class FillPattern : public testing::TestWithParam<FillPatternRow> {};

TEST_P(FillPattern, FollowsTheBrushPattern) {
    EXPECT_EQ(MifFillPattern(static_cast<TrBrush::Pattern>(GetParam().pattern)),
              GetParam().mifPattern);
}
INSTANTIATE_TEST_SUITE_P(
    , FillPattern,
    testing::Values(FillPatternRow{0, 2}, FillPatternRow{1, 1}, FillPatternRow{2, 2},
                    FillPatternRow{3, 55}, FillPatternRow{4, 2}, FillPatternRow{5, 2},
                    FillPatternRow{6, 2}, FillPatternRow{7, 3}, FillPatternRow{8, 4},
                    FillPatternRow{9, 6}, FillPatternRow{10, 5}, FillPatternRow{11, 7},
                    FillPatternRow{12, 8}, FillPatternRow{13, 2}, FillPatternRow{1000000, 2}),
    [](const auto& row) { return "Pattern" + std::to_string(row.param.pattern); });

TEST(FillPatternOfANegativeNumber, IsSolid) {
    EXPECT_EQ(MifFillPattern(static_cast<TrBrush::Pattern>(-1)), 2U);
}

struct FontStyleRow {
    std::string name;
    std::uint16_t flags;
    unsigned long style;
};
class FontStyle : public testing::TestWithParam<FontStyleRow> {};

TEST_P(FontStyle, AddsUpItsBits) {
    EXPECT_EQ(MifFontStyle(GetParam().flags), GetParam().style);
}
INSTANTIATE_TEST_SUITE_P(
    , FontStyle,
    testing::Values(FontStyleRow{"Plain", 4, 0}, FontStyleRow{"HeaviestThatIsNotBold", 5, 0},
                    FontStyleRow{"LightestBold", 6, 1}, FontStyleRow{"HeaviestBold", 15, 1},
                    FontStyleRow{"Italic", 0x14, 2}, FontStyleRow{"BoldItalic", 0x17, 3},
                    FontStyleRow{"Underlined", 0x24, 4}, FontStyleRow{"All", 0x37, 7},
                    FontStyleRow{"OtherBits", 0xFFC4, 0}),
    [](const auto& row) { return row.param.name; });

struct GradeRow {
    std::string name;
    double width;
    unsigned long code;
};
class GradedPenWidth : public testing::TestWithParam<GradeRow> {};

TEST_P(GradedPenWidth, ReachesTheShareOfADiagonalOf320) {
    EXPECT_EQ(GradePenWidth(GetParam().width, 320.0), GetParam().code);
}
INSTANTIATE_TEST_SUITE_P(
    , GradedPenWidth,
    testing::Values(GradeRow{"ATenth", 32.0, 7}, GradeRow{"BelowATenth", 31.9, 6},
                    GradeRow{"ATwentieth", 16.0, 6}, GradeRow{"BelowATwentieth", 15.9, 5},
                    GradeRow{"AFortieth", 8.0, 5}, GradeRow{"BelowAFortieth", 7.9, 4},
                    GradeRow{"AnEightieth", 4.0, 4}, GradeRow{"BelowAnEightieth", 3.9, 3},
                    GradeRow{"A160th", 2.0, 3}, GradeRow{"BelowA160th", 1.9, 2},
                    GradeRow{"A320th", 1.0, 2}, GradeRow{"BelowA320th", 0.9, 1},
                    GradeRow{"Zero", 0.0, 1}, GradeRow{"Negative", -5.0, 1},
                    GradeRow{"NotANumber", kNan, 1}, GradeRow{"Infinite", kInfinity, 7}),
    [](const auto& row) { return row.param.name; });

struct AbsoluteRow {
    std::string name;
    double inches;
    unsigned long code;
};
class AbsolutePenWidthCode : public testing::TestWithParam<AbsoluteRow> {};

TEST_P(AbsolutePenWidthCode, IsTenPlusTenthsOfAPoint) {
    EXPECT_EQ(AbsolutePenWidth(GetParam().inches), GetParam().code);
}
INSTANTIATE_TEST_SUITE_P(
    , AbsolutePenWidthCode,
    testing::Values(AbsoluteRow{"HalfAnInch", 0.5, 370}, AbsoluteRow{"OnePoint", 1.0 / 72.0, 20},
                    AbsoluteRow{"CutNotRounded", 0.0026, 11}, AbsoluteRow{"Zero", 0.0, 0},
                    AbsoluteRow{"MinusZero", -0.0, 0}, AbsoluteRow{"Negative", -1.0, 0},
                    AbsoluteRow{"SlightlyNegative", -0.005, 6}, AbsoluteRow{"NotANumber", kNan, 0},
                    AbsoluteRow{"Huge", 1e30, 4294967295},
                    AbsoluteRow{"Infinite", kInfinity, 4294967295},
                    AbsoluteRow{"MinusInfinite", -kInfinity, 0}),
    [](const auto& row) { return row.param.name; });

TEST(ToUnsigned, CutsAndClamps) {
    EXPECT_EQ(ToUnsigned(12.99), 12U);
    EXPECT_EQ(ToUnsigned(4294967294.9), 4294967294U);
    EXPECT_EQ(ToUnsigned(4294967296.0), 4294967295U);
    EXPECT_EQ(ToUnsigned(-0.5), 0U);
}

}  // namespace mif::test
