// The picture files: their formats and their failures.
#include "app/draw/Canvas.h"

#include "tests/draw/Picture.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace {

using app::PictureFormat;

std::string EmptyPicture(PictureFormat format, const shr::Color4b& background) {
    std::string picture;
    app::Canvas canvas(format, {40, 20}, [&picture](std::string_view bytes) { picture += bytes; });
    canvas.Fill(background);
    canvas.Finish();
    return picture;
}

void RefuseBytes(std::string_view) {
    throw std::length_error("the disk is full");
}

struct ExtensionRow {
    std::string name;
    std::string file;
    std::optional<PictureFormat> expected;
};
class PictureFormatOf : public testing::TestWithParam<ExtensionRow> {};

TEST_P(PictureFormatOf, TheFile) {
    EXPECT_EQ(app::PictureFormatOf(GetParam().file), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(, PictureFormatOf,
                         testing::Values(ExtensionRow{"Svg", "a.svg", PictureFormat::Svg},
                                         ExtensionRow{"PngInCapitals", "folder.d/A.PNG",
                                                      PictureFormat::Png},
                                         ExtensionRow{"Pdf", "a.b.pdf", PictureFormat::Pdf},
                                         ExtensionRow{"NothingForAnother", "a.jpeg", std::nullopt},
                                         ExtensionRow{"NothingForNone", "svg", std::nullopt}),
                         [](const auto& row) { return row.param.name; });

TEST(Canvas, WritesAPng) {
    EXPECT_EQ(EmptyPicture(PictureFormat::Png, draw_test::kRed).substr(1, 3), "PNG");
}

TEST(Canvas, WritesAnSvgOfThePagesSize) {
    const std::string svg = EmptyPicture(PictureFormat::Svg, draw_test::kRed);

    EXPECT_NE(svg.find("width=\"40px\" height=\"20px\" viewBox=\"0 0 40 20\""), std::string::npos)
        << svg.substr(0, 300);
    EXPECT_NE(svg.find("</svg>"), std::string::npos);
}

TEST(Canvas, WritesAPdfOfThreeQuartersOfAPointAPixel) {
    const std::string pdf = EmptyPicture(PictureFormat::Pdf, draw_test::kRed);

    EXPECT_EQ(pdf.substr(0, 5), "%PDF-");
    EXPECT_NE(pdf.find("[ 0 0 30 15 ]"), std::string::npos);
}

TEST(Canvas, IsTransparentWithoutABackground) {
    app::Canvas canvas(PictureFormat::Png, {4, 4}, RefuseBytes);

    canvas.Fill(shr::Color4b(255, 255, 255, 0));

    cairo_surface_flush(canvas.Image());
    EXPECT_EQ(cairo_image_surface_get_data(canvas.Image())[3], 0);
}

TEST(Canvas, SaysThatAPageIsTooLarge) {
    EXPECT_THROW(app::Canvas(PictureFormat::Png, {100000, 100000}, RefuseBytes),
                 std::runtime_error);
}

struct FormatRow {
    std::string name;
    PictureFormat format;
};
class CanvasOnAFullDisk : public testing::TestWithParam<FormatRow> {};

TEST_P(CanvasOnAFullDisk, ThrowsTheSinksErrorInFinish) {
    app::Canvas canvas(GetParam().format, {40, 20}, RefuseBytes);
    canvas.Fill(draw_test::kRed);

    EXPECT_THROW(canvas.Finish(), std::length_error);
}

INSTANTIATE_TEST_SUITE_P(, CanvasOnAFullDisk,
                         testing::Values(FormatRow{"Svg", PictureFormat::Svg},
                                         FormatRow{"Png", PictureFormat::Png},
                                         FormatRow{"Pdf", PictureFormat::Pdf}),
                         [](const auto& row) { return row.param.name; });

}  // namespace
