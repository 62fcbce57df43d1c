// The quick way to the shortest number gives what the library gives.
#include "app/json/ShortestNumber.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <string>
#include <vector>

namespace {

std::string Quick(double value) {
    char text[app::kShortestNumberSize];
    return {text, app::WriteShortest(text, value)};
}

std::string FromLibrary(double value) {
    char text[64];
    return {text, std::to_chars(text, text + sizeof text, value).ptr};
}

// The first of the values that comes out in another way; "" when all are alike.
std::string Difference(const std::vector<double>& values) {
    for (const double value : values) {
        if (Quick(value) != FromLibrary(value)) {
            return Quick(value) + " instead of " + FromLibrary(value);
        }
    }
    return "";
}

struct NumberRow {
    std::string name;
    double value;
    std::string text;
};
class WriteShortest : public testing::TestWithParam<NumberRow> {};

TEST_P(WriteShortest, Of) {
    EXPECT_EQ(Quick(GetParam().value), GetParam().text);
    EXPECT_EQ(FromLibrary(GetParam().value), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    , WriteShortest,
    testing::Values(
        NumberRow{"Zero", 0.0, "0"}, NumberRow{"NegativeZero", -0.0, "-0"},
        NumberRow{"AWholeNumber", 42.0, "42"}, NumberRow{"AWholeNumberOfZeros", 100000.0, "1e+05"},
        NumberRow{"ADegree", 25.123456, "25.123456"}, NumberRow{"ANegativeDegree", -0.05, "-0.05"},
        NumberRow{"NineDecimals", 999999.123456789, "999999.123456789"},
        NumberRow{"ALastDecimal", 1.000000001, "1.000000001"},
        NumberRow{"ALargeMetre", 6543210.25, "6543210.25"},
        NumberRow{"TheLeastOfTheQuickWay", 0.01, "0.01"},
        NumberRow{"ASmallNumber", 0.0005, "5e-04"},
        NumberRow{"NearlyAMillion", 999999.9999999999, "999999.9999999999"},
        NumberRow{"AThird", 1.0 / 3.0, "0.3333333333333333"},
        NumberRow{"TheLargest", std::numeric_limits<double>::max(), "1.7976931348623157e+308"},
        NumberRow{"TheLongest", -2.2250738585072014e-308, "-2.2250738585072014e-308"}),
    [](const auto& row) { return row.param.name; });

std::string Plain(double value) {
    char text[app::kShortestNumberSize];
    return {text, app::WritePlain(text, value)};
}

class WritePlain : public testing::TestWithParam<NumberRow> {};

TEST_P(WritePlain, Of) {
    EXPECT_EQ(Plain(GetParam().value), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    , WritePlain,
    testing::Values(NumberRow{"Zero", 0.0, "0"}, NumberRow{"NegativeZero", -0.0, "-0"},
                    NumberRow{"AWholeNumberOfZeros", 500000.0, "500000"},
                    NumberRow{"ANegativeWholeNumber", -6500000.0, "-6500000"},
                    NumberRow{"ADegree", -25.123456, "-25.123456"},
                    NumberRow{"ALargeMetre", 6543210.25, "6543210.25"},
                    NumberRow{"ManyDigits", 6543210.123456789, "6543210.123456789"},
                    NumberRow{"ASmallNumber", 0.0005, "0.0005"},
                    NumberRow{"TheLeastWithoutExponent", 1e-6, "0.000001"},
                    NumberRow{"ASmallerOne", 9e-7, "9e-07"},
                    NumberRow{"NearlyTheMost", 999999999999999.0, "999999999999999"},
                    NumberRow{"TheMost", 1e15, "1e+15"},
                    NumberRow{"TheLongest", -2.2250738585072014e-308, "-2.2250738585072014e-308"}),
    [](const auto& row) { return row.param.name; });

// The first of the values that another text than the library's fixed notation, or one that does not
// read back, is written for; "" when there is none.
std::string PlainDifference(const std::vector<double>& values) {
    for (const double value : values) {
        char text[64];
        const std::string fixed(
            text, std::to_chars(text, text + sizeof text, value, std::chars_format::fixed).ptr);
        if (Plain(value) != fixed) {
            return Plain(value) + " instead of " + fixed;
        }
    }
    return "";
}

TEST(APlainNumber, IsTheLibrarysFixedNotation) {
    std::mt19937_64 random(4);
    std::vector<double> values;
    for (int i = 0; i < 300000; ++i) {
        const double scale = std::array{1e0, 1e2, 1e3, 1e5, 1e6, 1e7, 1e9}[random() % 7];
        const double decimal = static_cast<double>(random() % 1000000000000000ULL) / scale;
        values.push_back(std::max(i % 3 == 0 ? std::nextafter(decimal, 1e15) : decimal, 1e-6));
    }

    EXPECT_EQ(PlainDifference(values), "");
}

TEST(AShortestNumber, IsTheLibrarysForDecimalsOfEveryLength) {
    std::mt19937_64 random(1);
    std::vector<double> values;
    for (int i = 0; i < 200000; ++i) {
        const double scale = std::array{1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9}[random() % 9];
        values.push_back(static_cast<double>(random() % 1000000000000000ULL) / 1e9 * 1e9 / scale);
    }

    EXPECT_EQ(Difference(values), "");
}

TEST(AShortestNumber, IsTheLibrarysNextToADecimal) {
    std::mt19937_64 random(2);
    std::vector<double> values;
    for (int i = 0; i < 200000; ++i) {
        const double decimal = static_cast<double>(random() % 1000000000000000ULL) / 1e9;
        values.push_back(std::nextafter(decimal, i % 2 == 0 ? 0.0 : 1e7));
    }

    EXPECT_EQ(Difference(values), "");
}

TEST(AShortestNumber, IsTheLibrarysForAnyBits) {
    std::mt19937_64 random(3);
    std::vector<double> values;
    for (int i = 0; i < 200000; ++i) {
        values.push_back(std::bit_cast<double>(random()));
    }

    EXPECT_EQ(Difference(values), "");
}

}  // namespace
