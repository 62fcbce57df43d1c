// Titles, legends and scale bars.
#include "app/draw/Furniture.h"

#include "tests/draw/Picture.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace {

using namespace draw_test;

constexpr app::PageSize kPage{400, 300};

app::LegendLayer Layer(const std::string& name, const std::vector<app::Style>& styles,
                       app::GeometryKind kind = app::GeometryKind::Region) {
    app::LegendLayer layer;
    layer.name = name;
    for (const app::Style& style : styles) {
        layer.looks.push_back({kind, style});
    }
    return layer;
}

struct ScaleRow {
    std::string name;
    double metresPerPixel;
    std::string words;
    double pixels;
};
class ScaleBarOf : public testing::TestWithParam<ScaleRow> {};

TEST_P(ScaleBarOf, IsARoundLength) {
    const app::ScaleBar bar = app::ScaleBarOf(kPage, GetParam().metresPerPixel, 1.0);

    EXPECT_EQ(bar.words, GetParam().words);
    EXPECT_NEAR(bar.pixels, GetParam().pixels, 1e-6);
}

INSTANTIATE_TEST_SUITE_P(, ScaleBarOf,
                         testing::Values(ScaleRow{"Metres", 1.0, "100 m", 100.0},
                                         ScaleRow{"LessThanTheNextStep", 0.9, "50 m", 50.0 / 0.9},
                                         ScaleRow{"Kilometres", 37.0, "2 km", 2000.0 / 37.0},
                                         ScaleRow{"AContinent", 20000.0, "2000 km", 100.0},
                                         ScaleRow{"Millimetres", 0.003, "200 mm", 0.2 / 0.003}),
                         [](const auto& row) { return row.param.name; });

TEST(ScaleBar, CountsUnitsWhereMetresAreNotKnown) {
    EXPECT_EQ(app::ScaleBarOf(kPage, std::nullopt, 0.5).words, "50 units");
}

TEST(ScaleBar, IsNothingAtAScaleThatIsNoNumber) {
    EXPECT_EQ(app::ScaleBarOf(kPage, std::numeric_limits<double>::quiet_NaN(), 1.0).pixels, 0.0);
}

const std::vector<app::LegendLayer> kLakes{Layer("Lakes", {Area(kBlue)})};

app::Furniture FurnitureOf(const app::FurnitureWishes& wishes,
                           const std::vector<app::LegendLayer>& layers = kLakes) {
    return {wishes, layers, app::StyleSource::Objects, {.width = kPage.width}};
}

TEST(Furniture, ThatNobodyWantsLeavesThePageToTheMap) {
    const app::Furniture furniture = FurnitureOf({});

    EXPECT_EQ(furniture.MapRequest().width, kPage.width);
    EXPECT_EQ(furniture.PageAround(kPage), kPage);
    EXPECT_EQ(furniture.MapCorner(), app::PagePoint());
}

TEST(Furniture, StandsBesideTheMap) {
    const app::Furniture furniture =
        FurnitureOf({.title = "Map", .legend = true, .scaleBar = true});

    const int mapWidth = furniture.MapRequest().width;
    EXPECT_LT(mapWidth, kPage.width);
    const app::PageSize page = furniture.PageAround({mapWidth, 200});
    EXPECT_EQ(page.width, kPage.width);
    EXPECT_GT(page.height, 200 + furniture.MapCorner().y);
    EXPECT_GT(furniture.MapCorner().y, 0.0);
}

TEST(Furniture, LeavesTheMapHalfOfThePage) {
    const std::vector<app::LegendLayer> layers(100, Layer(std::string(300, 'x'), {Area(kBlue)}));

    const app::Furniture furniture =
        FurnitureOf({.title = std::string(500, 'W'), .legend = true}, layers);

    EXPECT_GE(furniture.MapRequest().width, kPage.width / 2 - 1);
    EXPECT_LT(furniture.MapRequest().width, kPage.width);
}

TEST(Furniture, IsLeftOutOfASmallPage) {
    const app::Furniture furniture({.title = "Map", .legend = true, .scaleBar = true}, kLakes,
                                   app::StyleSource::Objects, {.width = 60, .height = 60});

    EXPECT_EQ(furniture.PageAround({60, 60}), (app::PageSize{60, 60}));
}

TEST(Furniture, HasNoTitleOfControlCharacters) {
    EXPECT_EQ(FurnitureOf({.title = "\x01\x02"}).MapCorner(), app::PagePoint());
}

TEST(Furniture, HasNoLegendWithoutObjects) {
    EXPECT_EQ(FurnitureOf({.title = "", .legend = true}, {Layer("empty", {})}).MapRequest().width,
              kPage.width);
}

}  // namespace
