// Layers of different coordinate systems in one picture.
#include "app/draw/LayerSystems.h"

#include "app/crs/GcsFromCrs.h"

#include <gtest/gtest.h>

namespace {

std::unique_ptr<gcs::CSDef> SystemOf(const std::string& definition) {
    return app::GcsFromCrs(definition).system;
}

TEST(LayerSystems, LeaveTheFirstLayerWhereItIs) {
    app::LayerSystems systems(nullptr);

    const app::LayerTransform first = systems.TransformFrom(*SystemOf("EPSG:32635"));

    EXPECT_FALSE(first.transform);
    EXPECT_EQ(first.problem, "");
    EXPECT_TRUE(systems.HasTarget());
}

TEST(LayerSystems, LeaveALayerOfTheSameSystemWhereItIs) {
    app::LayerSystems systems(nullptr);
    static_cast<void>(systems.TransformFrom(*SystemOf("EPSG:4326")));

    EXPECT_FALSE(systems.TransformFrom(*SystemOf("EPSG:4326")).transform);
}

TEST(LayerSystems, MoveALayerIntoTheSystemOfTheFirst) {
    app::LayerSystems systems(nullptr);
    static_cast<void>(systems.TransformFrom(*SystemOf("EPSG:4326")));

    const app::LayerTransform second = systems.TransformFrom(*SystemOf("EPSG:32635"));

    ASSERT_TRUE(second.transform);
    const auto place = second.transform({500000.0, 0.0});
    ASSERT_TRUE(place);
    EXPECT_NEAR(place->x, 27.0, 1e-9);
    EXPECT_NEAR(place->y, 0.0, 1e-9);
}

TEST(LayerSystems, MoveEveryLayerIntoTheSystemThatWasNamed) {
    app::LayerSystems systems(SystemOf("EPSG:32635"));

    const app::LayerTransform first = systems.TransformFrom(*SystemOf("EPSG:4326"));

    ASSERT_TRUE(first.transform);
    const auto place = first.transform({27.0, 0.0});
    ASSERT_TRUE(place);
    EXPECT_NEAR(place->x, 500000.0, 1e-4);
    EXPECT_NEAR(place->y, 0.0, 1e-4);
}

TEST(LayerSystems, GiveNothingForAPointThatHasNoPlaceThere) {
    app::LayerSystems systems(SystemOf("EPSG:3857"));

    const app::LayerTransform layer = systems.TransformFrom(*SystemOf("EPSG:32635"));

    ASSERT_TRUE(layer.transform);
    EXPECT_EQ(layer.transform({1e30, 1e30}), std::nullopt);
}

TEST(LayerSystems, SayWhyALayerCannotBeMoved) {
    app::LayerSystems systems(SystemOf("EPSG:4326"));

    const app::LayerTransform plane = systems.TransformFrom(gcs::PlaneDef(1.0));

    EXPECT_FALSE(plane.transform);
    EXPECT_NE(plane.problem, "");
}

TEST(LayerSystems, AreGeographicWhenTheTargetIsInDegrees) {
    EXPECT_TRUE(app::LayerSystems(SystemOf("EPSG:4326")).IsGeographic());
    EXPECT_FALSE(app::LayerSystems(SystemOf("EPSG:32635")).IsGeographic());
    EXPECT_FALSE(app::LayerSystems(nullptr).IsGeographic());
}

TEST(IsSameSystem, TellsDatumsProjectionsAndKindsApart) {
    const auto wgs84 = SystemOf("EPSG:4326");

    EXPECT_TRUE(app::IsSameSystem(*wgs84, *SystemOf("EPSG:4326")));
    EXPECT_FALSE(app::IsSameSystem(*wgs84, *SystemOf("EPSG:4267")));
    EXPECT_FALSE(app::IsSameSystem(*wgs84, *SystemOf("EPSG:32635")));
    EXPECT_FALSE(app::IsSameSystem(*wgs84, gcs::PlaneDef(1.0)));
}

TEST(IsSameSystem, TellsPlanesApartByTheirUnit) {
    EXPECT_TRUE(app::IsSameSystem(gcs::PlaneDef(1.0), gcs::PlaneDef(1.0)));
    EXPECT_FALSE(app::IsSameSystem(gcs::PlaneDef(1.0), gcs::PlaneDef(1000.0)));
}

}  // namespace
