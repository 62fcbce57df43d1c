// Parts of a batch: their names, and how files are dealt out to them.
#include "app/batch/Shard.h"

#include "app/base/Errors.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace {

TEST(AShard, IsReadFromItsNumberAndTheNumberOfAll) {
    EXPECT_EQ(app::ShardOf("3/8").number, 3U);
    EXPECT_EQ(app::ShardOf("3/8").count, 8U);
    EXPECT_EQ(app::ShardOf("1/1").count, 1U);
}

class NoShard : public testing::TestWithParam<std::string> {};

TEST_P(NoShard, IsRefused) {
    EXPECT_THROW(app::ShardOf(GetParam()), app::UsageError);
}

INSTANTIATE_TEST_SUITE_P(, NoShard,
                         testing::Values("", "3", "/", "3/", "/8", "0/8", "9/8", "-1/8", "3/8/2",
                                         "3 /8", "a/b", "1/100001", "99999999999999999999/8"));

std::vector<std::uint64_t> LoadsOf(const std::vector<std::uint64_t>& sizes, std::size_t shards) {
    const std::vector<std::size_t> parts = app::DealOut(sizes, shards);
    std::vector<std::uint64_t> loads(shards);
    for (std::size_t i = 0; i < sizes.size(); ++i) {
        loads.at(parts[i] - 1) += sizes[i];
    }
    return loads;
}

TEST(Dealing, BalancesSizes) {
    const std::uint64_t mega = 1'000'000;
    const std::vector<std::uint64_t> loads =
        LoadsOf({7 * mega, mega, mega, 5 * mega, 2 * mega, 2 * mega, 6 * mega}, 3);

    EXPECT_EQ(loads, (std::vector<std::uint64_t>{8 * mega, 8 * mega, 8 * mega}));
}

TEST(Dealing, GivesEachPartAsManySmallFiles) {
    const std::vector<std::size_t> parts = app::DealOut(std::vector<std::uint64_t>(1000, 3), 8);

    for (std::size_t shard = 1; shard <= 8; ++shard) {
        EXPECT_EQ(std::ranges::count(parts, shard), 125);
    }
}

TEST(Dealing, LeavesPartsEmptyWhenThereAreFewerFiles) {
    EXPECT_EQ(app::DealOut(std::vector<std::uint64_t>{5}, 3), std::vector<std::size_t>{1});
}

// Every machine must come to the same answer.
TEST(Dealing, DependsOnNothingButTheSizes) {
    std::vector<std::uint64_t> sizes;
    for (std::uint64_t i = 0; i < 500; ++i) {
        sizes.push_back(i * 7919 % 101 * 10'000);
    }

    EXPECT_EQ(app::DealOut(sizes, 7), app::DealOut(sizes, 7));
    const std::vector<std::uint64_t> loads = LoadsOf(sizes, 7);
    const auto [least, most] = std::ranges::minmax_element(loads);
    EXPECT_LT(static_cast<double>(*most - *least), 0.05 * static_cast<double>(*most));
}

}  // namespace
