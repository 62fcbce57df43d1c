// Layer colours and colours as users write them.
#include "app/feature/DrawingColors.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using shr::Color4b;

struct ColorRow {
    std::string name;
    std::string text;
    std::optional<Color4b> expected;
};
class ParseColor : public testing::TestWithParam<ColorRow> {};

TEST_P(ParseColor, GivesThis) {
    EXPECT_EQ(app::ParseColor(GetParam().text), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    , ParseColor,
    testing::Values(ColorRow{"SixDigits", "#12aBfF", Color4b(0x12, 0xAB, 0xFF)},
                    ColorRow{"ThreeDigits", "#f08", Color4b(0xFF, 0x00, 0x88)},
                    ColorRow{"EightDigits", "#11223344", Color4b(0x11, 0x22, 0x33, 0x44)},
                    ColorRow{"AName", "navy", Color4b(0, 0, 128)},
                    ColorRow{"ANameInCapitals", "WHITE", Color4b(255, 255, 255)},
                    ColorRow{"None", "none", Color4b(255, 255, 255, 0)},
                    ColorRow{"NothingForFourDigits", "#1234", std::nullopt},
                    ColorRow{"NothingForNoDigits", "#", std::nullopt},
                    ColorRow{"NothingForLetters", "#gggggg", std::nullopt},
                    ColorRow{"NothingForASign", "#-12345", std::nullopt},
                    ColorRow{"NothingForAnUnknownName", "bluish", std::nullopt},
                    ColorRow{"NothingForEmptyText", "", std::nullopt}),
    [](const auto& row) { return row.param.name; });

TEST(ColorsOfLayer, DifferFromLayerToLayer) {
    EXPECT_NE(app::ColorsOfLayer(0).area, app::ColorsOfLayer(1).area);
    EXPECT_NE(app::ColorsOfLayer(0).line, app::ColorsOfLayer(1).line);
}

TEST(ColorsOfLayer, StartOverAfterTheLast) {
    EXPECT_EQ(app::ColorsOfLayer(8).line, app::ColorsOfLayer(0).line);
    EXPECT_EQ(app::ColorsOfLayer(8000001).line, app::ColorsOfLayer(1).line);
}

}  // namespace
