// What replaces the parts of a style that an object does not have.
#include "tests/draw/Picture.h"

#include <gtest/gtest.h>

namespace {

using namespace draw_test;

TEST(Styles, AreTheObjectsOwn) {
    RasterPicture picture;

    picture.Add(Line({{0, 20}, {100, 20}}, Pen(kRed, 4)));
    picture.Add(Line({{0, 80}, {100, 80}}, Pen(kBlue, 4)));

    EXPECT_EQ(picture.At(50, 20), kRed);
    EXPECT_EQ(picture.At(50, 80), kBlue);
}

TEST(Styles, ThatAreMissingAreTheLayersColours) {
    RasterPicture picture;
    picture.Painter().BeginLayer(2);
    const app::LayerColors& colors = app::ColorsOfLayer(2);

    picture.Add(Polygon({Square(20, 80)}));

    // The area is translucent: over white each channel lies between the colour and white.
    EXPECT_LT(picture.At(50, 50).red, 255);
    EXPECT_GE(picture.At(50, 50).red, colors.area.red);
    EXPECT_LT(picture.At(50, 20).red, picture.At(50, 50).red);
}

TEST(Styles, OfObjectsAreIgnoredWhenTheLayersColoursAreWanted) {
    RasterPicture picture(app::StyleSource::Layers);

    picture.Add(Line({{0, 50}, {100, 50}}, Pen(kRed, 7)));

    EXPECT_NE(picture.At(50, 50), kRed);
    EXPECT_GT(picture.InkedPixels(), 0);
}

TEST(Styles, OfAPointWithoutASymbolAreThePensColour) {
    RasterPicture picture;

    picture.Add(Points({{50, 50}}, Pen(kRed)));

    EXPECT_EQ(picture.At(50, 50), kRed);
}

TEST(Styles, OfAPointUnderAPenOfNothingAreTheLayers) {
    RasterPicture picture;

    picture.Add(Points({{50, 50}}, NoPen()));

    EXPECT_EQ(picture.At(50, 50), app::ColorsOfLayer(0).symbol);
}

TEST(Styles, OfATextAreItsFonts) {
    RasterPicture picture;
    app::Geometry text = Text("\u2588\u2588", {0, 10, 100, 90});
    text.style = Brush(2, kRed) + Font(kBlue);

    picture.Add(text);

    EXPECT_EQ(picture.At(50, 50), kBlue);
}

TEST(Styles, OfATextWithoutAFontAreTheLayersTextColour) {
    RasterPicture picture;
    app::Geometry text = Text("\u2588\u2588", {0, 10, 100, 90});
    text.style = Brush(2, kRed);

    picture.Add(text);

    EXPECT_EQ(picture.At(50, 50), app::ColorsOfLayer(0).text);
}

TEST(Geometry, WithoutAPlaceIsNotDrawn) {
    RasterPicture picture;

    picture.Add(app::Geometry());

    EXPECT_EQ(picture.InkedPixels(), 0);
}

}  // namespace
