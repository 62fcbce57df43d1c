// Texts: where their ink lies. The letters depend on the system's fonts, their place does not.
#include "app/map/TextFrame.h"
#include "tests/draw/Picture.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using namespace draw_test;

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

Ink InkOfText(const app::Geometry& text) {
    RasterPicture picture;
    picture.Add(text);
    EXPECT_TRUE(picture.IsSound());
    return InkOf(picture);
}

TEST(Text, LiesInItsBox) {
    const Ink ink = InkOfText(Text("Hamburg", {10, 40, 90, 60}));

    EXPECT_GE(ink.minX, 9);
    EXPECT_LE(ink.maxX, 90);
    EXPECT_GE(ink.minY, 39);
    EXPECT_LE(ink.maxY, 60);
    EXPECT_GE(ink.maxY - ink.minY, 10);
}

TEST(Text, IsMadeSmallerWhenItsBoxIsTooNarrow) {
    const Ink ink = InkOfText(Text("Hamburg", {40, 40, 60, 80}));

    EXPECT_GE(ink.minX, 39);
    EXPECT_LE(ink.maxX, 60);
    EXPECT_LE(ink.maxY - ink.minY, 10);
}

TEST(Text, IsTurnedAboutTheCornerOfItsBox) {
    const Ink ink = InkOfText(Text("Hamburg", {60, 10, 130, 30}, 90.0));

    EXPECT_GE(ink.minX, 39);
    EXPECT_LE(ink.maxX, 60);
    EXPECT_GE(ink.minY, 9);
    EXPECT_LE(ink.maxY, 80);
    EXPECT_GT(ink.maxY - ink.minY, ink.maxX - ink.minX);
}

TEST(Text, StartsAtTheLeftWhenItIsJustifiedLeft) {
    const Ink ink = InkOfText(Text("I", {10, 40, 90, 60}));

    EXPECT_LE(ink.maxX, 20);
}

TEST(Text, LiesInTheMiddleWhenItIsCentred) {
    app::Geometry text = Text("I", {10, 40, 90, 60});
    text.placement.justify = app::Justify::Center;

    const Ink ink = InkOfText(text);

    EXPECT_NEAR((ink.minX + ink.maxX) / 2.0, 50.0, 2.0);
}

TEST(Text, EndsAtTheRightWhenItIsJustifiedRight) {
    app::Geometry text = Text("I", {10, 40, 90, 60});
    text.placement.justify = app::Justify::Right;

    const Ink ink = InkOfText(text);

    EXPECT_GE(ink.minX, 80);
    EXPECT_LE(ink.maxX, 90);
}

TEST(Text, OfTwoLinesSharesTheHeightOfItsBox) {
    const Ink one = InkOfText(Text("HH", {10, 20, 90, 80}));
    const Ink two = InkOfText(Text("HH\nHH", {10, 20, 90, 80}));

    EXPECT_LT(two.maxX, one.maxX);
    EXPECT_GT(two.maxY - two.minY, one.maxY - one.minY);
    EXPECT_GE(two.minY, 20);
    EXPECT_LE(two.maxY, 80);
}

TEST(Text, WithoutABoxStandsOnItsPosition) {
    const Ink ink = InkOfText(TextAt("HHH", {20, 30}, 20.0));

    EXPECT_GE(ink.minX, 19);
    EXPECT_GE(ink.minY, 30);
    EXPECT_LE(ink.maxY, 50);
}

TEST(Text, WithoutABoxEndsAtItsPositionWhenItIsJustifiedRight) {
    app::Geometry text = TextAt("HH", {80, 30}, 20.0);
    text.placement.justify = app::Justify::Right;

    const Ink ink = InkOfText(text);

    EXPECT_LE(ink.maxX, 80);
    EXPECT_LT(ink.minX, 60);
    EXPECT_GE(ink.maxX, 70);
}

TEST(Text, OfWideSpacingHasLinesFurtherApart) {
    app::Geometry text = TextAt("H\nH", {20, 30}, 40.0);
    const Ink single = InkOfText(text);
    text.placement.lineSpacing = 2.0;

    const Ink wide = InkOfText(text);

    EXPECT_LT(wide.maxX, single.maxX);  // the same height for lines further apart
}

TEST(Text, ThatIsUnderlinedHasInkUnderItsBlanks) {
    app::Geometry text = TextAt("    ", {10, 30}, 20.0);
    const Ink plain = InkOfText(text);
    text.style = Font(kBlack, 4);

    const Ink underlined = InkOfText(text);

    EXPECT_EQ(plain.maxX, -1);
    EXPECT_GT(underlined.maxX, 20);
}

TEST(Text, WithABackColourHasABoxBehindIt) {
    RasterPicture picture;
    app::Geometry text = Text("    ", {10, 30, 90, 60});
    text.style = Font(kBlack);
    text.style.font->back = 0x0000FF;

    picture.Add(text);

    EXPECT_EQ(picture.At(15, 45), kBlue);
}

TEST(Text, WithAHaloHasItsBackColourAroundTheLetters) {
    RasterPicture plain;
    RasterPicture halo;
    app::Geometry text = Text("H", {10, 10, 90, 90});
    plain.Add(text);
    text.style = Font(kBlack, 256);
    text.style.font->back = 0x0000FF;

    halo.Add(text);

    EXPECT_GT(halo.InkedPixels(), plain.InkedPixels());
    EXPECT_LT(halo.InkedPixels(), 80 * 80);
}

TEST(Text, WithALabelLineHasItToItsEnd) {
    app::Geometry text = TextAt("H", {10, 10}, 10.0);
    text.placement.labelLine = app::LabelLine{true, {90, 90}};

    const Ink ink = InkOfText(text);

    EXPECT_NEAR(ink.maxX, 90, 2);
    EXPECT_NEAR(ink.maxY, 90, 2);
}

TEST(Text, TooSmallToBeReadIsLeftOut) {
    const Ink ink = InkOfText(Text("Hamburg", {50, 50, 51, 50.5}));

    EXPECT_EQ(ink.maxX, -1);
}

TEST(Text, LargerThanThePageIsDrawnAsFarAsItLiesThere) {
    RasterPicture picture;

    picture.Add(Text("\u2588\u2588\u2588\u2588", {-300, -100, 700, 300}));

    EXPECT_TRUE(picture.IsSound());
    EXPECT_EQ(picture.At(50, 50), kBlack);
}

TEST(Text, OfControlCharactersDoesNotSpoilThePicture) {
    const std::string hostile("a\0\x01<&>\"\xFF\xED\xA0\x80", 11);

    const Ink ink = InkOfText(Text(hostile, {10, 40, 90, 60}));

    EXPECT_GT(ink.maxX, 10);
}

TEST(Text, OfAHostileFaceNameIsDrawn) {
    app::Geometry text = Text("abc", {10, 40, 90, 60});
    text.style.font->name = std::string("\0\x01\xED\xA0\x80<>\"", 8);

    EXPECT_GT(InkOfText(text).maxX, 10);
}

TEST(Text, FarOffThePageIsLeftOut) {
    EXPECT_EQ(InkOfText(Text("abc", {1e11, 1e11, 1e11 + 10, 1e11 + 10})).maxX, -1);
}

TEST(TextFrame, OfATextWhoseHeightIsNoNumberIsOneUnitHigh) {
    app::Geometry text = TextAt("HH", {1, 1}, std::numeric_limits<double>::quiet_NaN());

    app::SetTextFrame(text);

    EXPECT_EQ(text.points, (std::vector<shr::Vec2d>{{1, 1}, {2, 1}, {1, 2}}));
}

TEST(TextExtent, HoldsABoxAsItIsTurned) {
    app::Geometry text = Text("up", {10, 20, 40, 25}, 90.0);
    app::SetTextFrame(text);

    const shr::Box2d extent = app::TextExtent(text);

    EXPECT_NEAR(extent.minX, 5.0, 1e-9);
    EXPECT_NEAR(extent.maxX, 10.0, 1e-9);
    EXPECT_NEAR(extent.minY, 20.0, 1e-9);
    EXPECT_NEAR(extent.maxY, 50.0, 1e-9);
}

TEST(TextExtent, LeavesRoomForTheLettersOfATextWithoutABox) {
    app::Geometry text = TextAt("Hamburg", {3, 4}, 8.0);
    app::SetTextFrame(text);

    const shr::Box2d extent = app::TextExtent(text);

    EXPECT_DOUBLE_EQ(extent.minX, 3.0);
    EXPECT_DOUBLE_EQ(extent.maxY, 12.0);
    EXPECT_GT(extent.maxX, 3.0 + 4 * 8.0);
}

}  // namespace
