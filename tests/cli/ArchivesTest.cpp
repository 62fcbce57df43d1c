// Archives and folders wherever a file may be named.
#include "tests/cli/CliRun.h"
#include "tests/support/MadeArchive.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <filesystem>
#include <string>

namespace {

using cli::BytesOf;
using cli::Result;
using cli::Sample;
using support::ArchiveForm;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using Json = nlohmann::json;

class Archives : public testing::Test {
protected:
    Archives() {
        support::MakeArchive(sandbox_.Path("geofla.zip"), ArchiveForm::Zip,
                             {{"2014/island.mif", BytesOf(Sample("island.mif"))},
                              {"2014/island.mid", BytesOf(Sample("island.mid"))},
                              {"texts.mif", BytesOf(Sample("texts.mif"))},
                              {"texts.mid", BytesOf(Sample("texts.mid"))},
                              {"license.txt", "free"}});
    }

    // The names that the answers of info are about.
    std::vector<std::string> FilesOf(const std::vector<std::string>& arguments) {
        std::vector<std::string> all = {"info", "--json"};
        all.insert(all.end(), arguments.begin(), arguments.end());
        const Result result = sandbox_.Qolf(all);
        EXPECT_EQ(result.exitCode, 0) << result.err;
        std::vector<std::string> names;
        const Json json = Json::parse(result.out);
        for (const Json& file : json.at("files")) {
            names.push_back(file.at("file").get<std::string>() +
                            (file.contains("layer") ? ":" + file.at("layer").get<std::string>()
                                                    : std::string()));
        }
        return names;
    }

    cli::Sandbox sandbox_;
};

TEST_F(Archives, AreInputsOfInfo) {
    EXPECT_THAT(FilesOf({"geofla.zip"}),
                ElementsAre("geofla.zip/2014/island.mif", "geofla.zip/texts.mif"));
    EXPECT_THAT(FilesOf({"geofla.zip/2014"}), ElementsAre("geofla.zip/2014/island.mif"));
}

TEST_F(Archives, BecomeALayerForEachFile) {
    const Result result = sandbox_.Qolf({"convert", "geofla.zip", "out.gpkg"});

    EXPECT_EQ(result.exitCode, 0) << result.err;
    EXPECT_THAT(FilesOf({"out.gpkg"}), ElementsAre("out.gpkg:island", "out.gpkg:texts"));
}

TEST_F(Archives, OfOneFileAreThatFile) {
    const Result named = sandbox_.Qolf({"convert", Sample("island.mif"), "named.geojson"});
    const Result packed =
        sandbox_.Qolf({"convert", "geofla.zip/2014/island.mif", "packed.geojson"});

    EXPECT_EQ(named.exitCode + packed.exitCode, 0) << packed.err;
    EXPECT_EQ(sandbox_.Read("packed.geojson"), sandbox_.Read("named.geojson"));
}

TEST_F(Archives, BecomeAFolderOfFiles) {
    const Result result =
        sandbox_.Qolf({"convert", "--to", "geojson", "--output-dir", "out", "geofla.zip"});

    EXPECT_EQ(result.exitCode, 0) << result.err;
    EXPECT_TRUE(std::filesystem::exists(sandbox_.Path("out/2014/island.geojson")));
    EXPECT_TRUE(std::filesystem::exists(sandbox_.Path("out/texts.geojson")));
}

TEST_F(Archives, AreDrawn) {
    const Result result = sandbox_.Qolf({"draw", "geofla.zip/2014", "map.svg"});

    EXPECT_EQ(result.exitCode, 0) << result.err;
    EXPECT_THAT(sandbox_.Read("map.svg"), HasSubstr("<svg"));
}

TEST_F(Archives, AreChecked) {
    const Result result = sandbox_.Qolf({"check", "geofla.zip/2014"});

    EXPECT_EQ(result.out, "geofla.zip/2014/island.mif: nothing found\n");
}

TEST_F(Archives, AreTracedWhenTheyHoldOneFile) {
    const Result named = sandbox_.Qolf({"trace", "--no-store", Sample("island.mif")});
    const Result packed = sandbox_.Qolf({"trace", "--no-store", "geofla.zip/2014"});
    const Result several = sandbox_.Qolf({"trace", "--no-store", "geofla.zip"});

    EXPECT_EQ(packed.out, named.out);
    EXPECT_EQ(several.exitCode, 1);
    EXPECT_EQ(several.err, "qolf: error: geofla.zip: holds several files; name one of them "
                           "(geofla.zip/2014/island.mif): 2014/island.mif, texts.mif\n");
}

TEST_F(Archives, AreNamedInEveryMessage) {
    support::MakeArchive(sandbox_.Path("bad.zip"), ArchiveForm::Zip,
                         {{"maps/bad.mif", "Version 300\nCharset \"Neutral\"\nData\nPoint x 2\n"},
                          {"maps/none.mif", "no header\n"}});
    const std::string temporary = std::filesystem::temp_directory_path().string();
    for (const char* file : {"bad.zip/maps/bad.mif", "bad.zip/maps/none.mif"}) {
        for (const std::vector<std::string>& command : {std::vector<std::string>{"info", file},
                                                        {"info", "--count", "--as-is", file},
                                                        {"check", file},
                                                        {"trace", "--no-store", file},
                                                        {"convert", file, "out.geojson"},
                                                        {"convert", "--as-is", file, "out.geojson"},
                                                        {"draw", file, "map.svg"}}) {
            const Result result = sandbox_.Qolf(command);

            EXPECT_THAT(result.out + result.err, Not(HasSubstr(temporary))) << command.front();
            EXPECT_THAT(result.out + result.err, Not(HasSubstr(".qolf-"))) << command.front();
        }
    }
}

TEST_F(Archives, TakeNoLargerFilesThanIsAllowed) {
    const Result result = sandbox_.Qolf({"--max-size", "1K", "info", "geofla.zip"});

    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.err, "qolf: error: geofla.zip/2014/island.mif: is larger than 1024 bytes; "
                          "--max-size allows more\n");
    EXPECT_EQ(sandbox_.Qolf({"info", "geofla.zip", "--max-size", "1M"}).exitCode, 0);
    EXPECT_EQ(sandbox_.Qolf({"info", "geofla.zip", "--max-size", "much"}).exitCode, 2);
}

TEST_F(Archives, LeaveNothingBehind) {
    const std::filesystem::path temporary = sandbox_.Path("temporary");
    std::filesystem::create_directory(temporary);
    for (const char* command : {"info", "check"}) {
        static_cast<void>(
            sandbox_.Run("/usr/bin/env", {"TMPDIR=" + temporary.string(), cli::Command().string(),
                                          command, "geofla.zip"}));
        EXPECT_TRUE(std::filesystem::is_empty(temporary)) << command;
    }
}

TEST_F(Archives, ThatAreNoneAreRefusedByName) {
    sandbox_.Write("maps.zip", "no archive");

    const Result result = sandbox_.Qolf({"info", "maps.zip"});

    EXPECT_EQ(result.exitCode, 1);
    EXPECT_THAT(result.err, HasSubstr("qolf: error: maps.zip: is not an archive"));
}

TEST_F(Archives, GiveTheSameInEveryForm) {
    support::MakeArchive(sandbox_.Path("roads.mif.gz"), ArchiveForm::Gz,
                         {{"x", BytesOf(Sample("island.mif"))}});
    support::MakeArchive(sandbox_.Path("roads.mid.gz"), ArchiveForm::Gz,
                         {{"x", BytesOf(Sample("island.mid"))}});

    EXPECT_THAT(FilesOf({"roads.mif.gz"}), ElementsAre("roads.mif.gz/roads.mif"));
    EXPECT_EQ(sandbox_.Qolf({"convert", "roads.mif.gz", "out.geojson"}).err, "");
}

TEST(Folders, AreInputsOfInfoAndCheck) {
    const cli::Sandbox sandbox;
    std::filesystem::create_directories(sandbox.Path("maps"));
    for (const char* name : {"island.mif", "island.mid"}) {
        std::filesystem::copy_file(Sample(name), sandbox.Path("maps") / name);
    }

    EXPECT_THAT(sandbox.Qolf({"info", "maps"}).out, HasSubstr("maps/island.mif\n  Size"));
    EXPECT_EQ(sandbox.Qolf({"check", "maps"}).out, "maps/island.mif: nothing found\n");
}

TEST(OtherFormats, AreInputsOfInfo) {
    const cli::Sandbox sandbox;
    sandbox.Write("a.geojson",
                  R"({"type":"FeatureCollection","bbox":[1,2,3,4],"features":[{"type":"Feature",)"
                  R"("properties":{"name":"x","n":1.5},"geometry":{"type":"Point",)"
                  R"("coordinates":[1,2]}}]})");

    const Result text = sandbox.Qolf({"info", "--count", "a.geojson"});
    const Json json =
        Json::parse(sandbox.Qolf({"info", "--json", "--count", "a.geojson"}).out)["files"][0];
    const Result stream = sandbox.Qolf({"info", "-"}, sandbox.Read("a.geojson"));

    EXPECT_EQ(text.out, "a.geojson\n"
                        "  Size      159 bytes\n"
                        "  Format    GeoJSON\n"
                        "  Layer     a\n"
                        "  System    WGS 84\n"
                        "  EPSG      4326 WGS 84\n"
                        "  PROJ      EPSG:4326\n"
                        "  Unit      degree\n"
                        "  Bounds    x 1 to 3, y 2 to 4\n"
                        "  Objects   1 (1 point)\n"
                        "  Vertices  1\n"
                        "  Extent    x 1 to 1, y 2 to 2\n"
                        "  Rows      1\n"
                        "  Columns   2\n"
                        "    name  Char\n"
                        "    n     Float\n");
    EXPECT_EQ(json.at("format"), "geojson");
    EXPECT_EQ(json.at("layer"), "a");
    EXPECT_EQ(json.at("epsg"), 4326);
    EXPECT_EQ(json.at("columns").size(), 2U);
    EXPECT_EQ(json.at("objects").at("points"), 1);
    EXPECT_FALSE(json.contains("version"));
    EXPECT_EQ(stream.exitCode, 0) << stream.err;
    EXPECT_THAT(stream.out, HasSubstr("  Format   GeoJSON\n"));
}

}  // namespace
