// Numbers as text: against the C library, in the C locale and in one with a decimal comma.
#include "reader/Numbers.h"
#include "tests/support/DecimalCommaLocale.h"
#include "tests/support/NumberTexts.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <memory>
#include <random>
#include <string>

namespace {

using namespace std::string_literals;

constexpr int kRandomCount = 1'000'000;
constexpr int kSmallRandomCount = 100'000;

std::uint64_t BitsOf(double value) {
    return std::bit_cast<std::uint64_t>(value);
}

// The text in a buffer of exactly its size, so that a read behind its end is seen.
double ReadExactly(const std::string& text) {
    const std::unique_ptr<char[]> buffer(new char[text.size()]);
    std::memcpy(buffer.get(), text.data(), text.size());
    return mif::ReadDouble({buffer.get(), text.size()});
}

class ReadDouble : public testing::TestWithParam<support::NumberText> {};

TEST_P(ReadDouble, GivesTheBitsOfAtof) {
    EXPECT_EQ(BitsOf(ReadExactly(GetParam().text)), BitsOf(std::atof(GetParam().text.c_str())));
}

INSTANTIATE_TEST_SUITE_P(, ReadDouble, testing::ValuesIn(support::NumberTexts()),
                         [](const auto& row) { return row.param.name; });

TEST(ReadDoubleOf, TextEndsAtANul) {
    EXPECT_EQ(ReadExactly("1\0002"s), 1.0);
}

TEST(ReadDoubleOf, HexadecimalSubnormalsAreRoundedToTheNearest) {
    EXPECT_EQ(ReadExactly("0x6ecC8.b7dFFcc6ap-1042"), 0x0.6ecc8b7dffcc7p-1022);
}

TEST(ReadDoubleOf, NanKeepsNoPayload) {
    EXPECT_TRUE(std::isnan(ReadExactly("nan(123)")));
}

// A text that is nearly a number, of every form that strtod knows but payloads of NaNs.
std::string RandomNumberText(std::mt19937_64& random) {
    static constexpr const char* kForms[] = {"%.6f",  "%.17g", "%.15g", "%g",   "%a",
                                             "%.18G", "%.3f",  "%.25g", "%.12f"};
    const double value = std::bit_cast<double>(random());
    const double coordinate = static_cast<double>(static_cast<std::int64_t>(random())) / 1e16;
    char text[512];
    std::snprintf(text, sizeof text, kForms[random() % std::size(kForms)],
                  random() % 2 == 0 || std::isnan(value) ? coordinate : value);
    std::string mutated = text;
    if (random() % 4 == 0) {
        static constexpr char kCharacters[] = "0123456789+-.eExXpPaf ";
        mutated[random() % mutated.size()] = kCharacters[random() % (std::size(kCharacters) - 1)];
    }
    return mutated;
}

TEST(ReadDoubleOf, RandomTextsGivesTheBitsOfAtof) {
    std::mt19937_64 random(20240607);
    int differences = 0;
    std::string first;
    for (int count = 0; count < kRandomCount; ++count) {
        const std::string text = RandomNumberText(random);
        if (BitsOf(mif::ReadDouble(text)) != BitsOf(std::atof(text.c_str()))) {
            first = differences++ == 0 ? text : first;
        }
    }

    EXPECT_EQ(differences, 0) << "first: " << first;
}

// Of normal numbers: the GNU C library rounds some hexadecimal subnormal numbers wrongly.
std::string RandomHexadecimal(std::mt19937_64& random) {
    std::string text = "0x";
    const std::size_t length = random() % 20 + 1;
    const std::size_t point = random() % (length + 3);
    for (std::size_t place = 0; place < length; ++place) {
        text += place == point ? "." : "";
        text += "0123456789abcdefABCDEF"[random() % 22];
    }
    return text + "p" + std::to_string(static_cast<int>(random() % 1900) - 900);
}

TEST(ReadDoubleOf, RandomHexadecimalsGivesTheBitsOfAtof) {
    std::mt19937_64 random(7);
    int differences = 0;
    std::string first;
    for (int count = 0; count < kSmallRandomCount; ++count) {
        const std::string text = RandomHexadecimal(random);
        if (BitsOf(mif::ReadDouble(text)) != BitsOf(std::atof(text.c_str()))) {
            first = differences++ == 0 ? text : first;
        }
    }

    EXPECT_EQ(differences, 0) << "first: " << first;
}

struct IntRow {
    std::string name;
    std::string text;
    int value;
};
void PrintTo(const IntRow& row, std::ostream* out) {
    *out << row.text;
}

class ReadInt : public testing::TestWithParam<IntRow> {};

TEST_P(ReadInt, TakesTheLongestPrefix) {
    EXPECT_EQ(mif::ReadInt(GetParam().text), GetParam().value);
}

INSTANTIATE_TEST_SUITE_P(
    , ReadInt,
    testing::Values(IntRow{"Empty", "", 0}, IntRow{"Digits", "300", 300}, IntRow{"Minus", "-7", -7},
                    IntRow{"Plus", "+7", 7}, IntRow{"MinusAlone", "-", 0},
                    IntRow{"TwoSigns", "--7", 0}, IntRow{"Blanks", " \t\r\n 7 8", 7},
                    IntRow{"Decimals", "7.9", 7}, IntRow{"Junk", "7km", 7},
                    IntRow{"Word", "pline", 0}, IntRow{"LeadingZeros", "007", 7},
                    IntRow{"Hexadecimal", "0x10", 0}, IntRow{"Exponent", "1e3", 1},
                    IntRow{"Nul", "1\0002"s, 1}, IntRow{"Largest", "2147483647", 2147483647},
                    IntRow{"BeyondTheLargest", "2147483648", 2147483647},
                    IntRow{"FarBeyondTheLargest", std::string(100, '9'), 2147483647},
                    IntRow{"Smallest", "-2147483648", std::numeric_limits<int>::min()},
                    IntRow{"BeyondTheSmallest", "-2147483649", std::numeric_limits<int>::min()},
                    IntRow{"FarBeyondTheSmallest", "-" + std::string(100, '9'),
                           std::numeric_limits<int>::min()}),
    [](const auto& row) { return row.param.name; });

std::string Printed(const char* format, double value) {
    char text[512];
    std::snprintf(text, sizeof text, format, value);
    return text;
}

std::string Double18G(double value) {
    std::string text;
    mif::AppendDouble18G(text, value);
    return text;
}

struct ValueRow {
    std::string name;
    double value;
};
void PrintTo(const ValueRow& row, std::ostream* out) {
    *out << row.name;
}

class AppendDouble : public testing::TestWithParam<ValueRow> {};

TEST_P(AppendDouble, PrintsLikePrintf) {
    std::string text = "before ";

    mif::AppendDouble18G(text, GetParam().value);
    mif::AppendDouble16g(text += ' ', GetParam().value);
    mif::AppendDouble16G(text += ' ', GetParam().value);
    mif::AppendDouble20f(text += ' ', GetParam().value);

    EXPECT_EQ(text, "before " + Printed("%.18G ", GetParam().value) +
                        Printed("%.16g ", GetParam().value) + Printed("%.16G ", GetParam().value) +
                        Printed("%20.10f", GetParam().value));
}

INSTANTIATE_TEST_SUITE_P(
    , AppendDouble,
    testing::Values(ValueRow{"Zero", 0.0}, ValueRow{"MinusZero", -0.0}, ValueRow{"One", 1.0},
                    ValueRow{"OneTenth", 0.1}, ValueRow{"Minus", -12.5},
                    ValueRow{"Coordinate", -123.456789}, ValueRow{"LastWithoutExponent", 1e17},
                    ValueRow{"FirstWithExponent", 1e18}, ValueRow{"SmallWithoutExponent", 1e-4},
                    ValueRow{"SmallWithExponent", 1e-5}, ValueRow{"ThreeDigitExponent", 1e300},
                    ValueRow{"RoundsUpToAPower", 999999999999999999.0},
                    ValueRow{"Largest", std::numeric_limits<double>::max()},
                    ValueRow{"MinusLargest", std::numeric_limits<double>::lowest()},
                    ValueRow{"SmallestNormal", std::numeric_limits<double>::min()},
                    ValueRow{"Smallest", std::numeric_limits<double>::denorm_min()},
                    ValueRow{"MinusSmallest", -std::numeric_limits<double>::denorm_min()},
                    ValueRow{"Infinity", std::numeric_limits<double>::infinity()},
                    ValueRow{"MinusInfinity", -std::numeric_limits<double>::infinity()},
                    ValueRow{"Nan", std::numeric_limits<double>::quiet_NaN()},
                    ValueRow{"MinusNan",
                             std::copysign(std::numeric_limits<double>::quiet_NaN(), -1.0)}),
    [](const auto& row) { return row.param.name; });

TEST(AppendDouble18GOf, RandomBitsPrintsLikePrintf) {
    std::mt19937_64 random(20240608);
    int differences = 0;
    std::string first;
    for (int count = 0; count < kRandomCount; ++count) {
        const double value = std::bit_cast<double>(random());
        if (Double18G(value) != Printed("%.18G", value)) {
            first = differences++ == 0 ? Printed("%.18G", value) : first;
        }
    }

    EXPECT_EQ(differences, 0) << "first: " << first;
}

TEST(AppendDouble18GOf, RandomCoordinatesReadsBackToTheSameBits) {
    std::mt19937_64 random(20240609);
    std::uniform_real_distribution<double> coordinates(-1e7, 1e7);
    int differences = 0;
    for (int count = 0; count < kSmallRandomCount; ++count) {
        const double value = coordinates(random);
        const std::string text = Double18G(value);
        differences += text != Printed("%.18G", value) || mif::ReadDouble(text) != value ? 1 : 0;
    }

    EXPECT_EQ(differences, 0);
}

class NumbersInALocaleWithADecimalComma : public testing::Test {
protected:
    void SetUp() override {
        if (!locale_.isSet()) {
            GTEST_SKIP() << "no locale with a decimal comma can be had";
        }
        ASSERT_EQ(Printed("%.1f", 1.5), "1,5");
    }

private:
    support::DecimalCommaLocale locale_;
};

TEST_F(NumbersInALocaleWithADecimalComma, AreReadWithAPoint) {
    EXPECT_EQ(mif::ReadDouble("1.5"), 1.5);
    EXPECT_EQ(mif::ReadDouble("1,5"), 1.0);
    EXPECT_EQ(mif::ReadDouble(" +1.5e0"), 1.5);
}

TEST_F(NumbersInALocaleWithADecimalComma, AreWrittenWithAPoint) {
    std::string text;

    mif::AppendDouble18G(text, 1.5);
    mif::AppendDouble16g(text += ' ', 1.5);
    mif::AppendDouble20f(text += ' ', 1.5);

    EXPECT_EQ(text, "1.5 1.5         1.5000000000");
}

}  // namespace
