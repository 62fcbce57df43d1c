// When a few far objects are worth a word.
#include "app/map/FarObjects.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using shr::Box2d;

// Many objects in a square of 10 by 10, then the others.
std::vector<Box2d> Map(int many, const std::vector<Box2d>& others) {
    std::vector<Box2d> boxes;
    for (int i = 0; i < many; ++i) {
        const double x = i % 10;
        const double y = (i / 10) % 10;
        boxes.push_back({x, y, x + 1.0, y + 1.0});
    }
    boxes.insert(boxes.end(), others.begin(), others.end());
    return boxes;
}

std::optional<app::FarObjectsFound> FarIn(const std::vector<Box2d>& boxes) {
    app::FarObjects far;
    Box2d extent = boxes.front();
    for (const Box2d& box : boxes) {
        far.Add(box);
        extent = {std::min(extent.minX, box.minX), std::min(extent.minY, box.minY),
                  std::max(extent.maxX, box.maxX), std::max(extent.maxY, box.maxY)};
    }
    return far.Find(extent, [&boxes](const auto& take) { std::ranges::for_each(boxes, take); });
}

TEST(FarObjects, AreCountedWithTheRestOfTheMap) {
    const auto found = FarIn(Map(100, {{399, 5, 400, 6}, {390, 5, 391, 6}, {380, 5, 381, 6}}));

    ASSERT_TRUE(found);
    EXPECT_EQ(found->count, 3U);
    EXPECT_DOUBLE_EQ(found->timesAsWide, 40.0);
    EXPECT_DOUBLE_EQ(found->timesAsHigh, 1.0);
    EXPECT_EQ(found->rest, (Box2d{0, 0, 10, 10}));
}

TEST(FarObjects, AreFoundAmongMoreThanTheSampleHolds) {
    const auto found = FarIn(Map(50'000, {{0, -1000, 1, -999}}));

    ASSERT_TRUE(found);
    EXPECT_EQ(found->count, 1U);
    EXPECT_DOUBLE_EQ(found->timesAsHigh, 101.0);
}

TEST(FarObjects, AreNoneInAnEvenMap) {
    EXPECT_FALSE(FarIn(Map(100, {})));
}

TEST(FarObjects, AreNoneWhenTheMapIsNotMuchWider) {
    EXPECT_FALSE(FarIn(Map(100, {{50, 5, 51, 6}})));
}

TEST(FarObjects, AreNoneWhenTheyAreMany) {
    EXPECT_FALSE(FarIn(Map(100, std::vector<Box2d>(30, Box2d{400, 0, 401, 1}))));
}

TEST(FarObjects, AreNoneAmongAFewObjects) {
    EXPECT_FALSE(FarIn(Map(3, {{400, 0, 401, 1}})));
}

}  // namespace
