// Point symbols: shapes, sizes and characters of symbol fonts.
#include "app/draw/MarkerPainter.h"

#include "app/map/FontCatalogue.h"
#include "tests/draw/Picture.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using namespace draw_test;

constexpr int kSquare = 32;
constexpr int kCircle = 34;

app::Style FontSymbol(const std::string& font, int character, int styleBits = 0) {
    app::Style style = Symbol(character, kRed, 30);
    style.symbol->form = app::Symbol::Form::FontCharacter;
    style.symbol->name = font;
    style.symbol->styleBits = styleBits;
    return style;
}

bool HasDejaVu() {
    return !app::FontCatalogue().CharacterOf("DejaVu Sans", 'H').empty();
}

TEST(Symbol, HasItsSizeInPoints) {
    RasterPicture picture;

    picture.Add(Points({{50, 50}}, Symbol(kCircle, kRed, 15)));  // 20 pixels

    EXPECT_EQ(picture.InkedPixelsInRow(50), 20);
    EXPECT_EQ(picture.InkedPixelsInColumn(50), 20);
}

TEST(Symbol, StaysVisibleAndBearable) {
    RasterPicture picture;

    picture.Add(Points({{20, 50}}, Symbol(kSquare, kRed, 0)));
    EXPECT_GT(picture.InkedPixels(), 0);

    picture.Add(Points({{50, 50}}, Symbol(kSquare, kRed, std::numeric_limits<int>::max())));
    EXPECT_EQ(picture.InkedPixels(), 100 * 100);
    EXPECT_TRUE(picture.IsSound());
}

TEST(Symbol, OfNumber31IsNotSeen) {
    RasterPicture picture;

    picture.Add(Points({{50, 50}}, Symbol(app::kBlankSymbol, kRed, 20)));

    EXPECT_EQ(picture.InkedPixels(), 0);
}

TEST(Symbol, ThatIsHollowShowsWhatLiesBelow) {
    RasterPicture picture;

    picture.Add(Points({{50, 50}}, Symbol(40, kRed, 30)));

    EXPECT_EQ(picture.At(50, 50), kWhite);
    EXPECT_EQ(picture.At(31, 50), kRed);
}

TEST(Symbol, OfEachPointIsDrawn) {
    RasterPicture picture;

    picture.Add(Points({{20, 20}, {80, 80}}, Symbol(kSquare, kRed, 8)));

    EXPECT_EQ(picture.At(20, 20), kRed);
    EXPECT_EQ(picture.At(80, 80), kRed);
    EXPECT_EQ(picture.At(50, 50), kWhite);
}

TEST(Symbol, OfAMissingFontIsACircle) {
    RasterPicture font;
    RasterPicture circle;

    font.Add(Points({{50, 50}}, FontSymbol("No Such Symbol Font 17", 'A')));
    circle.Add(Points({{50, 50}}, Symbol(kCircle, kRed, 30)));

    EXPECT_EQ(font.At(50, 50), kRed);
    EXPECT_EQ(font.InkedPixels(), circle.InkedPixels());
}

TEST(Symbol, OfABitmapIsACircle) {
    RasterPicture bitmap;
    RasterPicture circle;
    app::Style style = Symbol(0, kRed, 30);
    style.symbol->form = app::Symbol::Form::Bitmap;
    style.symbol->name = "/etc/passwd";

    bitmap.Add(Points({{50, 50}}, style));
    circle.Add(Points({{50, 50}}, Symbol(kCircle, kRed, 30)));

    EXPECT_EQ(bitmap.InkedPixels(), circle.InkedPixels());
}

TEST(Symbol, OfAFontIsTheCharacterInTheMiddle) {
    if (!HasDejaVu()) {
        GTEST_SKIP() << "needs the font DejaVu Sans";
    }
    RasterPicture picture;

    picture.Add(Points({{50, 50}}, FontSymbol("DejaVu Sans", 0x2588)));  // a full block

    EXPECT_EQ(picture.At(50, 50), kRed);
    EXPECT_EQ(picture.At(50, 35), kRed);
    EXPECT_EQ(picture.At(5, 50), kWhite);
}

TEST(Symbol, OfAFontIsTurnedCounterClockwise) {
    if (!HasDejaVu()) {
        GTEST_SKIP() << "needs the font DejaVu Sans";
    }
    RasterPicture picture;
    app::Style style = FontSymbol("DejaVu Sans", '|');
    style.symbol->rotationDegrees = 90.0;

    picture.Add(Points({{50, 50}}, style));

    EXPECT_GT(picture.InkedPixelsInRow(50), 20);
    EXPECT_LT(picture.InkedPixelsInColumn(50), 10);
}

TEST(Symbol, WithABlackBorderHasBlackAroundIt) {
    if (!HasDejaVu()) {
        GTEST_SKIP() << "needs the font DejaVu Sans";
    }
    RasterPicture plain;
    RasterPicture bordered;

    plain.Add(Points({{50, 50}}, FontSymbol("DejaVu Sans", 0x2588)));
    bordered.Add(Points({{50, 50}}, FontSymbol("DejaVu Sans", 0x2588, 16)));

    EXPECT_EQ(bordered.At(50, 50), kRed);
    EXPECT_GT(bordered.InkedPixels(), plain.InkedPixels());
}

TEST(Symbol, WithAWhiteHaloStandsOutOfAnArea) {
    if (!HasDejaVu()) {
        GTEST_SKIP() << "needs the font DejaVu Sans";
    }
    RasterPicture picture;
    picture.Add(Rectangle({0, 0, 100, 100}, Area(kBlue)));

    picture.Add(Points({{50, 50}}, FontSymbol("DejaVu Sans", 0x2588, 256)));

    EXPECT_LT(picture.InkedPixels(), 100 * 100);
    EXPECT_EQ(picture.At(50, 50), kRed);
}

TEST(Symbol, OfANumberThatIsNoCharacterIsACircle) {
    RasterPicture picture;

    picture.Add(Points({{50, 50}}, FontSymbol("DejaVu Sans", -31)));

    EXPECT_TRUE(picture.IsSound());
    EXPECT_GT(picture.InkedPixels(), 100);
}

TEST(FontCatalogue, HasNoCharacterOfAnUnknownOrEmptyFont) {
    app::FontCatalogue fonts;

    EXPECT_EQ(fonts.CharacterOf("No Such Symbol Font 17", 'A'), "");
    EXPECT_EQ(fonts.CharacterOf("", 'A'), "");
}

}  // namespace
