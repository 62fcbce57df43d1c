#include "app/stats/ColumnStatistics.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace {

using app::ColumnStatistics;
using app::Value;

ColumnStatistics Of(const std::vector<Value>& values) {
    ColumnStatistics statistics;
    for (const Value& value : values) {
        statistics.Take(value);
    }
    return statistics;
}

TEST(ColumnStatistics, KnowNothingOfAnEmptyColumn) {
    const ColumnStatistics statistics = Of({std::monostate(), std::string()});

    EXPECT_EQ(statistics.Filled(), 0U);
    EXPECT_EQ(statistics.Distinct(), 0U);
    EXPECT_EQ(statistics.Minimum(), Value());
    EXPECT_EQ(statistics.Maximum(), Value());
    EXPECT_EQ(statistics.Mean(), std::nullopt);
}

TEST(ColumnStatistics, AreThoseOfNumbers) {
    const ColumnStatistics statistics =
        Of({std::int64_t{4}, -1.5, std::monostate(), std::int64_t{4}, 4.0});

    EXPECT_EQ(statistics.Filled(), 4U);
    EXPECT_EQ(statistics.Distinct(), 2U) << "4 and 4.0 are one value";
    EXPECT_EQ(statistics.Minimum(), Value(-1.5));
    EXPECT_EQ(statistics.Maximum(), Value(std::int64_t{4}));
    EXPECT_EQ(statistics.Mean(), 2.625);
}

TEST(ColumnStatistics, AreThoseOfTexts) {
    const ColumnStatistics statistics =
        Of({std::string("b"), std::string("a"), std::string(), std::string("b")});

    EXPECT_EQ(statistics.Filled(), 3U);
    EXPECT_EQ(statistics.Distinct(), 2U);
    EXPECT_EQ(statistics.Minimum(), Value(std::string("a")));
    EXPECT_EQ(statistics.Maximum(), Value(std::string("b")));
    EXPECT_EQ(statistics.Mean(), std::nullopt);
}

TEST(ColumnStatistics, AreThoseOfTruthValues) {
    const ColumnStatistics statistics = Of({true, false, true});

    EXPECT_EQ(statistics.Distinct(), 2U);
    EXPECT_EQ(statistics.Minimum(), Value(false));
    EXPECT_EQ(statistics.Maximum(), Value(true));
    EXPECT_EQ(statistics.Mean(), std::nullopt);
}

TEST(ColumnStatistics, PutNumbersBeforeTexts) {
    const ColumnStatistics statistics = Of({std::string("1"), std::int64_t{9}, std::string("0")});

    EXPECT_EQ(statistics.Minimum(), Value(std::int64_t{9}));
    EXPECT_EQ(statistics.Maximum(), Value(std::string("1")));
}

TEST(ColumnStatistics, TellWholeNumbersApartThatADoubleCannot) {
    const ColumnStatistics statistics =
        Of({std::int64_t{9007199254740993}, std::int64_t{9007199254740992}});

    EXPECT_EQ(statistics.Distinct(), 2U);
    EXPECT_EQ(statistics.Minimum(), Value(std::int64_t{9007199254740992}));
}

TEST(ColumnStatistics, CountDifferentValuesUpToALimit) {
    ColumnStatistics statistics;
    for (std::size_t i = 0; i < ColumnStatistics::kMostDistinct; ++i) {
        statistics.Take(static_cast<std::int64_t>(i));
    }
    EXPECT_EQ(statistics.Distinct(), ColumnStatistics::kMostDistinct);

    statistics.Take(std::int64_t{-1});

    EXPECT_EQ(statistics.Distinct(), std::nullopt);
    EXPECT_EQ(statistics.Minimum(), Value(std::int64_t{-1}));
}

TEST(ColumnStatistics, KeepTheMeanRightWhereSumsRound) {
    ColumnStatistics statistics;
    statistics.Take(1e17);
    for (int i = 0; i < 999; ++i) {
        statistics.Take(1.0);
    }

    EXPECT_EQ(statistics.Mean(), (1e17 + 999.0) / 1000.0);
}

}  // namespace
