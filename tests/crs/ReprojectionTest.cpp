#include "app/crs/Reprojection.h"

#include "app/crs/Definitions.h"
#include "tests/support/Features.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace {

app::CoordinateSystem Utm35() {
    return app::SystemOfDefinition("EPSG:32635");
}

TEST(AReprojection, IsNotNeededWithinOneSystem) {
    EXPECT_FALSE(app::Reprojection(app::Wgs84System(), app::Wgs84System()).IsNeeded());
    EXPECT_FALSE(app::Reprojection(Utm35(), Utm35()).IsNeeded());
}

TEST(AReprojection, MovesPointsThereAndBack) {
    const app::CoordinateSystem utm = Utm35();
    std::vector<shr::Vec2d> points = {{500000, 0}, {500000, 6000000}};

    app::Reprojection(utm, app::Wgs84System()).Apply(points);
    EXPECT_NEAR(points[0].x, 27.0, 1e-9);
    EXPECT_NEAR(points[0].y, 0.0, 1e-9);
    EXPECT_NEAR(points[1].x, 27.0, 1e-9);

    app::Reprojection(app::Wgs84System(), utm).Apply(points);
    EXPECT_NEAR(points[1].x, 500000, 1e-3);
    EXPECT_NEAR(points[1].y, 6000000, 1e-3);
}

TEST(AReprojection, MovesEveryMemberOfAFeature) {
    const app::CoordinateSystem utm = Utm35();
    app::Feature feature;
    feature.geometry.kind = app::GeometryKind::Collection;
    feature.members = {support::PointAt(500000, 0).geometry};

    app::Reprojection(utm, app::Wgs84System()).Apply(feature);

    EXPECT_NEAR(feature.members.front().points.front().x, 27.0, 1e-9);
}

TEST(AReprojection, MakesPointsInfiniteThatHaveNoPlaceAndCountsThem) {
    const app::CoordinateSystem utm = Utm35();
    app::Reprojection reprojection(utm, app::Wgs84System());
    std::vector<shr::Vec2d> points = {{500000, 0}, {1e300, 1e300}};

    reprojection.Apply(points);

    EXPECT_NEAR(points[0].x, 27.0, 1e-9);
    EXPECT_TRUE(std::isinf(points[1].x));
    EXPECT_EQ(reprojection.FailedPoints(), 1U);
}

TEST(Wgs84, IsLongitudeAndLatitudeAsItStands) {
    EXPECT_TRUE(app::IsWgs84(app::Wgs84System()));
    EXPECT_FALSE(app::IsWgs84(Utm35()));
}

}  // namespace
