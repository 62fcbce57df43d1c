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

TEST(AReprojection, RoundsDegreesUnlessAllDecimalsAreKept) {
    std::vector<shr::Vec2d> points = {{512345.678, 6543210.987}};
    std::vector<shr::Vec2d> whole = points;

    app::Reprojection(Utm35(), app::Wgs84System()).Apply(points);
    app::Reprojection exact(Utm35(), app::Wgs84System());
    exact.KeepAllDecimals();
    exact.Apply(whole);

    EXPECT_EQ(points[0].x, std::round(whole[0].x * 1e9) / 1e9);
    EXPECT_NE(points[0].x, whole[0].x);
    EXPECT_NEAR(points[0].x, whole[0].x, 1e-9);
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

app::Feature TextAt(double x, double y, double height, double angleDegrees) {
    app::Feature feature = support::PointAt(x, y);
    feature.geometry.kind = app::GeometryKind::Text;
    feature.geometry.placement = {"a name", angleDegrees, height};
    return feature;
}

// On the middle meridian of the zone, at the equator: 0.9996 of the map's metres are one of the
// ground's, and 110574 of these make a degree of latitude.
TEST(AText, HasTheHeightThatItHasThereAfterAReprojection) {
    app::Feature text = TextAt(500000, 0, 1000, 0);

    app::Reprojection(Utm35(), app::Wgs84System()).Apply(text);

    EXPECT_NEAR(text.geometry.placement.height, 1000 / 0.9996 / 110574, 1e-6);
    EXPECT_NEAR(text.geometry.placement.angleDegrees, 0.0, 1e-4);
}

// The meridians of a zone meet at its pole: three degrees east of its middle, at 60 degrees north,
// the way to the east is turned by atan(tan 3 sin 60) degrees.
TEST(AText, TurnsWithTheMeridians) {
    app::Feature level = TextAt(30, 60, 0.001, 0);
    app::Feature upright = TextAt(30, 60, 0.001, 90);
    app::Reprojection reprojection(app::Wgs84System(), Utm35());

    reprojection.Apply(level);
    reprojection.Apply(upright);

    EXPECT_NEAR(level.geometry.placement.angleDegrees, 2.598, 0.01);
    EXPECT_NEAR(level.geometry.placement.height, 111.4, 0.1);
    EXPECT_NEAR(upright.geometry.placement.angleDegrees, 92.598, 0.01);
}

TEST(AText, TakesTheEndOfItsLineAlongAndLosesItsBox) {
    app::Feature text = TextAt(500000, 0, 1000, 0);
    text.geometry.placement.box = shr::Box2d{500000, -1000, 505000, 0};
    text.geometry.placement.labelLine = app::LabelLine{true, {500000, 6000000}};

    app::Reprojection(Utm35(), app::Wgs84System()).Apply(text);

    EXPECT_FALSE(text.geometry.placement.box);
    ASSERT_TRUE(text.geometry.placement.labelLine);
    EXPECT_TRUE(text.geometry.placement.labelLine->hasArrow);
    EXPECT_NEAR(text.geometry.placement.labelLine->end.x, 27.0, 1e-9);
    EXPECT_NEAR(text.geometry.placement.labelLine->end.y, 54.148, 0.01);
}

// The ends of the ways along and up are no points of the map, and are not counted.
TEST(AText, KeepsHeightAndAngleWhereItHasNoPlace) {
    app::Feature text = TextAt(1e300, 1e300, 1000, 15);
    app::Reprojection reprojection(Utm35(), app::Wgs84System());

    reprojection.Apply(text);

    EXPECT_TRUE(std::isinf(text.geometry.points.front().x));
    EXPECT_EQ(text.geometry.placement.height, 1000);
    EXPECT_EQ(text.geometry.placement.angleDegrees, 15);
    EXPECT_EQ(reprojection.FailedPoints(), 1U);
}

}  // namespace
