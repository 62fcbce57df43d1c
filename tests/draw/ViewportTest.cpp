// The mapping between the world and the page, and its limits.
#include "app/draw/Viewport.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

TEST(Viewport, PutsItsCentreWhereItIsTold) {
    const app::Viewport viewport({100, 50}, {10, 20}, {40, 30}, 2.0, 4.0);

    EXPECT_EQ(viewport.ToPage({10, 20}), (app::PagePoint{40, 30}));
    EXPECT_EQ(viewport.ToPage({11, 21}), (app::PagePoint{42, 26}));
}

TEST(Viewport, FindsTheWayBack) {
    const app::Viewport viewport({100, 50}, {10, 20}, {40, 30}, 2.0, 4.0);

    const shr::Vec2d world = viewport.ToWorld({42, 26});

    EXPECT_DOUBLE_EQ(world.x, 11.0);
    EXPECT_DOUBLE_EQ(world.y, 21.0);
}

TEST(LongitudeStretch, IsTheCosineOfTheMiddleLatitude) {
    EXPECT_NEAR(app::LongitudeStretch({0, 50, 10, 70}), 0.5, 1e-12);
    EXPECT_DOUBLE_EQ(app::LongitudeStretch({-180, -90, 180, 90}), 1.0);
}

TEST(LongitudeStretch, StaysAboveZeroAtThePoleAndBeyond) {
    EXPECT_GT(app::LongitudeStretch({0, 90, 0, 90}), 0.05);
    EXPECT_GT(app::LongitudeStretch({0, 1e6, 0, 2e6}), 0.05);
}

}  // namespace
