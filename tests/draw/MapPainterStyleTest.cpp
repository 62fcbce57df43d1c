// How long pens, brushes and fonts hold, and what stands in for missing ones.
#include "tests/draw/Picture.h"

#include <gtest/gtest.h>

namespace {

using draw_test::Brush;
using draw_test::Font;
using draw_test::kBlue;
using draw_test::kGreen;
using draw_test::kRed;
using draw_test::kWhite;
using draw_test::Line;
using draw_test::Marker;
using draw_test::NoPen;
using draw_test::Pen;
using draw_test::Polygon;
using draw_test::RasterPicture;
using draw_test::Square;
using draw_test::Text;
using Pattern = zeio::TrBrush::Pattern;

zeio::TrPolyline LineAt(double y) {
    return Line({{0, y}, {100, y}});
}

TEST(Styles, HoldForAllTheGeometryThatFollows) {
    RasterPicture picture;
    picture.Add(Pen(kRed, 4.0));

    picture.Add(LineAt(20));
    picture.Add(LineAt(80));

    EXPECT_EQ(picture.At(50, 20), kRed);
    EXPECT_EQ(picture.At(50, 80), kRed);
}

TEST(Styles, AreForgottenWhenALayerBegins) {
    RasterPicture picture;
    picture.Add(Pen(kRed, 4.0));
    picture.Add(Brush(Pattern::Solid, kRed));

    picture.Painter().BeginLayer(1);
    picture.Add(Polygon({Square(20, 80)}));

    EXPECT_NE(picture.At(50, 50), kRed);
    EXPECT_NE(picture.At(50, 50), kWhite);
}

TEST(Styles, OfALayerWithoutAnyAreTheLayersColours) {
    RasterPicture picture;
    picture.Painter().BeginLayer(2);
    const app::LayerColors& colors = app::ColorsOfLayer(2);

    picture.Add(Polygon({Square(20, 80)}));

    // The area is translucent: over white each channel lies between the colour and white.
    EXPECT_LT(picture.At(50, 50).red, 255);
    EXPECT_GE(picture.At(50, 50).red, colors.area.red);
    EXPECT_LT(picture.At(50, 20).red, picture.At(50, 50).red);
}

TEST(Styles, AmongTheObjectsAreIgnoredWhenTheLayersColoursAreWanted) {
    RasterPicture picture(app::StyleSource::Layers);
    picture.Add(Pen(kRed, 8.0));

    picture.Add(LineAt(50));

    EXPECT_NE(picture.At(50, 50), kRed);
    EXPECT_GT(picture.InkedPixels(), 0);
}

// A text comes with a pen that draws no line and a brush of the text's colour; both are the text's
// alone, or the lines after a text would vanish.
TEST(Styles, OfATextEndWithTheText) {
    RasterPicture picture;
    picture.Add(Pen(kRed, 4.0));
    picture.Add(Brush(Pattern::Solid, kGreen));
    picture.Add(Font(10.0));
    picture.Add(NoPen());
    picture.Add(Brush(Pattern::Solid, kBlue));
    picture.Add(Text(L"x", {0, 0, 10, 10}));

    picture.Add(Polygon({Square(30, 80)}));

    EXPECT_EQ(picture.At(50, 30), kRed);
    EXPECT_EQ(picture.At(50, 50), kGreen);
}

TEST(Styles, AfterATextHold) {
    RasterPicture picture;
    picture.Add(Font(10.0));
    picture.Add(NoPen());
    picture.Add(Brush(Pattern::Solid, kBlue));
    picture.Add(Text(L"x", {0, 0, 10, 10}));
    picture.Add(Brush(Pattern::Solid, kGreen));
    picture.Add(Pen(kRed, 4.0));

    picture.Add(Polygon({Square(30, 80)}));

    EXPECT_EQ(picture.At(50, 30), kRed);
    EXPECT_EQ(picture.At(50, 50), kGreen);
}

TEST(Styles, BetweenAFontAndGeometryHoldForTheGeometry) {
    RasterPicture picture;
    picture.Add(Font(10.0));
    picture.Add(Pen(kRed, 4.0));

    picture.Add(LineAt(20));
    picture.Add(LineAt(80));

    EXPECT_EQ(picture.At(50, 20), kRed);
    EXPECT_EQ(picture.At(50, 80), kRed);
}

TEST(Styles, OfASymbolAreThePensColour) {
    RasterPicture picture;
    picture.Add(Pen(kRed));

    picture.Add(Marker(50, 50, 20.0));

    EXPECT_EQ(picture.At(50, 50), kRed);
}

TEST(Styles, OfASymbolAreTheLayersUnderANoLinePen) {
    RasterPicture picture;
    picture.Add(NoPen());

    picture.Add(Marker(50, 50, 20.0));

    EXPECT_EQ(picture.At(50, 50), app::ColorsOfLayer(0).symbol);
}

TEST(Styles, OfATextAreTheBrushAfterTheFont) {
    RasterPicture picture;
    picture.Add(Brush(Pattern::Solid, kRed));
    picture.Add(Font(80.0));
    picture.Add(NoPen());
    picture.Add(Brush(Pattern::Solid, kBlue));

    picture.Add(Text(L"\u2588\u2588", {0, 10, 100, 90}));

    EXPECT_EQ(picture.At(50, 50), kBlue);
}

TEST(Styles, OfATextWithoutABrushAreTheLayersTextColour) {
    RasterPicture picture;
    picture.Add(Brush(Pattern::Solid, kRed));
    picture.Add(Font(80.0));

    picture.Add(Text(L"\u2588\u2588", {0, 10, 100, 90}));

    EXPECT_EQ(picture.At(50, 50), app::ColorsOfLayer(0).text);
}

TEST(Objects, OfOtherKindsAreNotDrawn) {
    RasterPicture picture;
    const zeio::TrNamedIds names;
    const zeio::TrCRS system;
    const zeio::TrInitGraphicsImp start({0, 0, 0}, {100, 100, 0},
                                        zeio::TrGraphics::FT_COORDSYS::World);

    picture.Add(names);
    picture.Add(system);
    picture.Add(start);

    EXPECT_EQ(picture.InkedPixels(), 0);
}

}  // namespace
