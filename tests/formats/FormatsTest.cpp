// The table of the formats, and what is made from it.
#include "app/formats/Formats.h"

#include "app/base/Errors.h"

#include <gtest/gtest.h>

#include <fstream>
#include <set>
#include <sstream>
#include <string>

namespace {

TEST(TheFormats, EachAnswerToTheirNamesAndExtensions) {
    for (const app::Format& format : app::Formats()) {
        for (const std::string_view extension : format.extensions) {
            EXPECT_EQ(&app::FormatOfName(std::string(extension.substr(1))), &format) << extension;
            EXPECT_EQ(&app::FormatOfPath("maps.1/a" + std::string(extension)), &format)
                << extension;
        }
    }
}

TEST(TheFormats, ShareNoExtension) {
    std::set<std::string_view> seen;
    for (const app::Format& format : app::Formats()) {
        for (const std::string_view extension : format.extensions) {
            EXPECT_TRUE(seen.insert(extension).second) << extension;
        }
    }
}

TEST(TheFormats, CanEachBeReadAndWritten) {
    for (const app::Format& format : app::Formats()) {
        EXPECT_NE(format.openSource, nullptr) << format.Name();
        EXPECT_NE(format.openTarget, nullptr) << format.Name();
        EXPECT_NE(format.words, "") << format.Name();
    }
}

TEST(TheFormats, AreFoundByExtensionsInAnyCase) {
    EXPECT_EQ(app::FormatOfPath("ROADS.MIF").Name(), "mif");
}

TEST(TheFormats, HaveGeoJsonForStandardStreams) {
    EXPECT_EQ(app::FormatOfPath("-").Name(), "geojson");
}

std::string UsageErrorOf(const app::Format& (*find)(const std::string&), const std::string& text) {
    try {
        return "none: " + std::string(find(text).Name());
    } catch (const app::UsageError& error) {
        return error.what();
    }
}

TEST(AnUnknownFormat, IsRefusedWithTheChoices) {
    EXPECT_EQ(UsageErrorOf(app::FormatOfName, "shp"),
              "--to shp: the formats are mif, geojson, json, geojsonl, ndjson, geojsons and gpkg");
    EXPECT_EQ(UsageErrorOf(app::FormatOfPath, "a.shp"),
              "a.shp: the format follows from the extension, which must be .mif, .geojson, .json, "
              ".geojsonl, .ndjson, .geojsons or .gpkg");
}

TEST(AnUnknownFormat, IsOneWithoutAName) {
    EXPECT_THROW(static_cast<void>(app::FormatOfName("")), app::UsageError);
    EXPECT_THROW(static_cast<void>(app::FormatOfPath("")), app::UsageError);
    EXPECT_THROW(static_cast<void>(app::FormatOfPath("roads")), app::UsageError);
    EXPECT_THROW(static_cast<void>(app::FormatOfPath("a.")), app::UsageError);
}

TEST(TheListOfFormats, HasALineForEach) {
    EXPECT_EQ(app::FormatLines(), "  .mif                a pair of .mif and .mid\n"
                                  "  .geojson, .json     GeoJSON\n"
                                  "  .geojsonl, .ndjson  GeoJSON, one feature per line\n"
                                  "  .geojsons           GeoJSON as a text sequence\n"
                                  "  .gpkg               GeoPackage\n");
    EXPECT_EQ(app::FormatNames(), "mif, geojson, geojsonl, geojsons, gpkg");
}

TEST(TheManPageOfConvert, ListsEveryExtension) {
    std::ostringstream page;
    page << std::ifstream(std::string(QOLF_DOCS) + "/man/qolf-convert.md").rdbuf();
    for (const app::Format& format : app::Formats()) {
        for (const std::string_view extension : format.extensions) {
            EXPECT_NE(page.str().find("| " + std::string(format.extensions.front())),
                      std::string::npos)
                << extension;
            EXPECT_NE(page.str().find(extension), std::string::npos) << extension;
        }
    }
}

}  // namespace
