// Widths and dashes of pens on the page.
#include "app/draw/LineDashes.h"

#include "host/iolib/Styles.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace {

using Style = zeio::TrPen::Style;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr float kInfinity = std::numeric_limits<float>::infinity();

zeio::TrPen PenOf(double widthInches) {
    zeio::TrPen pen(Style::Solid, shr::Color4b(0, 0, 0), widthInches);
    pen.isRelative = false;
    return pen;
}

zeio::TrPen DashedPen(std::vector<float> dashes) {
    zeio::TrPen pen(Style::CustomDash, shr::Color4b(0, 0, 0), 0.0);
    pen.dashes = std::move(dashes);
    return pen;
}

struct WidthRow {
    std::string name;
    double widthInches;
    double expected;
};
class PenWidthOnPage : public testing::TestWithParam<WidthRow> {};

TEST_P(PenWidthOnPage, IsThisManyPixels) {
    EXPECT_DOUBLE_EQ(app::PenWidthOnPage(PenOf(GetParam().widthInches), 500.0),
                     GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(, PenWidthOnPage,
                         testing::Values(WidthRow{"InchesTimes96", 0.125, 12.0},
                                         WidthRow{"NoInchesAreAHairline", 0.0, 1.0},
                                         WidthRow{"AThinPenStaysVisible", 1e-9, 0.5},
                                         WidthRow{"AHugePenHasALimit", 1e300, 500.0},
                                         WidthRow{"ANegativeWidthIsAHairline", -3.0, 1.0},
                                         WidthRow{"NoNumberIsAHairline", kNaN, 1.0}),
                         [](const auto& row) { return row.param.name; });

struct DashRow {
    std::string name;
    std::vector<float> dashes;
    double width;
    std::vector<double> expected;
};
class DashesOnPage : public testing::TestWithParam<DashRow> {};

TEST_P(DashesOnPage, AreTheseLengths) {
    const DashRow& row = GetParam();

    EXPECT_EQ(app::DashesOnPage(DashedPen(row.dashes), row.width), row.expected);
}

INSTANTIATE_TEST_SUITE_P(
    , DashesOnPage,
    testing::Values(DashRow{"MultiplesOfTheWidth", {3, 2}, 4.0, {12, 8}},
                    DashRow{"MultiplesOfAHairlineForThinPens", {3, 2}, 0.5, {3, 2}},
                    DashRow{"NoneForAnEmptyPattern", {}, 1.0, {}},
                    DashRow{"NoneForANegativeLength", {3, -2}, 1.0, {}},
                    DashRow{"NoneForNoNumber", {3, static_cast<float>(kNaN)}, 1.0, {}},
                    DashRow{"NoneForAnEndlessLength", {kInfinity, 1}, 1.0, {}},
                    DashRow{"NoneForZerosOnly", {0, 0}, 1.0, {}},
                    DashRow{"NoneForAPatternTooFineToSee", {1e-6F, 1e-6F}, 1.0, {}},
                    DashRow{"NoneForMoreThan64Lengths", std::vector<float>(65, 1.0F), 1.0, {}},
                    DashRow{"ALimitForHugeLengths", {1e30F, 1}, 1.0, {1e6, 1}}),
    [](const auto& row) { return row.param.name; });

TEST(Dashes, AreNoneForASolidPenWithAPattern) {
    zeio::TrPen pen = DashedPen({3, 2});
    pen.style = Style::Solid;

    EXPECT_TRUE(app::DashesOnPage(pen, 1.0).empty());
}

struct TableRow {
    std::string name;
    const float* table;
};
class HostDashTable : public testing::TestWithParam<TableRow> {};

TEST_P(HostDashTable, MakesAPatternOfDashesAndGaps) {
    std::vector<float> dashes;
    for (const float* dash = GetParam().table; *dash != 0.0F; ++dash) {
        dashes.push_back(*dash);
    }

    const std::vector<double> lengths = app::DashesOnPage(DashedPen(dashes), 1.0);

    EXPECT_GE(lengths.size(), 2U);
    EXPECT_EQ(lengths.size(), dashes.size());
}

INSTANTIATE_TEST_SUITE_P(, HostDashTable,
                         testing::Values(TableRow{"Dot", iolib::g_LS_Dot},
                                         TableRow{"Dash", iolib::g_LS_Dash},
                                         TableRow{"DashDot", iolib::g_LS_DashDot},
                                         TableRow{"DashDotDot", iolib::g_LS_DashDotDot}),
                         [](const auto& row) { return row.param.name; });

}  // namespace
