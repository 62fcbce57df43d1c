// Point symbols: shapes, sizes and characters of symbol fonts.
#include "app/draw/MarkerPainter.h"

#include "tests/draw/Picture.h"

#include <gtest/gtest.h>

#include <limits>
#include <set>

namespace {

using draw_test::kRed;
using draw_test::kWhite;
using draw_test::Marker;
using draw_test::Pen;
using draw_test::RasterPicture;

TEST(MarkerShapeOf, GivesACircleForTheFirstSymbol) {
    EXPECT_EQ(app::MarkerShapeOf(0).name, "circle");
    EXPECT_TRUE(app::MarkerShapeOf(0).outline.empty());
}

TEST(MarkerShapeOf, HasADifferentShapeForEachIndex) {
    std::set<std::string_view> names;

    for (int index = 0; index < app::kMarkerShapeCount; ++index) {
        names.insert(app::MarkerShapeOf(index).name);
    }

    EXPECT_EQ(names.size(), static_cast<std::size_t>(app::kMarkerShapeCount));
}

TEST(MarkerShapeOf, StartsOverBeyondTheLastAndBelowTheFirst) {
    EXPECT_EQ(app::MarkerShapeOf(10).name, "circle");
    EXPECT_EQ(app::MarkerShapeOf(-10).name, "circle");
    EXPECT_EQ(app::MarkerShapeOf(-1).name, app::MarkerShapeOf(9).name);
    EXPECT_FALSE(app::MarkerShapeOf(std::numeric_limits<int>::min()).name.empty());
}

TEST(MarkerDiameter, IsTheUsualOneForSizeZeroAndNoNumber) {
    EXPECT_DOUBLE_EQ(app::MarkerDiameter(0.0), 7.0);
    EXPECT_DOUBLE_EQ(app::MarkerDiameter(std::numeric_limits<double>::quiet_NaN()), 7.0);
}

TEST(MarkerDiameter, StaysVisibleAndBearable) {
    EXPECT_DOUBLE_EQ(app::MarkerDiameter(0.01), 3.0);
    EXPECT_DOUBLE_EQ(app::MarkerDiameter(12.0), 12.0);
    EXPECT_DOUBLE_EQ(app::MarkerDiameter(1e9), 200.0);
}

TEST(Marker, HasItsSizeInWorldUnits) {
    RasterPicture picture;
    picture.Add(Pen(kRed));

    picture.Add(Marker(50.5, 50.5, 21.0));

    EXPECT_GE(picture.InkedPixelsInRow(50), 20);
    EXPECT_LE(picture.InkedPixelsInRow(50), 24);
}

TEST(Marker, OfEachPositionIsDrawn) {
    RasterPicture picture;
    picture.Add(Pen(kRed));
    zeio::TrMarkerSet markers = Marker(20, 20, 10.0);
    markers.positions.push_back({80, 80, 0});

    picture.Add(markers);

    EXPECT_EQ(picture.At(20, 20), kRed);
    EXPECT_EQ(picture.At(80, 80), kRed);
    EXPECT_EQ(picture.At(50, 50), kWhite);
}

TEST(Marker, OfASymbolFontThatIsMissingIsAShapeOfTheDefaultSet) {
    RasterPicture picture;
    picture.Add(Pen(kRed));
    zeio::TrMarkerSet marker = Marker(50, 50, 20.0);
    marker.symbolStyle = zeio::SymbolStyle::TrueTypeFont;
    marker.fontName = L"No Such Symbol Font 17";
    marker.symbolIndex = 1;

    picture.Add(marker);

    EXPECT_EQ(picture.At(50, 50), kRed);
    EXPECT_EQ(picture.At(43, 43), kRed);  // a square reaches into its corners
}

TEST(Marker, OfASymbolFontIsTheCharacterInTheMiddle) {
    RasterPicture picture;
    picture.Add(Pen(kRed));
    zeio::TrMarkerSet marker = Marker(50, 50, 40.0);
    marker.symbolStyle = zeio::SymbolStyle::TrueTypeFont;
    marker.fontName = L"DejaVu Sans";
    marker.symbolIndex = 0x2588 - 32;  // a full block
    app::FontCatalogue fonts;
    if (!fonts.Has("DejaVu Sans")) {
        GTEST_SKIP() << "needs the font DejaVu Sans";
    }

    picture.Add(marker);

    EXPECT_EQ(picture.At(50, 50), kRed);
    EXPECT_EQ(picture.At(50, 35), kRed);
    EXPECT_EQ(picture.At(5, 50), kWhite);
}

TEST(Marker, OfASymbolNumberThatIsNoCharacterIsAShape) {
    RasterPicture picture;
    picture.Add(Pen(kRed));
    zeio::TrMarkerSet marker = Marker(50, 50, 20.0);
    marker.symbolStyle = zeio::SymbolStyle::TrueTypeFont;
    marker.fontName = L"DejaVu Sans";
    marker.symbolIndex = -31;

    picture.Add(marker);

    EXPECT_TRUE(picture.IsSound());
    EXPECT_GT(picture.InkedPixels(), 100);
}

TEST(FontCatalogue, HasNoFontOfAnUnknownOrEmptyName) {
    app::FontCatalogue fonts;

    EXPECT_FALSE(fonts.Has("No Such Symbol Font 17"));
    EXPECT_FALSE(fonts.Has(""));
}

}  // namespace
