// Layers of different coordinate systems in one picture.
#include "app/map/LayerSystems.h"

#include "app/crs/Definitions.h"
#include "app/map/MapExtent.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace {

app::SystemPtr Shared(app::CoordinateSystem system) {
    return std::make_shared<const app::CoordinateSystem>(std::move(system));
}

app::SystemPtr SystemOf(const std::string& definition) {
    return Shared(app::SystemOfDefinition(definition));
}

// Where a point of a layer comes to.
shr::Vec2d Moved(app::LayerTransform& transform, const shr::Vec2d& point) {
    std::vector<shr::Vec2d> points{point};
    transform.Apply(points);
    return points.front();
}

TEST(LayerSystems, LeaveTheFirstLayerWhereItIs) {
    app::LayerSystems systems(nullptr);
    std::string problem;

    const app::LayerTransform first = systems.TransformFrom(SystemOf("EPSG:32635"), problem);

    EXPECT_FALSE(first.IsNeeded());
    EXPECT_EQ(problem, "");
    EXPECT_NE(systems.Target(), nullptr);
}

TEST(LayerSystems, LeaveALayerOfTheSameSystemWhereItIs) {
    app::LayerSystems systems(SystemOf("EPSG:4326"));
    std::string problem;

    EXPECT_FALSE(systems.TransformFrom(SystemOf("EPSG:4326"), problem).IsNeeded());
}

TEST(LayerSystems, MoveALayerIntoTheSystemOfTheFirst) {
    app::LayerSystems systems(nullptr);
    std::string problem;
    static_cast<void>(systems.TransformFrom(SystemOf("EPSG:4326"), problem));

    app::LayerTransform second = systems.TransformFrom(SystemOf("EPSG:32635"), problem);

    ASSERT_TRUE(second.IsNeeded());
    const shr::Vec2d place = Moved(second, {500000.0, 0.0});
    EXPECT_NEAR(place.x, 27.0, 1e-9);
    EXPECT_NEAR(place.y, 0.0, 1e-9);
}

TEST(LayerSystems, MoveEveryLayerIntoTheSystemThatWasNamed) {
    app::LayerSystems systems(SystemOf("EPSG:32635"));
    std::string problem;

    app::LayerTransform first = systems.TransformFrom(SystemOf("EPSG:4326"), problem);

    ASSERT_TRUE(first.IsNeeded());
    const shr::Vec2d place = Moved(first, {27.0, 0.0});
    EXPECT_NEAR(place.x, 500000.0, 1e-4);
    EXPECT_NEAR(place.y, 0.0, 1e-4);
}

TEST(LayerSystems, MakeAPointInfiniteThatHasNoPlaceThere) {
    app::LayerSystems systems(SystemOf("EPSG:3857"));
    std::string problem;

    app::LayerTransform layer = systems.TransformFrom(SystemOf("EPSG:32635"), problem);

    ASSERT_TRUE(layer.IsNeeded());
    EXPECT_FALSE(app::IsDrawable(Moved(layer, {1e30, 1e30}).x, 0.0));
}

TEST(LayerSystems, SayWhyALayerCannotBeMoved) {
    app::LayerSystems systems(SystemOf("EPSG:4326"));
    std::string ofPlane;
    std::string ofNothing;
    std::string ofUnknown;

    const app::LayerTransform plane = systems.TransformFrom(Shared(app::PlaneSystem(1.0)), ofPlane);
    const app::LayerTransform nothing = systems.TransformFrom(nullptr, ofNothing);
    const app::LayerTransform unknown =
        systems.TransformFrom(Shared(app::UnknownSystem("nobody knows")), ofUnknown);

    EXPECT_FALSE(plane.IsNeeded());
    EXPECT_EQ(ofPlane, "has no coordinate system of the Earth");
    EXPECT_FALSE(nothing.IsNeeded());
    EXPECT_EQ(ofNothing, "has no coordinate system of the Earth");
    EXPECT_FALSE(unknown.IsNeeded());
    EXPECT_EQ(ofUnknown, "nobody knows");
}

TEST(LayerSystems, AreGeographicWhenTheTargetIsInDegrees) {
    EXPECT_TRUE(app::LayerSystems(SystemOf("EPSG:4326")).IsGeographic());
    EXPECT_FALSE(app::LayerSystems(SystemOf("EPSG:32635")).IsGeographic());
    EXPECT_FALSE(app::LayerSystems(nullptr).IsGeographic());
}

}  // namespace
