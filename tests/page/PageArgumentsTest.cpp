// What the command line of pages takes and refuses.
#include "app/page/PageArguments.h"

#include "app/base/Errors.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>

namespace {

app::PageArguments Arguments() {
    app::PageArguments arguments;
    arguments.files = {"a.mif", "map.html"};
    return arguments;
}

constexpr const char* kTiles = "https://tiles.example.org/{z}/{x}/{y}.png";

TEST(APage, IsWantedByItsExtension) {
    app::MapArguments arguments = Arguments();
    for (const char* const name : {"map.html", "MAP.HTML", "map.htm"}) {
        arguments.files.back() = name;
        EXPECT_TRUE(app::IsPage(arguments)) << name;
    }
    for (const char* const name : {"map.svg", "html", "-"}) {
        arguments.files.back() = name;
        EXPECT_FALSE(app::IsPage(arguments)) << name;
    }
}

TEST(APage, IsWantedByTheFormatBeforeTheName) {
    app::MapArguments arguments = Arguments();
    arguments.format = "svg";
    EXPECT_FALSE(app::IsPage(arguments));
    arguments.files.back() = "-";
    arguments.format = "html";
    EXPECT_TRUE(app::IsPage(arguments));
}

TEST(APage, HasTwentyMegabytesUnlessToldOtherwise) {
    app::PageArguments arguments = Arguments();
    EXPECT_EQ(app::CheckedPageOptions(arguments).budget, 20U << 20);

    arguments.size = "300K";
    EXPECT_EQ(app::CheckedPageOptions(arguments).budget, 300U << 10);
    arguments.size = "5m";
    EXPECT_EQ(app::CheckedPageOptions(arguments).budget, 5U << 20);
    arguments.size = "1G";
    EXPECT_EQ(app::CheckedPageOptions(arguments).budget, 1U << 30);
    arguments.size = "400000";
    EXPECT_EQ(app::CheckedPageOptions(arguments).budget, 400000U);
}

struct OriginRow {
    std::string name;
    std::string tiles;
    std::string origin;
};
void PrintTo(const OriginRow& row, std::ostream* out) {
    *out << row.name;
}
class TheServerOfTiles : public testing::TestWithParam<OriginRow> {};

TEST_P(TheServerOfTiles, IsInThePolicy) {
    app::PageArguments arguments = Arguments();
    arguments.tiles = GetParam().tiles;
    arguments.attribution = "x";

    EXPECT_EQ(app::CheckedPageOptions(arguments).baseMap.origin, GetParam().origin);
}

INSTANTIATE_TEST_SUITE_P(
    , TheServerOfTiles,
    testing::Values(
        OriginRow{"Plain", kTiles, "https://tiles.example.org"},
        OriginRow{"WithAPort", "http://127.0.0.1:8080/{z}/{x}/{y}.png", "http://127.0.0.1:8080"},
        OriginRow{"OneOfSeveral", "https://{s}.example.org/{z}/{x}/{y}", "https://*.example.org"}),
    [](const auto& row) { return row.param.name; });

TEST(TheBaseMap, OfOpenStreetMapKnowsItsAttribution) {
    app::PageArguments arguments = Arguments();
    arguments.tiles = "https://tile.openstreetmap.org/{z}/{x}/{y}.png";

    EXPECT_EQ(app::CheckedPageOptions(arguments).baseMap.attribution,
              "\xC2\xA9 OpenStreetMap contributors");
}

struct RefusalRow {
    std::string name;
    void (*change)(app::PageArguments&);
    std::string message;
};
void PrintTo(const RefusalRow& row, std::ostream* out) {
    *out << row.name;
}
class APageRefuses : public testing::TestWithParam<RefusalRow> {};

TEST_P(APageRefuses, WithThisMessage) {
    app::PageArguments arguments = Arguments();
    GetParam().change(arguments);
    try {
        static_cast<void>(app::CheckedPageOptions(arguments));
        FAIL();
    } catch (const app::UsageError& error) {
        EXPECT_EQ(std::string(error.what()), GetParam().message);
    }
}

const std::string kSizeMessage = "--size must be from 256K to 1G, such as 5M; found ";
const std::string kTilesMessage = "--tiles must be an address with {z}, {x} and {y}, such as "
                                  "https://tile.openstreetmap.org/{z}/{x}/{y}.png; found ";

INSTANTIATE_TEST_SUITE_P(
    , APageRefuses,
    testing::Values(
        RefusalRow{"ASmallSize", [](auto& a) { a.size = "100K"; }, kSizeMessage + "'100K'"},
        RefusalRow{"AHugeSize", [](auto& a) { a.size = "2G"; }, kSizeMessage + "'2G'"},
        RefusalRow{"ASizeWithoutANumber", [](auto& a) { a.size = "M"; }, kSizeMessage + "'M'"},
        RefusalRow{"ASizeOfAnotherUnit", [](auto& a) { a.size = "5MB"; }, kSizeMessage + "'5MB'"},
        RefusalRow{"ASystem", [](auto& a) { a.crs = "EPSG:3301"; },
                   "--crs is for pictures: a page shows places on the Earth in the projection of "
                   "web maps"},
        RefusalRow{"TilesWithoutPlaces", [](auto& a) { a.tiles = "https://a.org/tile.png"; },
                   kTilesMessage + "'https://a.org/tile.png'"},
        RefusalRow{"TilesOfAFile", [](auto& a) { a.tiles = "file:///{z}/{x}/{y}"; },
                   kTilesMessage + "'file:///{z}/{x}/{y}'"},
        RefusalRow{"TilesThatChangeThePolicy",
                   [](auto& a) { a.tiles = "https://a.org;script-src */{z}/{x}/{y}"; },
                   kTilesMessage + "'https://a.org;script-src */{z}/{x}/{y}'"},
        RefusalRow{"TilesOfEveryServer", [](auto& a) { a.tiles = "https://{s}./{z}/{x}/{y}"; },
                   kTilesMessage + "'https://{s}./{z}/{x}/{y}'"},
        RefusalRow{"TilesWithoutAttribution", [](auto& a) { a.tiles = kTiles; },
                   "--tiles needs --attribution, the words that the base map's owner wants on the "
                   "map"},
        RefusalRow{"AttributionWithoutTiles", [](auto& a) { a.attribution = "me"; },
                   "--attribution belongs to a base map, which --tiles names"}),
    [](const auto& row) { return row.param.name; });

}  // namespace
