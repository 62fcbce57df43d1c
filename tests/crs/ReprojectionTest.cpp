#include "app/crs/Reprojection.h"

#include "app/crs/GcsFromCrs.h"
#include "tests/support/Features.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>

namespace {

std::unique_ptr<gcs::CSDef> Utm35() {
    return std::move(app::GcsFromCrs("EPSG:32635").system);
}

TEST(AReprojection, IsNotNeededWithinOneSystem) {
    const gcs::GCSDef degrees = app::Wgs84System();

    EXPECT_FALSE(app::Reprojection(&degrees, nullptr).IsNeeded());
    EXPECT_FALSE(app::Reprojection(nullptr, &degrees).IsNeeded());
}

TEST(AReprojection, MovesPointsThereAndBack) {
    const auto utm = Utm35();
    std::vector<shr::Vec2d> points = {{500000, 0}, {500000, 6000000}};

    app::Reprojection(utm.get(), nullptr).Apply(points);
    EXPECT_NEAR(points[0].x, 27.0, 1e-9);
    EXPECT_NEAR(points[0].y, 0.0, 1e-9);
    EXPECT_NEAR(points[1].x, 27.0, 1e-9);

    app::Reprojection(nullptr, utm.get()).Apply(points);
    EXPECT_NEAR(points[1].x, 500000, 1e-3);
    EXPECT_NEAR(points[1].y, 6000000, 1e-3);
}

TEST(AReprojection, MovesEveryMemberOfAFeature) {
    const auto utm = Utm35();
    app::Feature feature;
    feature.geometry.kind = app::GeometryKind::Collection;
    feature.members = {support::PointAt(500000, 0).geometry};

    app::Reprojection(utm.get(), nullptr).Apply(feature);

    EXPECT_NEAR(feature.members.front().points.front().x, 27.0, 1e-9);
}

TEST(AReprojection, MakesPointsInfiniteThatHaveNoPlaceAndCountsThem) {
    const auto utm = Utm35();
    app::Reprojection reprojection(utm.get(), nullptr);
    std::vector<shr::Vec2d> points = {{500000, 0}, {1e300, 1e300}};

    reprojection.Apply(points);

    EXPECT_NEAR(points[0].x, 27.0, 1e-9);
    EXPECT_TRUE(std::isinf(points[1].x));
    EXPECT_EQ(reprojection.FailedPoints(), 1U);
}

TEST(Wgs84, IsLongitudeAndLatitudeAsItStands) {
    const gcs::GCSDef degrees = app::Wgs84System();

    EXPECT_TRUE(app::IsWgs84(&degrees));
    EXPECT_FALSE(app::IsWgs84(nullptr));
    EXPECT_FALSE(app::IsWgs84(Utm35().get()));
}

}  // namespace
