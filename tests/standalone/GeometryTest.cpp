#include "host/shr/Geometry.h"

#include <gtest/gtest.h>

#include <numbers>

namespace {

constexpr double kQuarter = std::numbers::pi / 2;

TEST(Mat3d, LeavesPointsWhereTheyAreAtFirst) {
    EXPECT_EQ(shr::Mat3d().Transform({3, 4}), (shr::Vec2d{3, 4}));
}

TEST(Mat3d, RotatesCounterClockwise) {
    shr::Mat3d matrix;

    matrix.Rotate(kQuarter);

    EXPECT_NEAR(matrix.Transform({1, 0}).x, 0, 1e-15);
    EXPECT_NEAR(matrix.Transform({1, 0}).y, 1, 1e-15);
}

TEST(Mat3d, MovesAPointInTheOrderOfTheCalls) {
    shr::Mat3d matrix;

    matrix.Translate(-1, -1);
    matrix.Rotate(kQuarter);
    matrix.Translate(1, 1);

    const shr::Vec2d turned = matrix.Transform({2, 1});  // about (1, 1)
    EXPECT_NEAR(turned.x, 1, 1e-15);
    EXPECT_NEAR(turned.y, 2, 1e-15);
}

TEST(Mat3d, IsStoredRowByRow) {
    shr::Mat3d matrix;

    matrix.Translate(5, 6);

    EXPECT_EQ(matrix.Values(), (std::array<double, 9>{1, 0, 5, 0, 1, 6, 0, 0, 1}));
}

TEST(Mat4d, LeavesPointsWhereTheyAreAtFirst) {
    EXPECT_EQ(shr::Mat4d().Transform({3, 4, 5}), (shr::Vec3d{3, 4, 5}));
}

TEST(Mat4d, MovesAPointInTheOrderOfTheCalls) {
    shr::Mat4d matrix;

    matrix.Translate(1, 0, 7);
    matrix.RotateZ(kQuarter);

    const shr::Vec3d moved = matrix.Transform({0, 0, 0});
    EXPECT_NEAR(moved.x, 0, 1e-15);
    EXPECT_NEAR(moved.y, 1, 1e-15);
    EXPECT_EQ(moved.z, 7);
}

struct RotationRow {
    const char* name;
    double angle;
    double found;
};
class Rotation : public testing::TestWithParam<RotationRow> {};

TEST_P(Rotation, IsReadBackFromTheMatrix) {
    shr::Mat4d matrix;

    matrix.RotateZ(GetParam().angle);
    matrix.Translate(100, 200, 0);

    EXPECT_NEAR(matrix.GetRotation2(), GetParam().found, 1e-15);
}
INSTANTIATE_TEST_SUITE_P(, Rotation,
                         testing::Values(RotationRow{"None", 0, 0}, RotationRow{"Left", 0.5, 0.5},
                                         RotationRow{"Right", -0.5, -0.5},
                                         RotationRow{"MoreThanHalfATurn", 4.0,
                                                     4.0 - 2 * std::numbers::pi}),
                         [](const auto& row) { return row.param.name; });

TEST(Mat4d, IsTakenRowByRow) {
    const std::array<double, 16> values{0, -1, 0, 5, 1, 0, 0, 6, 0, 0, 1, 0, 0, 0, 0, 1};

    const shr::Mat4d matrix(values);

    EXPECT_EQ(matrix.Values(), values);
    EXPECT_EQ(matrix.Transform({1, 0, 0}), (shr::Vec3d{5, 7, 0}));
    EXPECT_NEAR(matrix.GetRotation2(), kQuarter, 1e-15);
}

TEST(Box2d, IsEmptyWhenAMinimumIsAboveItsMaximum) {
    EXPECT_FALSE((shr::Box2d{0, 0, 0, 0}.IsEmpty()));
    EXPECT_TRUE((shr::Box2d{1, 0, 0, 0}.IsEmpty()));
    EXPECT_TRUE((shr::Box2d{0, 1, 0, 0}.IsEmpty()));
}

class WholeDegrees : public testing::TestWithParam<int> {};

TEST_P(WholeDegrees, AreNotLostOnTheWayThroughTheMatrix) {
    shr::Mat4d matrix;
    matrix.RotateZ(GetParam() / 180.0 * std::numbers::pi);

    const double degrees = matrix.GetRotation2() * 180.0 / std::numbers::pi;

    EXPECT_EQ(static_cast<int>(degrees), GetParam());
    EXPECT_NEAR(degrees, GetParam(), 1e-12);
}

INSTANTIATE_TEST_SUITE_P(, WholeDegrees, testing::Range(-179, 181));

}  // namespace
