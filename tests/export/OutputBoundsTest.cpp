#include "export/OutputBounds.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

namespace mif::test {

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kLargest = std::numeric_limits<double>::max();

std::string LineOf(const OutputBounds& bounds) {
    std::string line;
    AppendBoundsLine(line, bounds);
    return line;
}

OutputBounds BoxOf(double minX, double minY, double maxX, double maxY) {
    OutputBounds bounds;
    bounds.Widen(minX, minY);
    bounds.Widen(maxX, maxY);
    return bounds;
}

}  // namespace

TEST(BoundsLine, IsFourZerosWhileNothingWasWritten) {
    EXPECT_EQ(LineOf(OutputBounds()), "  Bounds (        0.0000000000,         0.0000000000) "
                                      "(        0.0000000000,         0.0000000000)\n");
}

TEST(BoundsLine, HoldsTheCornersAtTwentyCharactersEach) {
    EXPECT_EQ(LineOf(BoxOf(-180.0, -90.5, 180.0, 90.25)),
              "  Bounds (     -180.0000000000,       -90.5000000000) "
              "(      180.0000000000,        90.2500000000)\n");
}

TEST(BoundsLine, HasZerosOnAnAxisOfNotANumbersAlone) {
    EXPECT_EQ(LineOf(BoxOf(1.0, kNan, 2.0, kNan)),
              "  Bounds (        1.0000000000,         0.0000000000) "
              "(        2.0000000000,         0.0000000000)\n");
}

struct WideNumberRow {
    std::string name;
    double value;
    std::string text;  // 20 characters
};
class ANumberInTheBounds : public testing::TestWithParam<WideNumberRow> {};

TEST_P(ANumberInTheBounds, NeverOutgrowsTwentyCharacters) {
    const std::string line = LineOf(BoxOf(GetParam().value, 0.0, GetParam().value, 0.0));

    EXPECT_EQ(line.substr(10, 20), GetParam().text);
    EXPECT_EQ(line.size(), LineOf(OutputBounds()).size());
}
INSTANTIATE_TEST_SUITE_P(
    , ANumberInTheBounds,
    testing::Values(WideNumberRow{"LastThatFits", 999999999.5, "999999999.5000000000"},
                    WideNumberRow{"ABillion", 1e9, "1000000000.000000000"},
                    WideNumberRow{"MinusAHundredMillion", -1e8, "-100000000.000000000"},
                    WideNumberRow{"ATrillion", 1e12, "1000000000000.000000"},
                    WideNumberRow{"NoDecimals", 12345678901234567890.0, "12345678901234567168"},
                    WideNumberRow{"AnExponent", 1e20, "  1.000000000000E+20"},
                    WideNumberRow{"TheLargest", kLargest, " 1.797693134862E+308"},
                    WideNumberRow{"TheLowest", -kLargest, "-1.797693134862E+308"}),
    [](const auto& row) { return row.param.name; });

TEST(BoundsLine, KeepsItsLengthWithInfinities) {
    EXPECT_EQ(LineOf(BoxOf(-kInfinity, -kInfinity, kInfinity, kInfinity)).size(),
              LineOf(OutputBounds()).size());
}

TEST(OutputDiagonal, IsThatOfTheBox) {
    EXPECT_EQ(BoxOf(1.0, 1.0, 4.0, 5.0).Diagonal(), 5.0);
}

TEST(OutputDiagonal, IsOneWhenTheBoxIsNoLargerThanTheSinglePrecisionEpsilon) {
    EXPECT_EQ(BoxOf(7.0, 7.0, 7.0, 7.0).Diagonal(), 1.0);
    EXPECT_EQ(BoxOf(0.0, 0.0, 1.1920928955078125e-7, 0.0).Diagonal(), 1.0);
    EXPECT_LT(BoxOf(0.0, 0.0, 1.2e-7, 0.0).Diagonal(), 1.0);
}

TEST(OutputDiagonal, IsInfiniteWhileNothingWasWritten) {
    EXPECT_TRUE(std::isinf(OutputBounds().Diagonal()));
}

}  // namespace mif::test
