// Whole runs: files in, pictures out, through the module.
#include "app/draw/DrawRun.h"

#include "app/base/Errors.h"
#include "tests/draw/Picture.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstring>

namespace {

using draw_test::kBlue;
using draw_test::kGreen;
using draw_test::kRed;
using draw_test::kWhite;

constexpr const char* kPlaneHeader =
    "Version 300\nCharset \"Neutral\"\nDelimiter \",\"\n"
    "CoordSys NonEarth Units \"m\"\nColumns 1\n  id Integer\nData\n\n";
constexpr const char* kDegreesHeader = "Version 300\nCharset \"Neutral\"\nDelimiter \",\"\n"
                                       "CoordSys Earth Projection 1, 104\n\nColumns 1\n  id "
                                       "Integer\nData\n\n";
constexpr const char* kUtmHeader =
    "Version 300\nCharset \"Neutral\"\nDelimiter \",\"\n"
    "CoordSys Earth Projection 8, 104, \"m\", 27, 0, 0.9996, 500000, 0\nColumns 1\n  id "
    "Integer\nData\n\n";

// A temporary folder with maps and pictures, and what the command said about them.
class Draw : public testing::Test {
protected:
    Draw() : messages_(std::tmpfile()) {}
    ~Draw() override { std::fclose(messages_); }

    void WriteMap(const std::string& name, const std::string& header, const std::string& objects) {
        folder_.Write(name, header + objects);
    }

    app::DrawOptions Options(std::initializer_list<std::string> inputs) const {
        app::DrawOptions options;
        for (const std::string& input : inputs) {
            options.map.paths.push_back((folder_.path() / input).string());
        }
        options.output = (folder_.path() / "map.png").string();
        options.format = app::PictureFormat::Png;
        options.page.width = 100;
        options.map.modulePath = QOLF_MODULE;
        return options;
    }

    int Run(const app::DrawOptions& options) {
        app::Reporter reporter(messages_, /*isTerminal=*/false, /*useColor=*/false);
        return app::RunDraw(options, reporter);
    }

    std::string FailureOf(const app::DrawOptions& options) {
        try {
            static_cast<void>(Run(options));
        } catch (const app::Failure& failure) {
            return failure.what();
        }
        return "";
    }

    std::string Messages() {
        std::rewind(messages_);
        std::string text;
        for (int c = std::fgetc(messages_); c != EOF; c = std::fgetc(messages_)) {
            text += static_cast<char>(c);
        }
        return text;
    }

    // The pixel of the written picture, counted from the upper left corner.
    shr::Color4b PixelAt(int x, int y) const {
        const std::string file = (folder_.path() / "map.png").string();
        cairo_surface_t* const image = cairo_image_surface_create_from_png(file.c_str());
        std::uint32_t packed = 0;
        if (x < cairo_image_surface_get_width(image) && y < cairo_image_surface_get_height(image)) {
            const std::ptrdiff_t row = static_cast<std::ptrdiff_t>(y);
            const std::ptrdiff_t column = 4 * static_cast<std::ptrdiff_t>(x);
            std::memcpy(&packed,
                        cairo_image_surface_get_data(image) +
                            row * cairo_image_surface_get_stride(image) + column,
                        sizeof packed);
            packed |= cairo_image_surface_get_format(image) == CAIRO_FORMAT_RGB24 ? 0xFF000000U : 0;
        }
        cairo_surface_destroy(image);
        return shr::Color4b(packed);
    }

    // The pixels in the box that are not white.
    int InkIn(int left, int top, int right, int bottom) const {
        int count = 0;
        for (int y = top; y < bottom; ++y) {
            for (int x = left; x < right; ++x) {
                count += PixelAt(x, y) == kWhite ? 0 : 1;
            }
        }
        return count;
    }

    std::vector<std::string> FilesLeft() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(folder_.path())) {
            names.push_back(entry.path().filename().string());
        }
        std::sort(names.begin(), names.end());
        return names;
    }

    support::TemporaryFolder folder_;

private:
    std::FILE* messages_;
};

constexpr const char* kRedRectangle = "Rect 0 0 100 100\n  Pen (1,1,0)\n  Brush (2,16711680)\n";
constexpr const char* kBlueInside = "Rect 40 40 60 60\n  Pen (1,1,0)\n  Brush (2,255)\n";

TEST_F(Draw, FillsThePageWithAllThereIs) {
    WriteMap("a.mif", kPlaneHeader, kRedRectangle);

    EXPECT_EQ(Run(Options({"a.mif"})), 0);

    EXPECT_EQ(PixelAt(0, 0), kRed);
    EXPECT_EQ(PixelAt(99, 99), kRed);
    EXPECT_EQ(Messages(), "");
}

TEST_F(Draw, KeepsTheMarginInTheBackgroundColour) {
    WriteMap("a.mif", kPlaneHeader, kRedRectangle);
    app::DrawOptions options = Options({"a.mif"});
    options.page.margin = 10;
    options.background = kGreen;

    EXPECT_EQ(Run(options), 0);

    EXPECT_EQ(PixelAt(5, 50), kGreen);
    EXPECT_EQ(PixelAt(15, 50), kRed);
}

TEST_F(Draw, DrawsLaterFilesOverEarlierOnes) {
    WriteMap("a.mif", kPlaneHeader, kRedRectangle);
    WriteMap("b.mif", kPlaneHeader, kBlueInside);

    EXPECT_EQ(Run(Options({"a.mif", "b.mif"})), 0);

    EXPECT_EQ(PixelAt(50, 50), kBlue);
    EXPECT_EQ(PixelAt(20, 50), kRed);
}

TEST_F(Draw, DrawsABoxOfTheMap) {
    WriteMap("a.mif", kPlaneHeader, std::string(kRedRectangle) + kBlueInside);
    app::DrawOptions options = Options({"a.mif"});
    options.bbox = shr::Box2d{45, 45, 55, 55};

    EXPECT_EQ(Run(options), 0);

    EXPECT_EQ(PixelAt(1, 1), kBlue);
    EXPECT_EQ(PixelAt(98, 98), kBlue);
}

TEST_F(Draw, ShrinksDegreesOfLongitude) {
    WriteMap("a.mif", kDegreesHeader, "Rect 20 59 22 61\n  Pen (1,1,0)\n  Brush (2,16711680)\n");
    app::DrawOptions options = Options({"a.mif"});
    options.page.height = 100;

    EXPECT_EQ(Run(options), 0);

    // At 60 degrees the area is half as wide as high, in the middle of the square page.
    EXPECT_EQ(PixelAt(20, 50), kWhite);
    EXPECT_EQ(PixelAt(30, 50), kRed);
    EXPECT_EQ(PixelAt(70, 50), kRed);
    EXPECT_EQ(PixelAt(80, 50), kWhite);
}

TEST_F(Draw, ShrinksDegreesOfLongitudeInABoxToo) {
    WriteMap("a.mif", kDegreesHeader, "Rect 20 59 22 61\n  Pen (1,1,0)\n  Brush (2,16711680)\n");
    app::DrawOptions options = Options({"a.mif"});
    options.page.height = 100;
    options.bbox = shr::Box2d{20, 59, 22, 61};

    EXPECT_EQ(Run(options), 0);

    EXPECT_EQ(PixelAt(20, 50), kWhite);
    EXPECT_EQ(PixelAt(30, 50), kRed);
}

TEST_F(Draw, MovesAFileIntoTheSystemOfTheFirst) {
    WriteMap("degrees.mif", kDegreesHeader,
             "Rect 26 0 28 2\n  Pen (1,1,0)\n  Brush (2,16711680)\n");
    // 27 degrees east and 1 degree north, some 20 km to each side.
    WriteMap("metres.mif", kUtmHeader,
             "Rect 480000 90000 520000 130000\n  Pen (1,1,0)\n  Brush (2,255)\n");

    EXPECT_EQ(Run(Options({"degrees.mif", "metres.mif"})), 0);

    EXPECT_EQ(PixelAt(50, 50), kBlue);
    EXPECT_EQ(PixelAt(10, 50), kRed);
    EXPECT_EQ(Messages(), "");
}

TEST_F(Draw, MovesEveryFileIntoANamedSystem) {
    WriteMap("metres.mif", kUtmHeader,
             "Rect 480000 90000 520000 130000\n  Pen (1,1,0)\n  Brush (2,255)\n");
    app::DrawOptions options = Options({"metres.mif"});
    options.map.crs = "EPSG:4326";
    options.bbox = shr::Box2d{26.9, 0.9, 27.1, 1.1};

    EXPECT_EQ(Run(options), 0);

    EXPECT_EQ(PixelAt(50, 50), kBlue);
}

TEST_F(Draw, SaysWhichFileCannotBePlaced) {
    WriteMap("degrees.mif", kDegreesHeader, "Point 26 0\n");
    WriteMap("plane.mif", kPlaneHeader, "Point 27 1\n");

    EXPECT_EQ(Run(Options({"plane.mif", "degrees.mif"})), 0);

    EXPECT_EQ(Messages(), "qolf: warning: " + (folder_.path() / "plane.mif").string() +
                              ": has no coordinate system of the Earth; drawn unchanged\n");
}

TEST_F(Draw, SaysWhatIsWrongWithANamedSystem) {
    WriteMap("a.mif", kDegreesHeader, "Point 26 0\n");
    app::DrawOptions options = Options({"a.mif"});
    options.map.crs = "EPSG:999999";

    EXPECT_TRUE(FailureOf(options).starts_with("--crs EPSG:999999: "));
    EXPECT_EQ(FilesLeft(), (std::vector<std::string>{"a.mif"}));
}

TEST_F(Draw, UsesItsOwnColoursWhenStylesAreIgnored) {
    WriteMap("a.mif", kPlaneHeader, kRedRectangle);
    app::DrawOptions options = Options({"a.mif"});
    options.styleSource = app::StyleSource::Layers;

    EXPECT_EQ(Run(options), 0);

    EXPECT_NE(PixelAt(50, 50), kRed);
    EXPECT_NE(PixelAt(50, 50), kWhite);
}

TEST_F(Draw, DrawsASinglePointInTheMiddle) {
    WriteMap("a.mif", kPlaneHeader, "Point 1234567 -7654321\n  Pen (1,2,255)\n");

    EXPECT_EQ(Run(Options({"a.mif"})), 0);

    EXPECT_EQ(PixelAt(50, 50), kBlue);
    EXPECT_EQ(PixelAt(20, 20), kWhite);
}

TEST_F(Draw, DrawsTextsOfControlCharacters) {
    WriteMap("a.mif", kPlaneHeader,
             std::string("Text \"a\x01\x02<&\xFF\"\n 0 0 100 20\n  Font (\"\x07\",0,0,255)\n"));
    app::DrawOptions options = Options({"a.mif"});
    options.output = (folder_.path() / "map.svg").string();
    options.format = app::PictureFormat::Svg;

    EXPECT_EQ(Run(options), 0);

    EXPECT_EQ(folder_.Read("map.svg").find_first_of("\x01\x02\x07"), std::string::npos);
}

TEST_F(Draw, DrawsHugeCoordinates) {
    WriteMap("a.mif", kPlaneHeader,
             "Line -1e308 1e308 1e308 -1e308\nLine nan inf 1 1\nRegion 1\n 3\n1e300 0\n0 1e300\n-"
             "1e300 -1e300\nEllipse -1e200 -1e200 1e300 1e300\n");

    EXPECT_EQ(Run(Options({"a.mif"})), 0);
}

TEST_F(Draw, SaysThatThereIsNothingToDraw) {
    WriteMap("a.mif", kPlaneHeader, "");

    const std::string failure = FailureOf(Options({"a.mif"}));

    EXPECT_EQ(failure, (folder_.path() / "a.mif").string() +
                           ": no object to draw; with --bbox the picture is made all the same");
    EXPECT_EQ(FilesLeft(), (std::vector<std::string>{"a.mif"}));
}

TEST_F(Draw, DrawsAnEmptyMapInABox) {
    WriteMap("a.mif", kPlaneHeader, "");
    app::DrawOptions options = Options({"a.mif"});
    options.bbox = shr::Box2d{0, 0, 1, 1};

    EXPECT_EQ(Run(options), 0);

    EXPECT_EQ(PixelAt(50, 50), kWhite);
}

TEST_F(Draw, LeavesNothingWhenAFileIsMissing) {
    EXPECT_NE(FailureOf(Options({"missing.mif"})), "");
    EXPECT_TRUE(FilesLeft().empty());
}

TEST_F(Draw, LeavesNothingWhenAnImportStopsHalfWay) {
    WriteMap("a.mif", kPlaneHeader, std::string(kRedRectangle) + "Nonsense 1 2\n");
    app::DrawOptions options = Options({"a.mif"});
    options.map.asIs = true;
    options.bbox = shr::Box2d{0, 0, 100, 100};
    options.map.asIs = true;

    EXPECT_NE(FailureOf(options).find("Invalid object type 'Nonsense'"), std::string::npos);
    EXPECT_EQ(FilesLeft(), (std::vector<std::string>{"a.mif"}));
}

TEST_F(Draw, DoesNotReplaceAPictureUnlessToldSo) {
    WriteMap("a.mif", kPlaneHeader, kRedRectangle);
    folder_.Write("map.png", "mine");

    EXPECT_NE(FailureOf(Options({"a.mif"})).find("--overwrite"), std::string::npos);
    EXPECT_EQ(folder_.Read("map.png"), "mine");
}

TEST_F(Draw, ReplacesAPictureWhenToldSo) {
    WriteMap("a.mif", kPlaneHeader, kRedRectangle);
    folder_.Write("map.png", "mine");
    app::DrawOptions options = Options({"a.mif"});
    options.ifExists = app::IfExists::Overwrite;

    EXPECT_EQ(Run(options), 0);

    EXPECT_EQ(PixelAt(50, 50), kRed);
}

TEST_F(Draw, WarnsOnce) {
    folder_.Write("a.mif", "Version 1200\nDelimiter \",\"\nCoordSys NonEarth Units \"m\"\nColumns "
                           "1\n  id Integer\nData\n\nPoint 1 1\n");

    app::DrawOptions options = Options({"a.mif"});
    options.map.asIs = true;

    EXPECT_EQ(Run(options), 0);

    const std::string messages = Messages();
    EXPECT_NE(messages.find("MIF version 1200 is not supported."), std::string::npos);
    EXPECT_EQ(messages.find("not supported"), messages.rfind("not supported")) << messages;
}

TEST_F(Draw, HonoursTheSimpleStylesOfGeoJson) {
    folder_.Write("a.geojson", R"({"type":"Feature","properties":{"fill":"#ff0000",
        "fill-opacity":1,"stroke-width":0},"geometry":{"type":"Polygon",
        "coordinates":[[[0,0],[1,0],[1,1],[0,1],[0,0]]]}})");

    EXPECT_EQ(Run(Options({"a.geojson"})), 0);

    EXPECT_EQ(PixelAt(50, 50), kRed);
}

TEST_F(Draw, MixesFormats) {
    WriteMap("metres.mif", kUtmHeader,
             "Rect 480000 90000 520000 130000\n  Pen (1,1,0)\n  Brush (2,255)\n");
    folder_.Write("a.geojson", R"({"type":"Feature","properties":{"fill":"#ff0000",
        "fill-opacity":1},"geometry":{"type":"Polygon",
        "coordinates":[[[26,0],[28,0],[28,2],[26,2],[26,0]]]}})");

    EXPECT_EQ(Run(Options({"a.geojson", "metres.mif"})), 0);

    EXPECT_EQ(PixelAt(50, 50), kBlue);
    EXPECT_EQ(PixelAt(10, 50), kRed);
}

TEST_F(Draw, LeavesRoomForSymbolsAndPensAtTheEdge) {
    folder_.Write("a.geojson", R"({"type":"FeatureCollection","features":[
        {"type":"Feature","properties":{"marker-color":"#0000ff","marker-size":"large"},
         "geometry":{"type":"Point","coordinates":[0,0]}},
        {"type":"Feature","properties":{"marker-color":"#0000ff","marker-size":"large"},
         "geometry":{"type":"Point","coordinates":[1,1]}}]})");

    EXPECT_EQ(Run(Options({"a.geojson"})), 0);

    for (int i = 0; i < 100; ++i) {
        EXPECT_EQ(PixelAt(i, 0), kWhite) << i;
        EXPECT_EQ(PixelAt(0, i), kWhite) << i;
        EXPECT_EQ(PixelAt(99, i), kWhite) << i;
    }
}

TEST_F(Draw, SaysThatAFewFarObjectsShrinkTheMap) {
    std::string objects;
    for (int i = 0; i < 40; ++i) {
        objects += "Point " + std::to_string(i % 7) + " " + std::to_string(i % 5) + "\n";
    }
    WriteMap("a.mif", kPlaneHeader, objects + "Point 600 0\nPoint 600 1\n");

    EXPECT_EQ(Run(Options({"a.mif"})), 0);

    EXPECT_EQ(Messages(), "qolf: note: 2 objects make the map 100 times as wide; "
                          "--bbox 0,0,6,4 shows the rest\n");
}

TEST_F(Draw, SaysThatNoObjectLiesInTheBox) {
    WriteMap("a.mif", kPlaneHeader, kRedRectangle);
    app::DrawOptions options = Options({"a.mif"});
    options.bbox = shr::Box2d{1000, 1000, 1100, 1100};

    EXPECT_EQ(Run(options), 0);

    EXPECT_EQ(Messages(), "qolf: warning: no object lies in --bbox 1000,1000,1100,1100; the map, "
                          "in the coordinates of the picture, is 0,0,100,100\n");
}

constexpr const char* kNamedPoint = R"({"type":"Feature","properties":{"name":"Here",
    "marker-color":"#0000ff"},"geometry":{"type":"Point","coordinates":[0,0]}})";

TEST_F(Draw, LabelsObjectsByAColumn) {
    folder_.Write("a.geojson", kNamedPoint);
    app::DrawOptions options = Options({"a.geojson"});
    options.page.height = 100;
    EXPECT_EQ(Run(options), 0);
    EXPECT_EQ(InkIn(62, 40, 100, 60), 0);
    options.ifExists = app::IfExists::Overwrite;
    options.map.labels = {"name"};

    EXPECT_EQ(Run(options), 0);

    EXPECT_GT(InkIn(62, 40, 100, 60), 20);
}

TEST_F(Draw, LabelsOneLayerWhenItIsNamed) {
    folder_.Write("a.geojson", kNamedPoint);
    app::DrawOptions options = Options({"a.geojson"});
    options.page.height = 100;
    options.map.labels = {"a:name"};

    EXPECT_EQ(Run(options), 0);

    EXPECT_GT(InkIn(62, 40, 100, 60), 20);
}

TEST_F(Draw, NamesTheColumnsThereAreForALabelOfNone) {
    folder_.Write("a.geojson", kNamedPoint);
    app::DrawOptions options = Options({"a.geojson"});
    options.map.labels = {"b:name"};

    EXPECT_EQ(FailureOf(options),
              "--label b:name: no layer has such a column; the columns are: name, marker-color");
    EXPECT_EQ(FilesLeft(), (std::vector<std::string>{"a.geojson"}));
}

TEST_F(Draw, PutsTitleLegendAndScaleBarBesideTheMap) {
    WriteMap("a.mif", kPlaneHeader, kRedRectangle);
    app::DrawOptions options = Options({"a.mif"});
    options.page.width = 300;
    options.furniture = {"Red", true, true};

    EXPECT_EQ(Run(options), 0);

    EXPECT_EQ(PixelAt(5, 40), kRed);
    EXPECT_EQ(PixelAt(5, 5), kWhite);
    EXPECT_EQ(PixelAt(295, 150), kWhite);
    EXPECT_GT(InkIn(0, 0, 300, 30), 20);     // the title
    EXPECT_GT(InkIn(250, 40, 300, 80), 20);  // the legend
}

}  // namespace
