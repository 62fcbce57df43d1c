// Whole conversions inside the test's process, through the module.
#include "app/convert/ConvertRun.h"

#include "app/base/Errors.h"
#include "tests/support/KeptMessages.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <ostream>
#include <string>
#include <vector>

namespace {

constexpr const char* kPlaces =
    R"({"type":"FeatureCollection","features":[)"
    R"({"type":"Feature","properties":{"id":1},"geometry":{"type":"Point","coordinates":[1,2]}},)"
    R"({"type":"Feature","properties":{"id":2},"geometry":{"type":"Point","coordinates":[3,4]}}]})";

constexpr const char* kLines = "{\"type\":\"Feature\",\"properties\":{\"id\":1},"
                               "\"geometry\":{\"type\":\"Point\",\"coordinates\":[1,2]}}\n"
                               "{\"type\":\"Feature\",\"properties\":{\"id\":2},"
                               "\"geometry\":{\"type\":\"Point\",\"coordinates\":[3,4]}}\n";

class AConversion : public testing::Test {
protected:
    AConversion() { options_.modulePath = QOLF_MODULE; }

    int Run(const std::vector<std::string>& names) {
        options_.noStore = true;
        options_.paths.clear();
        for (const std::string& name : names) {
            options_.paths.push_back(name == "-" ? name : (folder_.path() / name).string());
        }
        return app::RunConvert(options_, messages_.Reporter());
    }

    template <typename Error> std::string ErrorOf(const std::vector<std::string>& names) {
        try {
            Run(names);
        } catch (const Error& error) {
            return error.what();
        }
        return "none";
    }

    std::string InFolder(const std::string& name) const { return (folder_.path() / name).string(); }

    app::ConvertOptions options_;
    support::TemporaryFolder folder_;
    support::KeptMessages messages_;
};

TEST_F(AConversion, GoesFromFormatToFormat) {
    folder_.Write("in.json", kPlaces);

    EXPECT_EQ(Run({"in.json", "out.geojsonl"}), 0);

    EXPECT_EQ(folder_.Read("out.geojsonl"), kLines);
    EXPECT_EQ(messages_.Text(), "");
}

TEST_F(AConversion, GoesThroughAPairAndBack) {
    folder_.Write("in.geojson", kPlaces);

    EXPECT_EQ(Run({"in.geojson", "out.mif"}), 0);
    EXPECT_EQ(Run({"out.mif", "back.ndjson"}), 0);

    EXPECT_NE(folder_.Read("back.ndjson").find("\"coordinates\":[3,4]"), std::string::npos);
}

TEST_F(AConversion, TakesTheFormatThatIsNamedWhateverTheExtension) {
    folder_.Write("in.geojson", kPlaces);
    options_.format = "geojsonl";

    EXPECT_EQ(Run({"in.geojson", "out.txt"}), 0);

    EXPECT_EQ(folder_.Read("out.txt"), kLines);
}

TEST_F(AConversion, StopsReadingAtTheLimit) {
    folder_.Write("in.geojsonl", kLines);
    options_.limit = 1;

    EXPECT_EQ(Run({"in.geojsonl", "out.geojsonl"}), 0);

    const std::string lines = kLines;
    EXPECT_EQ(folder_.Read("out.geojsonl"), lines.substr(0, lines.find('\n') + 1));
}

TEST_F(AConversion, NamesTheLayerAsTold) {
    folder_.Write("in.geojsonl", kLines);
    options_.layers = {"places"};

    EXPECT_EQ(Run({"in.geojsonl", "out.geojson"}), 0);

    EXPECT_TRUE(
        folder_.Read("out.geojson").starts_with(R"({"type":"FeatureCollection","name":"places",)"));
}

TEST_F(AConversion, MakesALayerOfEachInput) {
    folder_.Write("a.geojsonl", kLines);
    folder_.Write("b.geojsonl", kLines);

    EXPECT_EQ(Run({"a.geojsonl", "b.geojsonl", "out.gpkg"}), 0);

    EXPECT_EQ(ErrorOf<app::Failure>({"out.gpkg", "back.geojson"}),
              InFolder("out.gpkg") + ": holds several layers; choose with --layer, or merge them "
                                     "with --merge, or write a file each with --output-dir: a, b");
    options_.layers = {"b"};
    EXPECT_EQ(Run({"out.gpkg", "back.geojsonl"}), 0);
    EXPECT_EQ(folder_.Read("back.geojsonl"), kLines);
}

TEST_F(AConversion, ReadsThePairWhoseMidFileIsNamed) {
    folder_.Write("in.mif", "Version 300\nColumns 1\n  id Integer\nData\n\nPoint 1 2\n");
    folder_.Write("in.mid", "7\n");

    EXPECT_EQ(Run({"in.mid", "out.geojsonl"}), 0);

    EXPECT_NE(folder_.Read("out.geojsonl").find("{\"id\":7}"), std::string::npos);
}

TEST_F(AConversion, WritesAPairThatHasNoObjects) {
    folder_.Write("in.mif", "Version 300\nCharset \"Neutral\"\nColumns 1\n  id Integer\nData\n\n");

    EXPECT_EQ(Run({"in.mif", "out.mif"}), 0);

    EXPECT_NE(folder_.ReadText("out.mif").find("\nColumns 1\n  id Integer\n"), std::string::npos);
    EXPECT_TRUE(folder_.Has("out.mid"));
}

TEST_F(AConversion, LeavesNoPairOfTheModuleWhenThereIsNothingToDraw) {
    folder_.Write("in.mif", "Version 300\nCharset \"Neutral\"\nColumns 1\n  id Integer\nData\n\n");
    options_.asIs = true;

    EXPECT_EQ(Run({"in.mif", "out.mif"}), 0);

    EXPECT_FALSE(folder_.Has("out.mif"));
    EXPECT_TRUE(messages_.Text().ends_with(": holds no objects that are drawn; nothing was "
                                           "written\n"))
        << messages_.Text();
}

TEST_F(AConversion, WritesAsTheModuleDoesWhenTold) {
    folder_.Write("in.geojson", kPlaces);
    options_.asIs = true;

    EXPECT_EQ(Run({"in.geojson", "out.mif"}), 0);

    EXPECT_TRUE(
        folder_.ReadText("out.mif").starts_with("VERSION  300\nCHARSET \"WindowsLatin1\"\n"));
    EXPECT_EQ(folder_.ReadText("out.mid"), "\"1\"\n\"2\"\n");
}

TEST_F(AConversion, TakesTheEncodingForItsOutputWhenNoInputHasOne) {
    folder_.Write("in.geojson", kPlaces);
    options_.encoding = "CP1251";

    EXPECT_EQ(Run({"in.geojson", "out.mif"}), 0);

    EXPECT_NE(folder_.ReadText("out.mif").find("\nCharset \"WindowsCyrillic\"\n"),
              std::string::npos);
}

TEST_F(AConversion, TakesTheOutputsEncodingForItsOutput) {
    folder_.Write("in.mif", "Version 300\nCharset \"WindowsCyrillic\"\nDelimiter \",\"\n"
                            "Columns 1\n  id Char(9)\nData\nPoint 1 2\n");
    folder_.Write("in.mid", "\"\xC6\"\n");
    options_.outputEncoding = "UTF-8";

    EXPECT_EQ(Run({"in.mif", "out.mif"}), 0);

    EXPECT_NE(folder_.ReadText("out.mif").find("\nCharset \"UTF-8\"\n"), std::string::npos);
    EXPECT_EQ(folder_.ReadText("out.mid"), "\"\u0416\"\n");
}

TEST_F(AConversion, LeavesWhatExistsUnlessTold) {
    folder_.Write("in.geojsonl", kLines);
    folder_.Write("out.geojsonl", "old");

    EXPECT_NE(ErrorOf<app::Failure>({"in.geojsonl", "out.geojsonl"}), "none");
    EXPECT_EQ(folder_.Read("out.geojsonl"), "old");
    options_.overwrite = true;
    EXPECT_EQ(Run({"in.geojsonl", "out.geojsonl"}), 0);
    EXPECT_EQ(folder_.Read("out.geojsonl"), kLines);
}

struct RefusedRow {
    const char* name;
    std::vector<std::string> names;
    const char* format;
    const char* reason;  // a part of the message
};

std::ostream& operator<<(std::ostream& out, const RefusedRow& row) {
    return out << row.name;
}

class ARefusedConversion : public AConversion, public testing::WithParamInterface<RefusedRow> {};

TEST_P(ARefusedConversion, SaysWhyBeforeAnythingIsWritten) {
    folder_.Write("a.geojson", kPlaces);
    folder_.Write("b.geojson", kPlaces);
    std::filesystem::create_directory(folder_.path() / "maps");
    options_.format = GetParam().format;

    const std::string error = ErrorOf<app::UsageError>(GetParam().names);

    EXPECT_NE(error.find(GetParam().reason), std::string::npos) << error;
    EXPECT_FALSE(folder_.Has("out.mif") || folder_.Has("out.gpkg"));
}

INSTANTIATE_TEST_SUITE_P(
    , ARefusedConversion,
    testing::Values(
        RefusedRow{"OneFile", {"a.geojson"}, "", "convert needs an input and an output"},
        RefusedRow{"AFolder", {"maps", "out.gpkg"}, "", "maps: is a folder; --output-dir FOLDER"},
        RefusedRow{
            "SeveralInputs",
            {"a.geojson", "b.geojson", "out.mif"},
            "",
            "several inputs become one output only as a GeoPackage, or as one layer with --merge"},
        RefusedRow{"AnUnknownInput", {"a.shp", "out.mif"}, "", "a.shp: the format follows"},
        RefusedRow{"AnUnknownOutput", {"a.geojson", "out.shp"}, "", "out.shp: the format follows"},
        RefusedRow{"AnUnknownFormat",
                   {"a.geojson", "out.mif"},
                   "shp",
                   "--to shp: the formats are mif, geojson, json, geojsonl, ndjson, geojsons and "
                   "gpkg"},
        RefusedRow{"APackageAsAStream", {"a.geojson", "-"}, "gpkg", "name a .gpkg file"},
        RefusedRow{"APairAsAStream",
                   {"a.geojson", "-"},
                   "mif",
                   "a MIF/MID pair is two files and can't go to standard output"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(AConversion, RefusesToReplaceItsInput) {
    folder_.Write("a.geojson", kPlaces);
    options_.overwrite = true;

    EXPECT_NE(ErrorOf<app::Failure>({"a.geojson", "a.geojson"}), "none");
    EXPECT_EQ(folder_.Read("a.geojson"), kPlaces);
}

}  // namespace
