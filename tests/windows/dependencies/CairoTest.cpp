// cairo writes the three kinds of pictures, with a text in a font of Windows.
#include "host/platform/Stdio.h"
#include "tests/support/TemporaryFolder.h"

#include <cairo-pdf.h>
#include <cairo-svg.h>
#include <cairo-win32.h>
#include <cairo.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cwchar>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>

namespace {

constexpr int kWidth = 200;
constexpr int kHeight = 50;
constexpr const char* kText = "Stra\xC3\x9F"
                              "e \xD1\x83\xD0\xBB\xD0\xB8\xD1\x86\xD0\xB0";

using Surface = std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)>;
using Drawing = std::unique_ptr<cairo_t, decltype(&cairo_destroy)>;
using FontFace = std::unique_ptr<cairo_font_face_t, decltype(&cairo_font_face_destroy)>;

FontFace WindowsFont() {
    LOGFONTW font{};
    font.lfCharSet = DEFAULT_CHARSET;
    font.lfWeight = FW_NORMAL;
    std::wcsncpy(font.lfFaceName, L"Arial", LF_FACESIZE - 1);
    return {cairo_win32_font_face_create_for_logfontw(&font), cairo_font_face_destroy};
}

// White, with the text in black. Returns what cairo says of it.
cairo_status_t DrawText(cairo_surface_t* surface) {
    const Drawing drawing(cairo_create(surface), cairo_destroy);
    cairo_set_source_rgb(drawing.get(), 1, 1, 1);
    cairo_paint(drawing.get());
    cairo_set_font_face(drawing.get(), WindowsFont().get());
    cairo_set_font_size(drawing.get(), 24);
    cairo_set_source_rgb(drawing.get(), 0, 0, 0);
    cairo_move_to(drawing.get(), 10, 35);
    cairo_show_text(drawing.get(), kText);
    return cairo_status(drawing.get());
}

class APicture : public testing::Test {
protected:
    // In UTF-8, as cairo takes a path.
    std::string Path() const { return platform::PathToBytes(path_.wstring()); }

    std::string Bytes() const {
        std::ifstream stream(path_, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

    void Draw(cairo_surface_t* (*create)(const char*, double, double)) const {
        const Surface surface(create(Path().c_str(), kWidth, kHeight), cairo_surface_destroy);
        EXPECT_EQ(DrawText(surface.get()), CAIRO_STATUS_SUCCESS);
        cairo_surface_finish(surface.get());
        EXPECT_EQ(cairo_surface_status(surface.get()), CAIRO_STATUS_SUCCESS);
    }

private:
    support::TemporaryFolder folder_;
    std::filesystem::path path_ = folder_.path() / L"\u043A\u0430\u0440\u0442\u0430";
};

TEST_F(APicture, InMemoryHasTheInkOfTheText) {
    const Surface surface(cairo_image_surface_create(CAIRO_FORMAT_RGB24, kWidth, kHeight),
                          cairo_surface_destroy);

    ASSERT_EQ(DrawText(surface.get()), CAIRO_STATUS_SUCCESS);

    cairo_surface_flush(surface.get());
    const unsigned char* pixels = cairo_image_surface_get_data(surface.get());
    const auto size =
        static_cast<std::size_t>(cairo_image_surface_get_stride(surface.get())) * kHeight;
    const auto dark = std::count_if(pixels, pixels + size, [](unsigned char c) { return c < 64; });
    EXPECT_GT(dark, 500);
    EXPECT_LT(dark, 10000);
}

TEST_F(APicture, IsWrittenAsPng) {
    const Surface surface(cairo_image_surface_create(CAIRO_FORMAT_RGB24, kWidth, kHeight),
                          cairo_surface_destroy);
    DrawText(surface.get());

    ASSERT_EQ(cairo_surface_write_to_png(surface.get(), Path().c_str()), CAIRO_STATUS_SUCCESS);

    EXPECT_EQ(Bytes().substr(0, 8), "\x89PNG\r\n\x1A\n");
    const Surface again(cairo_image_surface_create_from_png(Path().c_str()), cairo_surface_destroy);
    EXPECT_EQ(cairo_image_surface_get_width(again.get()), kWidth);
}

TEST_F(APicture, IsWrittenAsSvgWithTheTextsOutlines) {
    Draw(cairo_svg_surface_create);

    EXPECT_NE(Bytes().find("<svg "), std::string::npos);
    EXPECT_NE(Bytes().find("<symbol "), std::string::npos);
}

TEST_F(APicture, IsWrittenAsPdfWithTheFont) {
    Draw(cairo_pdf_surface_create);

    EXPECT_EQ(Bytes().substr(0, 5), "%PDF-");
    EXPECT_NE(Bytes().find("/Type /Font"), std::string::npos);
}

}  // namespace
