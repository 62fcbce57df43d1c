// qolf draw as a user runs it.
#include "tests/cli/CliRun.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

namespace {

using cli::Result;
using cli::Sandbox;

constexpr const char* kNoObjects = "Version 300\nCharset \"Neutral\"\nColumns 0\nData\n";

TEST(Draw, SaysWhereTheMapIsWhenTheBoxMissesIt) {
    const Sandbox sandbox;

    const Result result =
        sandbox.Qolf({"draw", "--bbox", "1,2,3,4", cli::Sample("island-places.mif"), "map.svg"});

    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.err, "qolf: warning: no object lies in --bbox 1,2,3,4; the map, in the "
                          "coordinates of the picture, is 22.72836,58.42405,23.371285,58.5764\n");
}

TEST(Draw, SaysNothingWhenTheBoxMeetsTheMap) {
    const Sandbox sandbox;

    const Result result = sandbox.Qolf(
        {"draw", "--bbox", "23,58,24,59", cli::Sample("island-places.mif"), "map.svg"});

    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.err, "");
}

TEST(Draw, OfNoObjectsMakesNoPictureAndSaysWhatWould) {
    const Sandbox sandbox;
    sandbox.Write("none.mif", kNoObjects);

    const Result result = sandbox.Qolf({"draw", "none.mif", "map.png"});

    EXPECT_EQ(result.exitCode, 1);
    EXPECT_NE(result.err.find("no object to draw; with --bbox"), std::string::npos) << result.err;
    EXPECT_EQ(sandbox.Names(), std::vector<std::string>{"none.mif"});
}

TEST(Draw, OfNoObjectsMakesAnEmptyPictureOfABox) {
    const Sandbox sandbox;
    sandbox.Write("none.mif", kNoObjects);

    const Result result = sandbox.Qolf({"draw", "--bbox", "0,0,1,1", "none.mif", "map.png"});

    EXPECT_EQ(result.exitCode, 0) << result.err;
    EXPECT_TRUE(sandbox.Read("map.png").starts_with("\x89PNG"));
}

TEST(Draw, WritesThePictureToStandardOutput) {
    const Sandbox sandbox;

    const Result result =
        sandbox.Qolf({"draw", "--to", "svg", cli::Sample("island-places.mif"), "-"});

    EXPECT_EQ(result.exitCode, 0) << result.err;
    EXPECT_TRUE(result.out.starts_with("<?xml")) << result.out.substr(0, 100);
    EXPECT_TRUE(result.out.ends_with("</svg>\n"));
    EXPECT_TRUE(sandbox.Names().empty());
}

TEST(DrawOfAPage, WritesOneFile) {
    const Sandbox sandbox;

    const Result result = sandbox.Qolf({"draw", cli::Sample("island-places.mif"), "map.html"});

    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(sandbox.Names(), std::vector<std::string>{"map.html"});
    EXPECT_TRUE(sandbox.Read("map.html").starts_with("<!DOCTYPE html>"));
    EXPECT_TRUE(sandbox.Read("map.html").ends_with("</html>\n"));
}

TEST(DrawOfAPage, WritesItToStandardOutput) {
    const Sandbox sandbox;

    const Result result =
        sandbox.Qolf({"draw", "--format", "html", cli::Sample("island-places.mif"), "-"});

    EXPECT_EQ(result.exitCode, 0) << result.err;
    EXPECT_TRUE(result.out.starts_with("<!DOCTYPE html>")) << result.out.substr(0, 100);
    EXPECT_TRUE(sandbox.Names().empty());
}

TEST(DrawOfAPage, IsTheSameEachTime) {
    const Sandbox sandbox;
    const std::vector<std::string> arguments{"draw", cli::Sample("island.mif")};
    for (const char* const name : {"a.html", "b.html"}) {
        std::vector<std::string> all = arguments;
        all.emplace_back(name);
        EXPECT_EQ(sandbox.Qolf(all).exitCode, 0);
    }

    EXPECT_EQ(sandbox.Read("a.html"), sandbox.Read("b.html"));
}

TEST(DrawOfAPage, NamesNoOtherPlaceToAsk) {
    const Sandbox sandbox;
    sandbox.Qolf({"draw", cli::Sample("island-places.mif"), "map.html"});
    const std::string page = sandbox.Read("map.html");

    EXPECT_NE(page.find("content=\"default-src 'none'; script-src 'sha256-"), std::string::npos);
    EXPECT_NE(page.find("img-src data:; base-uri 'none'"), std::string::npos);
    EXPECT_EQ(page.find(" src=\"http"), std::string::npos);
}

TEST(DrawOfAPage, LeavesOutWhatLiesOutsideTheBoxAndSaysWhenThatIsAll) {
    const Sandbox sandbox;

    const Result result =
        sandbox.Qolf({"draw", "--bbox", "1,2,3,4", cli::Sample("island-places.mif"), "map.html"});

    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.err, "qolf: warning: no object lies in --bbox 1,2,3,4\n");
}

TEST(DrawOfAPage, ThatIsTooLargeSaysWhichSizeWouldDo) {
    const Sandbox sandbox;
    std::string points = R"({"type":"FeatureCollection","features":[)";
    for (int i = 0; i < 10000; ++i) {
        points += (i > 0 ? ",\n" : "") +
                  std::string(R"({"type":"Feature","properties":{"name":"a rather long name"},)") +
                  R"("geometry":{"type":"Point","coordinates":[)" + std::to_string(i * 0.001) +
                  ",5]}}";
    }
    sandbox.Write("points.geojson", points + "]}");

    const Result result = sandbox.Qolf({"draw", "--size", "500K", "points.geojson", "map.html"});

    EXPECT_EQ(result.exitCode, 1);
    EXPECT_NE(result.err.find("more than 0.5 MB; allow that with --size 2M"), std::string::npos)
        << result.err;
    EXPECT_EQ(sandbox.Names(), std::vector<std::string>{"points.geojson"});
}

TEST(DrawOfAPage, WarnsOfALayerThatHasNoPlaceBesideOneThatHas) {
    const Sandbox sandbox;
    sandbox.Write("plan.mif", "Version 300\nCoordSys NonEarth Units \"m\"\nColumns 0\nData\n"
                              "Point 500000 500000\n");

    const Result result =
        sandbox.Qolf({"draw", cli::Sample("island-places.mif"), "plan.mif", "map.html"});

    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.err,
              "qolf: warning: plan.mif: has no coordinate system of the Earth; left out\n");
    EXPECT_EQ(sandbox.Read("map.html").find("500000"), std::string::npos);
}

struct RefusalRow {
    std::string name;  // letters and digits
    std::vector<std::string> arguments;
    int exitCode;
    std::string says;
};

void PrintTo(const RefusalRow& row, std::ostream* out) {
    *out << row.name;
}

class DrawRefuses : public testing::TestWithParam<RefusalRow> {};

TEST_P(DrawRefuses, WithAReasonAndWithoutAPicture) {
    const Sandbox sandbox;
    sandbox.Write("empty.mif", "");
    sandbox.Write("there.svg", "mine");

    const Result result = sandbox.Qolf(GetParam().arguments);

    EXPECT_EQ(result.exitCode, GetParam().exitCode);
    EXPECT_EQ(result.out, "");
    EXPECT_NE(result.err.find(GetParam().says), std::string::npos) << result.err;
    EXPECT_EQ(sandbox.Names(), (std::vector<std::string>{"empty.mif", "there.svg"}));
    EXPECT_EQ(sandbox.Read("there.svg"), "mine");
}

INSTANTIATE_TEST_SUITE_P(
    , DrawRefuses,
    testing::Values(
        RefusalRow{"AMissingFile", {"draw", "missing.mif", "o.png"}, 1, "missing.mif: can't open"},
        RefusalRow{"AnEmptyFile",
                   {"draw", "empty.mif", "o.png"},
                   1,
                   "empty.mif: is not a MIF file: it is empty"},
        RefusalRow{"ABadFileOfAFolder", {"draw", ".", "o.png"}, 1, "empty.mif"},
        RefusalRow{"AMissingPicture", {"draw", "empty.mif"}, 2, "as the last one, the picture"},
        RefusalRow{"AnUnknownExtension", {"draw", "empty.mif", "o.jpg"}, 2, ".svg, .png or .pdf"},
        RefusalRow{"AFolderThatIsNotThere",
                   {"draw", "empty.mif", "no/such/o.png"},
                   1,
                   "there is no folder no/such"},
        RefusalRow{"APictureThatIsThere", {"draw", "empty.mif", "there.svg"}, 1, "--overwrite"},
        RefusalRow{"AWidthBeyondAllMemory",
                   {"draw", "--width", "1000000", "empty.mif", "o.png"},
                   2,
                   "from 1 to 16384 pixels"},
        RefusalRow{"AWidthThatIsNoNumber",
                   {"draw", "--width", "wide", "empty.mif", "o.png"},
                   2,
                   "--width"},
        RefusalRow{"APageOfAWidth",
                   {"draw", "--width", "500", "empty.mif", "o.html"},
                   2,
                   "--width is for pictures: a page is as large as its window"},
        RefusalRow{"APictureOfASize",
                   {"draw", "--size", "5M", "empty.mif", "o.png"},
                   2,
                   "--size is for pages: give the output the extension .html"},
        RefusalRow{
            "APageOfAMissingFile", {"draw", "missing.mif", "o.html"}, 1, "missing.mif: can't open"},
        RefusalRow{"AnUnknownSystem",
                   {"draw", "--crs", "EPSG:99999", "empty.mif", "o.png"},
                   2,
                   "no coordinate system that PROJ knows"}),
    [](const auto& row) { return row.param.name; });

}  // namespace
