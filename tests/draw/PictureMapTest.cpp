// What a map keeps, and how much room it needs.
#include "app/draw/PictureMap.h"

#include "tests/draw/Picture.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using namespace draw_test;

app::Feature FeatureOf(app::Geometry geometry) {
    app::Feature feature;
    feature.geometry = std::move(geometry);
    return feature;
}

class PictureMapOf : public testing::Test {
protected:
    PictureMapOf() { map_.BeginLayer({"a", {}, std::nullopt}); }

    void Take(app::Geometry geometry) {
        app::Feature feature = FeatureOf(std::move(geometry));
        map_.Take(feature);
    }

    std::vector<app::Geometry> Kept() {
        std::vector<app::Geometry> kept;
        map_.Geometries().Read({.beginLayer = [](std::size_t) {},
                                .take = [&](const app::Geometry& geometry,
                                            std::string_view) { kept.push_back(geometry); }});
        return kept;
    }

    app::PictureMap map_{{.width = 100, .height = 100}, std::nullopt, app::StyleSource::Objects};
};

TEST_F(PictureMapOf, NothingHasNoExtent) {
    Take(app::Geometry());

    EXPECT_EQ(map_.Frame().Extent(), std::nullopt);
}

TEST_F(PictureMapOf, ObjectsHasTheirExtent) {
    Take(Line({{-3, -4}, {-1, -2}}));
    Take(Rectangle({1, 1, 2, 7}));

    EXPECT_EQ(map_.Frame().Extent(), (shr::Box2d{-3, -4, 2, 7}));
}

TEST_F(PictureMapOf, PointsThatCannotBeDrawnPassesOverThem) {
    constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    Take(Line({{1, 1}, {kNaN, 5}, {5, kInfinity}, {2, 3}}));
    Take(Line({{1e305, 0}, {0, -1e305}}));

    EXPECT_EQ(map_.Frame().Extent(), (shr::Box2d{1, 1, 2, 3}));
}

TEST_F(PictureMapOf, SymbolsNeedsRoomForThem) {
    Take(Points({{0, 0}, {10, 10}}, Symbol(34, kRed, 15)));  // 20 pixels

    const app::Viewport viewport = map_.Frame().FitInto({100, 100}, 0.0, 1.0);

    EXPECT_GE(viewport.ToPage({0, 0}).x, 10.0);
    EXPECT_LE(viewport.ToPage({10, 10}).x, 90.0);
}

TEST_F(PictureMapOf, WidePensNeedsRoomForThem) {
    Take(Line({{0, 0}, {10, 10}}, Pen(kRed, 10)));

    EXPECT_GE(map_.Frame().FitInto({100, 100}, 0.0, 1.0).ToPage({0, 0}).x, 5.0);
}

TEST_F(PictureMapOf, ManyVerticesKeepsThoseThatAPageCanShow) {
    Take(Line({{0, 0}, {1000, 1000}}));
    std::vector<shr::Vec2d> points;
    for (int i = 0; i <= 10'000; ++i) {
        points.push_back({i * 0.1, 500.0});
    }
    Take(Line(points));

    const std::vector<app::Geometry> kept = Kept();

    ASSERT_EQ(kept.size(), 2U);
    EXPECT_LE(kept[1].points.size(), 900U);
    EXPECT_GE(kept[1].points.size(), 400U);
    EXPECT_EQ(kept[1].points.front(), points.front());
    EXPECT_EQ(kept[1].points.back(), points.back());
}

TEST_F(PictureMapOf, RegionsThinsEachRing) {
    Take(Line({{0, 0}, {1000, 1000}}));
    Take(Polygon({{{0, 0}, {0.1, 0}, {500, 0}, {500, 500}, {0, 0}},
                  {{10, 10}, {20, 10}, {20, 10.1}, {20, 20}, {10, 10}}}));

    const std::vector<app::Geometry> kept = Kept();

    ASSERT_EQ(kept.size(), 2U);
    EXPECT_EQ(kept[1].partSizes, (std::vector<std::size_t>{4, 4}));
    EXPECT_EQ(kept[1].points.size(), 8U);
}

TEST_F(PictureMapOf, CollectionsKeepsTheMembers) {
    app::Feature feature;
    feature.geometry.kind = app::GeometryKind::Collection;
    feature.members = {Line({{0, 0}, {1, 1}}), Points({{2, 2}})};

    map_.Take(feature);

    EXPECT_EQ(Kept().size(), 2U);
    EXPECT_EQ(map_.Frame().Extent(), (shr::Box2d{0, 0, 2, 2}));
}

TEST(PictureMapWithAView, DoesNotKeepWhatLiesFarBesideIt) {
    app::PictureMap map({.width = 1000, .height = 1000}, shr::Box2d{0, 0, 10, 10},
                        app::StyleSource::Objects);
    map.BeginLayer({"a", {}, std::nullopt});
    for (const double x : {5.0, 12.0, 1000.0}) {
        app::Feature feature = FeatureOf(Points({{x, 5}}));
        map.Take(feature);
    }

    int kept = 0;
    map.Geometries().Read({.beginLayer = [](std::size_t) {},
                           .take = [&kept](const app::Geometry&, std::string_view) { ++kept; }});

    EXPECT_EQ(kept, 2);
    EXPECT_EQ(map.Frame().Extent(), (shr::Box2d{5, 5, 1000, 5}));
}

}  // namespace
