// The layers of a page, and how they are made to fit.
#include "app/page/PageLayers.h"

#include "app/crs/CoordinateSystem.h"
#include "app/map/TextFrame.h"
#include "tests/support/Features.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

constexpr std::size_t kPlenty = std::size_t{1} << 30;

app::MapLayer Roads(bool isPlaced = true) {
    app::MapLayer layer;
    layer.name = "roads";
    layer.columns = {support::Column("name", app::ColumnKind::Char),
                     support::Column("lanes", app::ColumnKind::Integer)};
    layer.isPlaced = isPlaced;
    return layer;
}

class Layers : public testing::Test {
protected:
    void Take(app::Feature feature, std::vector<app::Value> values = {}) {
        feature.number = ++number_;
        feature.values = std::move(values);
        layers_.Take(feature);
    }

    // The features of the first layer, without the frame around them.
    std::string Features() {
        const auto content = layers_.Within(kPlenty);
        const std::string& text = content->layers.front();
        const std::size_t begin = text.find("\"features\":[\n") + 13;
        return text.substr(begin, text.size() - begin - 3);
    }

    app::PageLayers layers_{std::nullopt, app::StyleSource::Objects};
    std::uint64_t number_ = 0;
};

TEST_F(Layers, AreFeatureCollectionsWithTheirColumns) {
    app::MapLayer roads = Roads();
    roads.labelColumn = 0;
    layers_.BeginLayer(roads);

    EXPECT_EQ(layers_.Within(kPlenty)->layers,
              std::vector<std::string>{R"({"type":"FeatureCollection","name":"roads",)"
                                       R"("label":"name","columns":["name","lanes"],"features":[)"
                                       "\n]}"});
}

TEST_F(Layers, HaveTheValuesThatAreThere) {
    layers_.BeginLayer(Roads());
    Take(support::PointAt(25, 59), {std::string("<b>"), std::int64_t{4}});
    Take(support::PointAt(25, 59), {std::string(), app::Value()});

    EXPECT_EQ(Features(),
              R"({"type":"Feature","id":1,"properties":{"name":"\u003cb\u003e","lanes":4},)"
              R"("geometry":{"type":"Point","coordinates":[25,59]},"style":0},)"
              "\n"
              R"({"type":"Feature","id":2,"properties":{},)"
              R"("geometry":{"type":"Point","coordinates":[25,59]},"style":0})");
}

TEST_F(Layers, KeepWholeNumbersThatAScriptCanNotHoldAsTexts) {
    layers_.BeginLayer(Roads());
    Take(support::PointAt(25, 59), {app::Value(), std::int64_t{9007199254740993}});

    EXPECT_NE(Features().find(R"({"lanes":"9007199254740993"})"), std::string::npos);
}

TEST_F(Layers, CloseTheRingsOfAreasAndPutHolesIntoTheirPolygons) {
    layers_.BeginLayer(Roads());
    Take(support::RegionOf(
        {support::Square(0, 0, 10), support::Square(20, 0, 10), support::Square(2, 2, 1)}));

    EXPECT_NE(Features().find(
                  R"({"type":"MultiPolygon","coordinates":[[[[0,0],[10,0],[10,10],[0,10],[0,0]],)"
                  R"([[2,2],[3,2],[3,3],[2,3],[2,2]]],[[[20,0],[30,0],[30,10],[20,10],[20,0]]]]})"),
              std::string::npos)
        << Features();
}

TEST_F(Layers, HaveTheStylesOfACollectionsMembers) {
    layers_.BeginLayer(Roads());
    app::Feature collection;
    collection.geometry.kind = app::GeometryKind::Collection;
    collection.members = {support::PointAt(1, 2).geometry,
                          support::LineThrough({{3, 4}, {5, 6}}).geometry};
    Take(collection);

    EXPECT_NE(
        Features().find(R"("geometry":{"type":"GeometryCollection","geometries":[)"
                        R"({"type":"Point","coordinates":[1,2]},)"
                        R"({"type":"LineString","coordinates":[[3,4],[5,6]]}]},"style":[0,1]})"),
        std::string::npos)
        << Features();
}

TEST_F(Layers, HaveTextsWithTheirFrame) {
    layers_.BeginLayer(Roads(false));
    layers_.Choose(app::PagePlane::Units);
    app::Feature text;
    text.geometry.kind = app::GeometryKind::Text;
    text.geometry.points = {{1, 2}};
    text.geometry.placement.text = "a\\nb";
    text.geometry.placement.box = shr::Box2d{1, 2, 5, 4};
    app::SetTextFrame(text.geometry);
    Take(text);

    EXPECT_NE(Features().find(R"("text":{"lines":["a","b"],"justify":"left","box":true,)"
                              R"("arrow":false,"spacing":0,"frame":[[1,2],[5,2],[1,4]]})"),
              std::string::npos)
        << Features();
}

TEST_F(Layers, LeaveOutWhatHasNoPlace) {
    constexpr double kNowhere = std::numeric_limits<double>::infinity();
    layers_.BeginLayer(Roads());
    Take(app::Feature());
    Take(support::PointAt(kNowhere, kNowhere));
    Take(support::LineThrough({{1, 1}, {kNowhere, kNowhere}, {2, 2}}));

    EXPECT_EQ(Features(), R"({"type":"Feature","id":3,"properties":{},"geometry":)"
                          R"({"type":"LineString","coordinates":[[1,1],[2,2]]},"style":0})");
}

TEST_F(Layers, LeaveOutWhatLiesOutsideTheView) {
    app::PageLayers layers(shr::Box2d{0, 0, 10, 10}, app::StyleSource::Objects);
    layers.BeginLayer(Roads());
    app::Feature inside = support::PointAt(5, 5);
    app::Feature outside = support::PointAt(15, 5);
    app::Feature across = support::LineThrough({{-5, 5}, {15, 6}});
    layers.Take(inside);
    layers.Take(outside);
    layers.Take(across);

    EXPECT_EQ(layers.Extent(), (shr::Box2d{-5, 5, 15, 6}));
}

TEST_F(Layers, OfAPlaneDoNotCountBesideThoseOfTheEarth) {
    layers_.BeginLayer(Roads(true));
    Take(support::PointAt(25, 59));
    layers_.BeginLayer(Roads(false));
    Take(support::PointAt(500000, 6000000));

    EXPECT_EQ(layers_.Names().size(), 1U);
    EXPECT_EQ(layers_.Extent(), (shr::Box2d{25, 59, 25, 59}));
    EXPECT_EQ(layers_.Within(kPlenty)->layers.size(), 1U);
    layers_.Choose(app::PagePlane::Units);
    EXPECT_EQ(layers_.Extent(), (shr::Box2d{500000, 6000000, 500000, 6000000}));
}

TEST_F(Layers, AreThinnedUntilTheyFit) {
    layers_.BeginLayer(Roads());
    std::vector<shr::Vec2d> wave;
    for (int i = 0; i < 20000; ++i) {
        wave.push_back({i * 1e-4, std::sin(i * 0.01) + std::sin(i * 1.0) * 1e-3});
    }
    Take(support::LineThrough(wave));

    const auto whole = layers_.Within(kPlenty);
    const auto small = layers_.Within(50000);
    EXPECT_FALSE(whole->isThinned);
    EXPECT_GT(whole->layers.front().size(), 300000U);
    ASSERT_TRUE(small.has_value());
    EXPECT_TRUE(small->isThinned);
    EXPECT_LE(small->layers.front().size(), 50200U);  // and the head of the layer
    EXPECT_GT(small->layers.front().size(), 20000U);  // no more than was needed
}

TEST_F(Layers, DoNotFitWhenTheirPointsAloneAreTooMany) {
    layers_.BeginLayer(Roads());
    for (int i = 0; i < 1000; ++i) {
        Take(support::PointAt(i * 1e-3, 0));
    }

    EXPECT_EQ(layers_.Within(20000), std::nullopt);
    EXPECT_GT(layers_.LeastSize(), 50000U);
}

TEST_F(Layers, OnBothEndsOfTheLongitudesAreCutBetweenThem) {
    layers_.BeginLayer(Roads());
    Take(support::PointAt(179.5, 0));
    Take(support::PointAt(-179.5, 0));
    Take(support::PointAt(170.0, 0));

    ASSERT_TRUE(layers_.Seam().has_value());
    EXPECT_GT(*layers_.Seam(), -179.0);
    EXPECT_LT(*layers_.Seam(), 170.0);
}

TEST_F(Layers, InOnePlaceHaveNoSeam) {
    layers_.BeginLayer(Roads());
    Take(support::PointAt(25, 59));
    Take(support::PointAt(180, 59));

    EXPECT_EQ(layers_.Seam(), std::nullopt);
}

TEST_F(Layers, AllAroundTheEarthHaveNoSeam) {
    layers_.BeginLayer(Roads());
    Take(support::RegionOf({{{-180, -80}, {180, -80}, {180, 80}, {-180, 80}}}));

    EXPECT_EQ(layers_.Seam(), std::nullopt);
}

TEST_F(Layers, OfAProjectedSystemGoOnBeyondTheEndOfTheLongitudes) {
    app::MapLayer roads = Roads();
    roads.system = std::make_shared<app::CoordinateSystem>();  // its coordinates are no degrees
    layers_.BeginLayer(roads);
    Take(support::LineThrough({{179, 0}, {-179, 1}}));

    EXPECT_NE(Features().find("[[179,0],[181,1]]"), std::string::npos) << Features();
}

}  // namespace
