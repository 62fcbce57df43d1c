// Whole SVG pictures of a few objects, compared with files. Texts are left to the tests that read
// pixels: their outlines are the system's fonts.
#include "tests/draw/Picture.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace {

using draw_test::Brush;
using draw_test::Font;
using draw_test::kBlack;
using draw_test::kBlue;
using draw_test::kGreen;
using draw_test::kRed;
using draw_test::Line;
using draw_test::Marker;
using draw_test::Pen;
using draw_test::Polygon;
using draw_test::Rectangle;
using draw_test::Square;
using draw_test::SvgOf;
using draw_test::Text;
using Pattern = zeio::TrBrush::Pattern;

std::string ReadFile(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
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

    void ExpectGolden(const std::string& name, const std::vector<const zeio::TrBase*>& objects) {
        const std::string svg = SvgOf(objects);
        const auto file = std::filesystem::path(QOLF_TEST_GOLDEN) / "draw" / (name + ".svg");
        if (std::getenv("UPDATE_GOLDENS") != nullptr) {
            std::ofstream(file, std::ios::binary) << svg;
        }
        EXPECT_EQ(svg, ReadFile(file)) << file;
    }
};

TEST_F(SvgGolden, OfALineAndADashedLine) {
    const zeio::TrPen red = Pen(kRed, 2.0);
    zeio::TrPen dashed = Pen(kBlue, 1.5);
    dashed.style = zeio::TrPen::Style::CustomDash;
    dashed.dashes = {6, 2, 1, 2};
    const zeio::TrPolyline first = Line({{10, 10}, {50, 90}, {90, 10}});
    const zeio::TrPolyline second = Line({{10, 50}, {90, 50}});

    ExpectGolden("lines", {&red, &first, &dashed, &second});
}

TEST_F(SvgGolden, OfAPolygonWithAHole) {
    const zeio::TrPen pen = Pen(kBlack, 1.0);
    const zeio::TrBrush brush = Brush(Pattern::Solid, shr::Color4b(158, 202, 233));
    const zeio::TrPolygon polygon = Polygon({Square(10, 90), Square(30, 70)});

    ExpectGolden("polygon-with-hole", {&pen, &brush, &polygon});
}

TEST_F(SvgGolden, OfHatchedAreas) {
    const zeio::TrPen pen = Pen(kBlack, 1.0);
    const zeio::TrBrush transparent = Brush(Pattern::DiagonalCross, kRed);
    zeio::TrBrush opaque = Brush(Pattern::Horizontal, kBlue);
    opaque.back = shr::Color4b(255, 255, 200);
    const zeio::TrBrush dots = Brush(Pattern::Pattern3, kBlack);
    const zeio::TrRectangle left = Rectangle(5, 5, 45, 95);
    const zeio::TrRectangle right = Rectangle(55, 5, 95, 45);
    const zeio::TrRectangle top = Rectangle(55, 55, 95, 95);

    ExpectGolden("hatched-areas", {&pen, &transparent, &left, &opaque, &right, &dots, &top});
}

TEST_F(SvgGolden, OfRoundedRectangleAndEllipse) {
    const zeio::TrPen pen = Pen(kBlack, 0.0);
    const zeio::TrBrush none(Pattern::None);
    zeio::TrRectangle rounded = Rectangle(10, 10, 90, 40);
    rounded.radiusX = 10;
    rounded.radiusY = 5;
    zeio::TrEllipse ellipse;
    ellipse.x1 = 10;
    ellipse.y1 = 60;
    ellipse.x2 = 90;
    ellipse.y2 = 90;

    ExpectGolden("rounded-rectangle-and-ellipse", {&pen, &none, &rounded, &ellipse});
}

TEST_F(SvgGolden, OfEverySymbolOfTheDefaultSet) {
    std::vector<zeio::TrMarkerSet> markers;
    for (int index = 0; index < app::kMarkerShapeCount; ++index) {
        const int row = index / 5;
        markers.push_back(Marker(10.0 + 20.0 * (index % 5), 30.0 + 40.0 * row, 12.0));
        markers.back().symbolIndex = index;
    }
    std::vector<const zeio::TrBase*> objects;
    objects.reserve(markers.size());
    for (const zeio::TrMarkerSet& marker : markers) {
        objects.push_back(&marker);
    }

    ExpectGolden("symbols", objects);
}

TEST_F(SvgGolden, OfObjectsWithoutStyles) {
    const zeio::TrPolygon polygon = Polygon({Square(10, 60)});
    const zeio::TrPolyline line = Line({{0, 80}, {40, 70}, {100, 90}});
    const zeio::TrMarkerSet marker = Marker(80, 30);

    ExpectGolden("no-styles", {&polygon, &line, &marker});
}

TEST_F(SvgGolden, OfGeometryCutAtThePage) {
    const zeio::TrPen pen = Pen(kBlack, 1.0);
    const zeio::TrBrush brush = Brush(Pattern::Solid, kGreen);
    const zeio::TrPolygon polygon = Polygon({Square(50, 1e9)});
    const zeio::TrPolyline line = Line({{-1e9, 20}, {1e9, 20}});

    ExpectGolden("cut-at-the-page", {&pen, &brush, &polygon, &line});
}

TEST(Svg, IsTheSameEachTime) {
    const zeio::TrBrush hatch = Brush(Pattern::Cross, kRed);
    const zeio::TrFont font = Font(20.0);
    const zeio::TrPolygon polygon = Polygon({Square(10, 60)});
    const zeio::TrText text = Text(L"same", {10, 70, 90, 90});

    EXPECT_EQ(SvgOf({&hatch, &polygon, &font, &text}), SvgOf({&hatch, &polygon, &font, &text}));
}

TEST(Svg, OfATextHoldsNoControlCharacters) {
    const zeio::TrFont font = Font(20.0);
    const zeio::TrText text = Text(std::wstring(L"a\0b\x01\x1F\xFFFE<&>", 9), {10, 70, 90, 90});

    const std::string svg = SvgOf({&font, &text});

    EXPECT_EQ(svg.find_first_of(std::string("\0\x01\x1F", 3)), std::string::npos);
    EXPECT_NE(svg.find("</svg>"), std::string::npos);
}

}  // namespace
