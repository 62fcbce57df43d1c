// Texts: where their ink lies. The letters depend on the system's fonts, their place does not.
#include "tests/draw/Picture.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using draw_test::Font;
using draw_test::RasterPicture;
using draw_test::Text;

// The box around all ink, in world coordinates; min above max without ink.
struct Ink {
    int minX = 100;
    int minY = 100;
    int maxX = -1;
    int maxY = -1;
};

Ink InkOf(const RasterPicture& picture) {
    Ink ink;
    for (int i = 0; i < 100; ++i) {
        if (picture.InkedPixelsInColumn(i) > 0) {
            ink.minX = std::min(ink.minX, i);
            ink.maxX = std::max(ink.maxX, i);
        }
        if (picture.InkedPixelsInRow(i) > 0) {
            ink.minY = std::min(ink.minY, i);
            ink.maxY = std::max(ink.maxY, i);
        }
    }
    return ink;
}

Ink InkOfText(const zeio::TrText& text, const zeio::TrFont& font) {
    RasterPicture picture;
    picture.Add(font);
    picture.Add(text);
    EXPECT_TRUE(picture.IsSound());
    return InkOf(picture);
}

TEST(Text, LiesInItsBox) {
    const Ink ink = InkOfText(Text(L"Hamburg", {10, 40, 90, 60}), Font(20.0));

    EXPECT_GE(ink.minX, 9);
    EXPECT_LE(ink.maxX, 90);
    EXPECT_GE(ink.minY, 39);
    EXPECT_LE(ink.maxY, 60);
    EXPECT_GE(ink.maxY - ink.minY, 10);
}

TEST(Text, IsMadeSmallerWhenItsBoxIsTooNarrow) {
    const Ink ink = InkOfText(Text(L"Hamburg", {40, 40, 60, 80}), Font(40.0));

    EXPECT_GE(ink.minX, 39);
    EXPECT_LE(ink.maxX, 60);
    EXPECT_LE(ink.maxY - ink.minY, 10);
}

TEST(Text, IsTurnedAboutTheCornerOfItsBox) {
    const Ink ink = InkOfText(Text(L"Hamburg", {60, 10, 130, 30}, 90.0), Font(20.0));

    EXPECT_GE(ink.minX, 39);
    EXPECT_LE(ink.maxX, 60);
    EXPECT_GE(ink.minY, 9);
    EXPECT_LE(ink.maxY, 80);
    EXPECT_GT(ink.maxY - ink.minY, ink.maxX - ink.minX);
}

TEST(Text, StartsAtTheLeftWhenItIsJustifiedLeft) {
    const Ink ink = InkOfText(Text(L"I", {10, 40, 90, 60}), Font(20.0));

    EXPECT_LE(ink.maxX, 20);
}

TEST(Text, LiesInTheMiddleWhenItIsCentred) {
    zeio::TrText text = Text(L"I", {10, 40, 90, 60});
    text.justify = zeio::TrText::Justify::Centre;

    const Ink ink = InkOfText(text, Font(20.0));

    EXPECT_NEAR((ink.minX + ink.maxX) / 2.0, 50.0, 2.0);
}

TEST(Text, EndsAtTheRightWhenItIsJustifiedRight) {
    zeio::TrText text = Text(L"I", {10, 40, 90, 60});
    text.justify = zeio::TrText::Justify::Right;

    const Ink ink = InkOfText(text, Font(20.0));

    EXPECT_GE(ink.minX, 80);
    EXPECT_LE(ink.maxX, 90);
}

TEST(Text, OfTwoLinesSharesTheHeightOfItsBox) {
    const Ink one = InkOfText(Text(L"HH", {10, 20, 90, 80}), Font(20.0));
    const Ink two = InkOfText(Text(L"HH\nHH", {10, 20, 90, 80}), Font(20.0));

    EXPECT_GT(two.maxY - two.minY, 2 * (one.maxY - one.minY));
    EXPECT_GE(two.minY, 20);
    EXPECT_LE(two.maxY, 80);
}

TEST(Text, WithoutABoxStandsOnItsPosition) {
    const Ink ink = InkOfText(zeio::TrText(L"HHH", {20, 30, 0}), Font(20.0));

    EXPECT_GE(ink.minX, 19);
    EXPECT_GE(ink.minY, 30);
    EXPECT_LE(ink.maxY, 50);
}

TEST(Text, WithoutABoxEndsAtItsPositionWhenItIsJustifiedRight) {
    zeio::TrText text(L"HH", {80, 30, 0});
    text.justify = zeio::TrText::Justify::Right;

    const Ink ink = InkOfText(text, Font(20.0));

    EXPECT_LE(ink.maxX, 80);
    EXPECT_GE(ink.maxX, 70);
}

TEST(Text, OfALineFromLeftToRightIsWiderUnderASmallerDivisor) {
    zeio::TrFont wide = Font(10.0);
    wide.widthDivisor = 0.7;

    const Ink usual = InkOfText(zeio::TrText(L"HHH", {10, 30, 0}), Font(10.0));
    const Ink stretched = InkOfText(zeio::TrText(L"HHH", {10, 30, 0}), wide);

    EXPECT_GT(stretched.maxX, usual.maxX + 5);
    EXPECT_EQ(stretched.maxY, usual.maxY);
}

TEST(Text, ThatIsUnderlinedHasInkUnderItsBlanks) {
    zeio::TrFont font = Font(20.0);
    font.flags = static_cast<std::uint16_t>(font.flags | zeio::TrFont::kUnderline);

    const Ink plain = InkOfText(zeio::TrText(L"    ", {10, 30, 0}), Font(20.0));
    const Ink underlined = InkOfText(zeio::TrText(L"    ", {10, 30, 0}), font);

    EXPECT_EQ(plain.maxX, -1);
    EXPECT_GT(underlined.maxX, 20);
}

TEST(Text, TooSmallToBeReadIsLeftOut) {
    const Ink ink = InkOfText(Text(L"Hamburg", {50, 50, 51, 50.5}), Font(0.5));

    EXPECT_EQ(ink.maxX, -1);
}

TEST(Text, LargerThanThePageIsDrawnAsFarAsItLiesThere) {
    RasterPicture picture;
    picture.Add(Font(400.0));

    picture.Add(Text(L"\u2588\u2588\u2588\u2588", {-300, -100, 700, 300}));

    EXPECT_TRUE(picture.IsSound());
    EXPECT_EQ(picture.At(50, 50), app::ColorsOfLayer(0).text);
}

TEST(Text, OfControlCharactersDoesNotSpoilThePicture) {
    const std::wstring hostile(L"a\0\x01<&>\"\xFFFF\xD800", 9);

    const Ink ink = InkOfText(Text(hostile, {10, 40, 90, 60}), Font(20.0));

    EXPECT_GT(ink.maxX, 10);
}

TEST(Text, OfAHostileFaceNameIsDrawn) {
    zeio::TrFont font(std::wstring(L"\0\x01\xD800<>\"", 6));
    font.height = 20.0;

    EXPECT_GT(InkOfText(Text(L"abc", {10, 40, 90, 60}), font).maxX, 10);
}

TEST(Text, FarOffThePageIsLeftOut) {
    EXPECT_EQ(InkOfText(Text(L"abc", {1e11, 1e11, 1e11 + 10, 1e11 + 10}), Font(10.0)).maxX, -1);
}

TEST(Text, OfAHeightThatIsNoNumberIsAsHighAsOneUnit) {
    RasterPicture picture;
    picture.Painter().SetTransform([](const shr::Vec2d& point) {
        return shr::Vec2d{point.x * 20, point.y * 20};
    });
    picture.Add(Font(std::numeric_limits<double>::quiet_NaN()));

    picture.Add(Text(L"HH", {1, 1, 4, 2}));

    EXPECT_GT(picture.InkedPixels(), 20);
}

}  // namespace
