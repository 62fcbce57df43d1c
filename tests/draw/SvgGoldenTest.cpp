// Whole SVG pictures of a few objects, compared with files. Texts are left to the tests that read
// pixels: their outlines are the system's fonts.
#include "app/draw/Furniture.h"
#include "app/draw/LabelPlaces.h"
#include "app/draw/PathPainter.h"
#include "tests/draw/Picture.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <regex>
#include <string>

namespace {

using namespace draw_test;

std::string ReadFile(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

// The library leaves it to the system's runtime how a half is rounded.
std::string WithoutSixthDecimals(const std::string& svg) {
    static const std::regex number("(\\.[0-9]{5})[0-9]");
    return std::regex_replace(svg, number, "$1");
}

void DrawBox(cairo_t* context, const std::optional<app::LabelPlace>& place, app::LabelSize size) {
    if (place) {
        const app::SavedState state(context);
        cairo_translate(context, place->middle.x, place->middle.y);
        cairo_rotate(context, place->angle);
        cairo_rectangle(context, -size.width / 2.0, -size.height / 2.0, size.width, size.height);
        cairo_stroke(context);
    }
}

class SvgGolden : public testing::Test {
protected:
    void SetUp() override {
        // Other versions of the library write the same picture in other words.
        if (cairo_version() / 100 != 116) {
            GTEST_SKIP() << "the files were written by cairo 1.16, this is "
                         << cairo_version_string();
        }
    }

    void ExpectGolden(const std::string& name, const std::vector<app::Geometry>& geometries) {
        ExpectGoldenSvg(name, SvgOf(geometries));
    }

    void ExpectGoldenSvg(const std::string& name, const std::string& svg) {
        const auto file = std::filesystem::path(QOLF_TEST_GOLDEN) / "draw" / (name + ".svg");
        if (std::getenv("UPDATE_GOLDENS") != nullptr) {
            std::ofstream(file, std::ios::binary) << svg;
        }
        EXPECT_EQ(WithoutSixthDecimals(svg), WithoutSixthDecimals(ReadFile(file))) << file;
    }
};

TEST_F(SvgGolden, OfALineAndADashedLine) {
    ExpectGolden("lines", {Line({{10, 10}, {50, 90}, {90, 10}}, Pen(kRed, 2)),
                           Line({{10, 50}, {90, 50}}, Pen(kBlue, 21, 21))});
}

TEST_F(SvgGolden, OfAPolygonWithAHole) {
    ExpectGolden("polygon-with-hole",
                 {Polygon({Square(10, 90), Square(30, 70)},
                          Pen(kBlack) + Brush(2, shr::Color4b(158, 202, 233)))});
}

TEST_F(SvgGolden, OfHatchedAreas) {
    const app::Style pen = Pen(kBlack);
    ExpectGolden("hatched-areas",
                 {Rectangle({5, 5, 45, 95}, pen + Brush(8, kRed)),
                  Rectangle({55, 5, 95, 45}, pen + Brush(3, kBlue, shr::Color4b(255, 255, 200))),
                  Rectangle({55, 55, 95, 95}, pen + Brush(44, kBlack))});
}

TEST_F(SvgGolden, OfRoundedRectangleAndEllipse) {
    const app::Style outline = Pen(kBlack) + Brush(1, kBlack);
    app::Geometry rounded = Rectangle({10, 10, 90, 40}, outline);
    rounded.radiusX = 10;
    rounded.radiusY = 5;
    app::Geometry ellipse = Rectangle({10, 60, 90, 90}, outline);
    ellipse.kind = app::GeometryKind::Ellipse;

    ExpectGolden("rounded-rectangle-and-ellipse", {rounded, ellipse});
}

class SvgGoldenSymbol : public SvgGolden, public testing::WithParamInterface<int> {};

TEST_P(SvgGoldenSymbol, OfTheNumberedSet) {
    ExpectGolden("symbol-" + std::to_string(GetParam()),
                 {Points({{50, 50}}, Symbol(GetParam(), kRed, 30))});
}

INSTANTIATE_TEST_SUITE_P(, SvgGoldenSymbol, testing::Range(31, 52),
                         [](const auto& row) { return "Number" + std::to_string(row.param); });

TEST_F(SvgGolden, OfObjectsWithoutStyles) {
    ExpectGolden("no-styles", {Polygon({Square(10, 60)}), Line({{0, 80}, {40, 70}, {100, 90}}),
                               Points({{80, 30}})});
}

TEST_F(SvgGolden, OfGeometryCutAtThePage) {
    const app::Style style = Pen(kBlack) + Brush(2, kGreen);

    ExpectGolden("cut-at-the-page",
                 {Polygon({Square(50, 1e9)}, style), Line({{-1e9, 20}, {1e9, 20}}, style)});
}

// Boxes replace the labels, whose letters are those of the system's fonts.
TEST_F(SvgGolden, OfLabelPlaces) {
    constexpr app::PageSize kPage{300, 200};
    constexpr app::LabelSize kLabel{40, 12};
    const std::vector<app::PagePath> paths{
        {{10, 190}, {100, 150}, {190, 190}}, {{10, 10}, {60, 80}}, {{200, 20}, {290, 20}}};
    const app::PagePath area{{120, 60}, {280, 60}, {280, 140}, {240, 140}, {240, 80}, {120, 80}};

    ExpectGoldenSvg("label-places", SvgDrawnBy(kPage, [&](cairo_t* context) {
                        app::LabelPlaces places(kPage);
                        const app::PathPainter painter(context, kPage);
                        painter.DrawLines(paths, {kBlue, 1.0, {}}, /*isClosed=*/false);
                        painter.DrawLines({area}, {kGreen, 1.0, {}}, /*isClosed=*/true);
                        std::vector<std::optional<app::LabelPlace>> found;
                        for (int i = 0; i < 6; ++i) {
                            const app::PagePoint point{100.0 + 9.0 * i, 110.0};
                            painter.DrawLines({{point}}, {kRed, 4.0, {}}, /*isClosed=*/false);
                            found.push_back(places.AroundPoint(point, 2.0, kLabel));
                        }
                        for (const app::PagePath& path : paths) {
                            found.push_back(places.AlongLine(path, kLabel, "text"));
                        }
                        found.push_back(places.InsideArea({area}, kLabel));
                        for (const std::optional<app::LabelPlace>& place : found) {
                            DrawBox(context, place, kLabel);
                        }
                    }));
}

// Without names, for the same reason.
TEST_F(SvgGolden, OfALegend) {
    const std::vector<app::LegendLayer> layers{
        {"", {{app::GeometryKind::Region, Pen(kBlack) + Brush(5, kGreen)}}, false},
        {"",
         {{app::GeometryKind::Line, Pen(kBlue, 3)}, {app::GeometryKind::Line, Pen(kRed, 1, 5)}},
         false},
        {"", {{app::GeometryKind::Points, Symbol(35, kRed, 12)}}, false}};
    const app::Furniture furniture({.title = "", .legend = true}, layers, app::StyleSource::Objects,
                                   {.width = 300});
    const app::PageSize map{furniture.MapRequest().width, 100};

    ExpectGoldenSvg("legend", SvgDrawnBy(furniture.PageAround(map), [&](cairo_t* context) {
                        furniture.Draw(context, map, {}, kWhite);
                    }));
}

TEST(Svg, IsTheSameEachTime) {
    const std::vector<app::Geometry> map{Polygon({Square(10, 60)}, Brush(7, kRed)),
                                         Text("same", {10, 70, 90, 90})};

    EXPECT_EQ(SvgOf(map), SvgOf(map));
}

TEST(Svg, OfATextHoldsNoControlCharacters) {
    const std::string svg =
        SvgOf({Text(std::string("a\0b\x01\x1F\xEF\xBF\xBE<&>", 11), {10, 70, 90, 90})});

    EXPECT_EQ(svg.find_first_of(std::string("\0\x01\x1F", 3)), std::string::npos);
    EXPECT_NE(svg.find("</svg>"), std::string::npos);
}

}  // namespace
