// What a map keeps of its geometry until it is drawn.
#include "app/draw/GeometrySpool.h"

#include "app/map/TextFrame.h"
#include "tests/draw/Picture.h"

#include <gtest/gtest.h>

namespace {

using namespace draw_test;

struct Kept {
    std::size_t layer = 99;
    app::Geometry geometry;
    std::string label;
};

std::vector<Kept> Contents(app::GeometrySpool& spool) {
    std::vector<Kept> kept;
    std::size_t layer = 99;
    spool.Read({.beginLayer = [&](std::size_t number) { layer = number; },
                .take =
                    [&](const app::Geometry& geometry, std::string_view label) {
                        kept.push_back({layer, geometry, std::string(label)});
                    }});
    return kept;
}

TEST(GeometrySpool, GivesBackGeometriesWithLayersLabelsAndParts) {
    app::GeometrySpool spool;
    const app::Geometry area = Polygon({Square(0, 9), Square(3, 6)}, Area(kRed));
    const app::Geometry line = Line({{1, 2}, {3, 4}});
    spool.BeginLayer(0);
    spool.Add(area, "Lake");
    spool.BeginLayer(1);
    spool.Add(line, "");

    for (int round = 0; round < 2; ++round) {
        const std::vector<Kept> kept = Contents(spool);

        ASSERT_EQ(kept.size(), 2U);
        EXPECT_EQ(kept[0].layer, 0U);
        EXPECT_EQ(kept[0].geometry, area);
        EXPECT_EQ(kept[0].label, "Lake");
        EXPECT_EQ(kept[1].layer, 1U);
        EXPECT_EQ(kept[1].geometry, line);
        EXPECT_EQ(kept[1].label, "");
    }
}

TEST(GeometrySpool, GivesBackEveryPartOfAStyle) {
    app::Style style =
        Pen(kRed, 3, 5) + Brush(7, kGreen, kBlue) + Symbol(33, kRed, 9) + Font(kBlue);
    style.symbol->form = app::Symbol::Form::FontCharacter;
    style.symbol->name = "Wingdings";
    style.symbol->styleBits = 256;
    style.symbol->rotationDegrees = 30.5;
    style.font->back = 0xFFFFFF;
    app::GeometrySpool spool;
    spool.BeginLayer(0);
    spool.Add(Points({{1, 2}}, style), "");
    spool.Add(Points({{3, 4}}, style), "");
    spool.Add(Points({{5, 6}}), "");

    const std::vector<Kept> kept = Contents(spool);

    ASSERT_EQ(kept.size(), 3U);
    EXPECT_EQ(kept[0].geometry.style, style);
    EXPECT_EQ(kept[1].geometry.style, style);
    EXPECT_EQ(kept[2].geometry.style, app::Style());
}

TEST(GeometrySpool, GivesBackWhatATextSaysAndHowItLies) {
    app::Geometry text = Text("two\nlines", {10, 20, 40, 30}, 30.0);
    text.placement.justify = app::Justify::Right;
    text.placement.lineSpacing = 1.5;
    text.placement.labelLine = app::LabelLine{true, {7, 8}};
    app::SetTextFrame(text);
    app::GeometrySpool spool;
    spool.BeginLayer(0);
    spool.Add(text, "");

    const std::vector<Kept> kept = Contents(spool);

    ASSERT_EQ(kept.size(), 1U);
    const app::TextPlacement& placement = kept[0].geometry.placement;
    EXPECT_EQ(kept[0].geometry.points, text.points);
    EXPECT_EQ(placement.text, "two\nlines");
    EXPECT_EQ(placement.justify, app::Justify::Right);
    EXPECT_EQ(placement.lineSpacing, 1.5);
    EXPECT_TRUE(placement.box);
    ASSERT_TRUE(placement.labelLine);
    EXPECT_TRUE(placement.labelLine->hasArrow);
}

}  // namespace
