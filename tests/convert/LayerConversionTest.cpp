#include "app/convert/LayerConversion.h"

#include "app/base/Errors.h"
#include "app/crs/Definitions.h"
#include "tests/support/Features.h"
#include "tests/support/KeptMessages.h"

#include <gtest/gtest.h>

#include <cmath>
#include <optional>
#include <string>

namespace {

using app::GeometryKind;
using support::Column;

class ALayerConversion : public testing::Test {
protected:
    app::LayerFacts Facts(const std::string& system = "wgs84") {
        app::LayerFacts facts;
        facts.name = "roads";
        facts.columns = {Column("id", app::ColumnKind::Integer),
                         Column("name", app::ColumnKind::Char, 20)};
        if (!system.empty()) {
            facts.system = app::SystemOfOption("--crs", system, messages_.Reporter());
        }
        facts.knownExtent = shr::Box2d{0, 0, 1, 1};
        return facts;
    }

    app::LayerConversion To(const std::string& format) {
        return {options_, app::FormatOfName(format), target_, messages_.Reporter()};
    }

    // Whether more is wanted.
    static bool Take(app::LayerConversion& conversion, app::Feature feature) {
        return conversion.Take(feature);
    }

    app::ConvertOptions options_;
    support::KeepingTarget target_;
    support::KeptMessages messages_;
};

TEST_F(ALayerConversion, BeginsTheTargetsLayerWithWhatIsKnown) {
    app::LayerConversion conversion = To("geojson");

    EXPECT_TRUE(conversion.Begin(Facts(), "roads.mif"));

    ASSERT_EQ(target_.layers.size(), 1U);
    const app::LayerFacts& layer = target_.layers.front();
    EXPECT_EQ(layer.name, "roads");
    EXPECT_EQ(layer.columns.size(), 2U);
    EXPECT_TRUE(app::IsWgs84(*layer.system));
    EXPECT_EQ(layer.knownExtent, (shr::Box2d{0, 0, 1, 1}));
}

TEST_F(ALayerConversion, SelectsColumnsAndValues) {
    options_.select = {"name"};
    app::LayerConversion conversion = To("geojson");

    static_cast<void>(conversion.Begin(Facts(), "roads.mif"));
    Take(conversion, support::PointAt(1, 2, {std::int64_t{1}, std::string("x")}));

    EXPECT_EQ(target_.layers.front().columns.front().name, "name");
    EXPECT_EQ(target_.features.front().values, (std::vector<app::Value>{std::string("x")}));
}

TEST_F(ALayerConversion, MovesPointsToTheOutputsSystem) {
    app::LayerConversion conversion = To("geojson");

    static_cast<void>(conversion.Begin(Facts("EPSG:32635"), "roads.mif"));
    Take(conversion, support::PointAt(500000, 0));

    EXPECT_FALSE(target_.layers.front().knownExtent) << "a box does not stay one";
    EXPECT_NEAR(target_.features.front().geometry.points.front().x, 27.0, 1e-9);
    EXPECT_NEAR(target_.features.front().geometry.points.front().y, 0.0, 1e-9);
}

TEST_F(ALayerConversion, MakesRegionsOfCurvesThatTheFormatCantHold) {
    options_.segments = 8;
    app::LayerConversion conversion = To("geojson");

    static_cast<void>(conversion.Begin(Facts(), "roads.mif"));
    Take(conversion, support::EllipseIn({0, 0, 2, 2}));

    EXPECT_EQ(target_.features.front().geometry.kind, GeometryKind::Region);
    EXPECT_EQ(target_.features.front().geometry.points.size(), 9U);
}

TEST_F(ALayerConversion, KeepsCurvesThatTheFormatHolds) {
    app::LayerConversion conversion = To("mif");

    static_cast<void>(conversion.Begin(Facts(), "roads.mif"));
    Take(conversion, support::EllipseIn({0, 0, 2, 2}));

    EXPECT_EQ(target_.features.front().geometry.kind, GeometryKind::Ellipse);
}

TEST_F(ALayerConversion, MakesRegionsOfCurvesThatMove) {
    options_.crs = "EPSG:32635";
    app::LayerConversion conversion = To("mif");

    static_cast<void>(conversion.Begin(Facts(), "roads.mif"));
    Take(conversion, support::EllipseIn({26, 0, 28, 1}));

    EXPECT_EQ(target_.features.front().geometry.kind, GeometryKind::Region);
}

TEST_F(ALayerConversion, RoundsCoordinatesWhenTold) {
    options_.precision = 1;
    app::LayerConversion conversion = To("mif");

    static_cast<void>(conversion.Begin(Facts(), "roads.mif"));
    Take(conversion, support::PointAt(1.26, -0.05));

    EXPECT_EQ(target_.features.front().geometry.points.front(), (shr::Vec2d{1.3, -0.1}));
}

TEST_F(ALayerConversion, GivesReprojectedCoordinatesAsManyDecimalsAsTold) {
    const auto rounded = [this](std::optional<int> precision) {
        options_.precision = precision;
        app::LayerConversion conversion = To("geojson");
        static_cast<void>(conversion.Begin(Facts("EPSG:32635"), "roads.mif"));
        Take(conversion, support::PointAt(512345.678, 6543210.987));
        return target_.features.back().geometry.points.front().x;
    };

    const double usual = rounded(std::nullopt);
    const double more = rounded(12);

    EXPECT_NE(more, usual);
    EXPECT_EQ(usual, std::round(more * 1e9) / 1e9);
    EXPECT_EQ(more, std::round(more * 1e12) / 1e12);
}

TEST_F(ALayerConversion, EndsWithTheLimit) {
    options_.limit = 2;
    app::LayerConversion conversion = To("geojson");

    static_cast<void>(conversion.Begin(Facts(), "roads.mif"));

    EXPECT_TRUE(Take(conversion, support::PointAt(1, 2)));
    EXPECT_FALSE(Take(conversion, support::PointAt(3, 4)));
}

TEST_F(ALayerConversion, WantsNothingWithALimitOfNothing) {
    options_.limit = 0;

    EXPECT_FALSE(To("geojson").Begin(Facts(), "roads.mif"));
}

TEST_F(ALayerConversion, LeavesOutWhatLiesBesideTheBox) {
    options_.box = {0, 0, 1, 1};
    app::LayerConversion conversion = To("geojson");

    static_cast<void>(conversion.Begin(Facts(), "roads.mif"));
    Take(conversion, support::PointAt(5, 5));
    Take(conversion, support::PointAt(0.5, 0.5));
    conversion.End();

    EXPECT_EQ(target_.features.size(), 1U);
    EXPECT_EQ(messages_.Text(), "");
}

TEST_F(ALayerConversion, SaysSoWhenTheBoxHasKeptEverythingOut) {
    options_.box = {0, 0, 1, 1};
    app::LayerConversion conversion = To("gpkg");

    static_cast<void>(conversion.Begin(Facts(), "roads.mif"));
    Take(conversion, support::PointAt(5, 5));
    conversion.End();

    EXPECT_EQ(messages_.Text(),
              "qolf: warning: roads.mif: no object meets --bbox, whose numbers are coordinates of "
              "the output; an empty layer is written\n");
}

TEST_F(ALayerConversion, CountsObjectsAndPointsWithoutAPlaceInTheOutput) {
    app::LayerConversion conversion = To("geojson");

    static_cast<void>(conversion.Begin(Facts("EPSG:32635"), "roads.mif"));
    Take(conversion, support::PointAt(500000, 0));
    Take(conversion, support::PointsAt({{500000, 0}, {1e300, 1e300}, {1e300, 0}}));
    conversion.End();

    EXPECT_EQ(messages_.Text(), "qolf: warning: roads.mif: 1 object (2 points) has no place in the "
                                "output's coordinate system\n");
}

TEST_F(ALayerConversion, FailsWhenNoObjectHasAPlaceInTheOutput) {
    app::LayerConversion conversion = To("geojson");

    static_cast<void>(conversion.Begin(Facts("EPSG:32635"), "roads.mif"));
    Take(conversion, support::PointAt(1e300, 1e300));
    Take(conversion, app::Feature());

    EXPECT_THROW(conversion.End(), app::Failure);
}

}  // namespace
