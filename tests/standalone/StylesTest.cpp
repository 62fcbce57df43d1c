#include "host/iolib/Styles.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

namespace {

using iolib::GdiPenStyle;

// A table's lengths in front of the 0 that ends it, scaled.
std::vector<float> Scaled(const float* table, float scale) {
    std::vector<float> lengths;
    for (; *table != 0.0F; ++table) {
        lengths.push_back(*table * scale);
    }
    return lengths;
}

GdiPenStyle Match(const std::vector<float>& lengths) {
    return iolib::MatchToGDIPenStyle(lengths.data(), static_cast<int>(lengths.size()));
}

struct TableRow {
    std::string name;
    const float* table;
    GdiPenStyle style;
};
class DashTable : public testing::TestWithParam<TableRow> {};

TEST_P(DashTable, MatchesItsOwnStyleAtEveryScale) {
    EXPECT_EQ(Match(Scaled(GetParam().table, 1.0F)), GetParam().style);
    EXPECT_EQ(Match(Scaled(GetParam().table, 0.013F)), GetParam().style);
    EXPECT_EQ(Match(Scaled(GetParam().table, 1e6F)), GetParam().style);
}

TEST_P(DashTable, MatchesWithItsEndCountedIn) {
    const int count = static_cast<int>(Scaled(GetParam().table, 1.0F).size()) + 1;

    EXPECT_EQ(iolib::MatchToGDIPenStyle(GetParam().table, count), GetParam().style);
}
INSTANTIATE_TEST_SUITE_P(
    , DashTable,
    testing::Values(TableRow{"Dot", iolib::g_LS_Dot, GdiPenStyle::Dot},
                    TableRow{"Dash", iolib::g_LS_Dash, GdiPenStyle::Dash},
                    TableRow{"DashDot", iolib::g_LS_DashDot, GdiPenStyle::DashDot},
                    TableRow{"DashDotDot", iolib::g_LS_DashDotDot, GdiPenStyle::DashDotDot}),
    [](const auto& row) { return row.param.name; });

struct PatternRow {
    std::string name;
    std::vector<float> lengths;
    GdiPenStyle style;
};
class Pattern : public testing::TestWithParam<PatternRow> {};

TEST_P(Pattern, LooksMostLike) {
    EXPECT_EQ(Match(GetParam().lengths), GetParam().style);
}
INSTANTIATE_TEST_SUITE_P(
    , Pattern,
    testing::Values(
        PatternRow{"NothingIsSolid", {}, GdiPenStyle::Solid},
        PatternRow{"ZerosAreSolid", {0, 0}, GdiPenStyle::Solid},
        PatternRow{"ANegativeLengthIsSolid", {3, -1}, GdiPenStyle::Solid},
        PatternRow{"WhatIsNoNumberIsSolid",
                   {std::numeric_limits<float>::quiet_NaN(), 1},
                   GdiPenStyle::Solid},
        PatternRow{"AnEndlessDashIsSolid",
                   {std::numeric_limits<float>::infinity(), 1},
                   GdiPenStyle::Solid},
        PatternRow{"ADashAsLongAsItsGapIsADot", {5, 5}, GdiPenStyle::Dot},
        PatternRow{"AShortDashIsADot", {1, 4}, GdiPenStyle::Dot},
        PatternRow{"ALongDashIsADash", {6, 2}, GdiPenStyle::Dash},
        PatternRow{"OneLengthIsADot", {2}, GdiPenStyle::Dot},
        PatternRow{"ARepeatedPairIsThatPair", {3, 1, 3, 1}, GdiPenStyle::Dash},
        PatternRow{"TwoPairsAreADashAndADot", {8, 2, 2, 2}, GdiPenStyle::DashDot},
        PatternRow{"ThreePairsAreADashAndTwoDots", {8, 2, 2, 2, 2, 2}, GdiPenStyle::DashDotDot},
        PatternRow{
            "MorePairsAreADashAndTwoDots", {8, 2, 2, 2, 2, 2, 2, 2}, GdiPenStyle::DashDotDot}),
    [](const auto& row) { return row.param.name; });

TEST(MatchToGDIPenStyle, OfNullIsSolid) {
    EXPECT_EQ(iolib::MatchToGDIPenStyle(nullptr, 2), GdiPenStyle::Solid);
}

TEST(MatchToGDIPenStyle, NumbersTheStylesAsTheSystemDoes) {
    EXPECT_EQ(static_cast<int>(GdiPenStyle::Dash), 1);
    EXPECT_EQ(static_cast<int>(GdiPenStyle::Dot), 2);
    EXPECT_EQ(static_cast<int>(GdiPenStyle::DashDot), 3);
    EXPECT_EQ(static_cast<int>(GdiPenStyle::DashDotDot), 4);
}

TEST(Coords2DTo3D, AddsAZeroHeight) {
    const std::vector<shr::Vec2d> points = {{1, 2}, {3, 4}};

    EXPECT_EQ(iolib::Coords2DTo3D(points), (std::vector<shr::Vec3d>{{1, 2, 0}, {3, 4, 0}}));
}

TEST(ReplaceCertainCharsInString, ReplacesEveryUnsafeCharacter) {
    const std::wstring text(L"a\"b\rc\nd\te\0f", 11);

    EXPECT_EQ(iolib::ReplaceCertainCharsInString(text, iolib::g_UnsafeCharacters, L'_'),
              L"a_b_c_d_e_f");
}

TEST(ReplaceCertainCharsInString, LeavesEverythingElse) {
    EXPECT_EQ(iolib::ReplaceCertainCharsInString(L"a,'b\\ \u20AC", iolib::g_UnsafeCharacters, L'_'),
              L"a,'b\\ \u20AC");
}

}  // namespace
