// The looks of a page's objects.
#include "app/page/PageStyles.h"

#include "tests/support/Features.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <string>
#include <utility>

namespace {

app::Style StyleOf(std::optional<app::Pen> pen, std::optional<app::Brush> brush = {},
                   std::optional<app::Symbol> symbol = {}) {
    app::Style style;
    style.pen = pen;
    style.brush = brush;
    style.symbol = std::move(symbol);
    return style;
}

app::Style SymbolOf(int shape, std::uint32_t color) {
    app::Symbol symbol;
    symbol.shape = shape;
    symbol.color = color;
    return StyleOf({}, {}, symbol);
}

class Styles : public testing::Test {
protected:
    std::uint32_t NumberOf(app::Feature feature, const app::Style& style) {
        feature.geometry.style = style;
        return styles_.NumberOf(feature.geometry);
    }

    app::PageStyles styles_{app::StyleSource::Objects};
};

TEST_F(Styles, OfNoObjectAreAnEmptyList) {
    EXPECT_EQ(styles_.Json(), "[]");
}

TEST_F(Styles, OfALineAreItsPen) {
    NumberOf(support::LineThrough({{0, 0}, {1, 1}}), StyleOf(app::Pen{2, 5, 0xFF0000}));

    EXPECT_EQ(styles_.Json(), R"([{"stroke":{"color":"#ff0000ff","width":2,"dashes":[6,2]}}])");
}

TEST_F(Styles, OfAnAreaAreItsBrushAndItsPen) {
    NumberOf(support::RegionOf({support::Square(0, 0, 1)}),
             StyleOf(app::Pen{1, 2, 0}, app::Brush{3, 0x00FF00, 0x0000FF}));

    EXPECT_EQ(styles_.Json(), R"([{"fill":{"color":"#00ff00ff","back":"#0000ffff",)"
                              R"("lines":[[0,8,1]]},"stroke":{"color":"#000000ff","width":1}}])");
}

TEST_F(Styles, OfATintAreHalfOfItsColour) {
    NumberOf(support::RegionOf({support::Square(0, 0, 1)}),
             StyleOf(app::Pen{1, 1, 0}, app::Brush{20, 0x00FF00, {}}));

    EXPECT_EQ(styles_.Json(), R"([{"fill":{"color":"#00ff007f"}}])");
}

TEST_F(Styles, OfAPointAreItsSymbol) {
    NumberOf(support::PointAt(0, 0), SymbolOf(33, 0x123456));

    EXPECT_EQ(styles_.Json(), R"([{"marker":{"size":16,"color":"#123456ff",)"
                              R"("rings":[[0,-1,1,0,0,1,-1,0]]}}])");
}

TEST_F(Styles, OfAHollowCircleHaveALineAndNoRings) {
    NumberOf(support::PointAt(0, 0), SymbolOf(40, 0));

    EXPECT_EQ(styles_.Json(), R"([{"marker":{"size":16,"color":"#000000ff","line":1.6}}])");
}

TEST_F(Styles, OfACharacterOfAnInstalledFontAreItsOutline) {
    app::Symbol symbol;
    symbol.form = app::Symbol::Form::FontCharacter;
    symbol.shape = 'A';
    symbol.name = "DejaVu Sans";
    symbol.rotationDegrees = 30;
    NumberOf(support::PointAt(0, 0), StyleOf({}, {}, symbol));

    EXPECT_NE(styles_.Json().find(R"("degrees":30,"shadow":false,"rings":[[)"), std::string::npos)
        << styles_.Json();
}

TEST_F(Styles, OfTheSameLookHaveOneNumber) {
    const app::Style red = StyleOf(app::Pen{1, 2, 0xFF0000});
    const app::Style blue = StyleOf(app::Pen{1, 2, 0x0000FF});

    EXPECT_EQ(NumberOf(support::LineThrough({{0, 0}, {1, 1}}), red), 0U);
    EXPECT_EQ(NumberOf(support::LineThrough({{0, 0}, {1, 1}}), blue), 1U);
    EXPECT_EQ(NumberOf(support::LineThrough({{2, 2}, {1, 1}}), red), 0U);
}

TEST_F(Styles, OfTheSameStyleDependOnTheKind) {
    const app::Style red = StyleOf(app::Pen{1, 2, 0xFF0000});

    EXPECT_EQ(NumberOf(support::LineThrough({{0, 0}, {1, 1}}), red), 0U);
    EXPECT_EQ(NumberOf(support::RegionOf({support::Square(0, 0, 1)}), red), 1U);
}

TEST_F(Styles, WithoutAStyleAreTheLayersColours) {
    styles_.BeginLayer(0);
    const auto first = NumberOf(support::LineThrough({{0, 0}, {1, 1}}), {});
    styles_.BeginLayer(1);

    EXPECT_NE(NumberOf(support::LineThrough({{0, 0}, {1, 1}}), {}), first);
}

}  // namespace
