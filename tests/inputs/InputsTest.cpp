// The files behind what a user names: in folders and in archives.
#include "app/inputs/Inputs.h"

#include "app/base/Errors.h"
#include "app/base/Paths.h"
#include "tests/support/KeptMessages.h"
#include "tests/support/MadeArchive.h"
#include "tests/support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace app {
namespace {

using support::ArchiveForm;
using testing::ElementsAre;
using testing::HasSubstr;

class TheInputs : public testing::Test {
protected:
    TheInputs() {
        std::filesystem::create_directories(folder_.path() / "maps/deep");
        for (const char* name : {"maps/b.MIF", "maps/b.mid", "maps/a.geojson", "maps/notes.json",
                                 "maps/deep/c.gpkg", "maps/read me.txt", "roads.mif"}) {
            folder_.Write(name, "x");
        }
        support::MakeArchive(folder_.path() / "maps/geofla.zip", ArchiveForm::Zip,
                             {{"2015/commune.mif", "1"},
                              {"2015/commune.mid", "1"},
                              {"2014/COMMUNE.MIF", "2"},
                              {"2014/commune.mid", "2"},
                              {"2014/lakes.geojson", "3"},
                              {"other.json", "4"},
                              {"rows.mid", "5"},
                              {"license.txt", "6"}});
    }

    // As messages show them, from the folder on.
    std::vector<std::string> Resolve(const std::vector<std::string>& names,
                                     InputRule rule = InputRule::Files) {
        std::vector<std::string> arguments;
        for (const std::string& name : names) {
            arguments.push_back(name == "-" ? name : (folder_.path() / name).string());
        }
        inputs_ = ResolveInputs(arguments, rule, {}, messages_.Reporter());
        std::vector<std::string> shown;
        for (const std::string& argument : inputs_.arguments) {
            const std::string text = PathText(PathFromArgument(argument));
            const std::string prefix = (folder_.path() / "").string();
            shown.push_back(text.starts_with(prefix) ? text.substr(prefix.size()) : text);
        }
        return shown;
    }

    std::string FailureOf(const std::vector<std::string>& names,
                          InputRule rule = InputRule::Files) {
        try {
            Resolve(names, rule);
        } catch (const Failure& failure) {
            return failure.what();
        }
        return "no failure";
    }

    support::TemporaryFolder folder_;
    support::KeptMessages messages_;
    Inputs inputs_;
};

TEST_F(TheInputs, AreTheArgumentsThatNameFiles) {
    EXPECT_THAT(Resolve({"roads.mif", "-", "missing.mif", "maps/notes.json"}),
                ElementsAre("roads.mif", "-", "missing.mif", "maps/notes.json"));
}

TEST_F(TheInputs, OfAFolderAreItsMapsSorted) {
    EXPECT_THAT(Resolve({"maps"}), ElementsAre("maps/a.geojson", "maps/b.MIF", "maps/deep/c.gpkg"));
}

TEST_F(TheInputs, OfAFolderWithoutMapsAreRefused) {
    std::filesystem::create_directory(folder_.path() / "empty");

    EXPECT_EQ(FailureOf({"empty"}), (folder_.path() / "empty").string() + ": holds no map");
}

TEST_F(TheInputs, OfAnArchiveAreItsMapsSorted) {
    EXPECT_THAT(Resolve({"maps/geofla.zip"}), ElementsAre("maps/geofla.zip/2014/COMMUNE.MIF",
                                                          "maps/geofla.zip/2014/lakes.geojson",
                                                          "maps/geofla.zip/2015/commune.mif"));
}

TEST_F(TheInputs, InAnArchiveHaveTheirRowsBesideThem) {
    Resolve({"maps/geofla.zip/2014/COMMUNE.MIF"});

    ASSERT_EQ(inputs_.arguments.size(), 1U);
    EXPECT_FALSE(FindCompanion(inputs_.arguments.front(), ".mid").empty());
}

TEST_F(TheInputs, MayBeAFolderOrAFileInAnArchive) {
    EXPECT_THAT(Resolve({"maps/geofla.zip/2015"}), ElementsAre("maps/geofla.zip/2015/commune.mif"));
    EXPECT_THAT(Resolve({"maps/geofla.zip/other.json"}), ElementsAre("maps/geofla.zip/other.json"));
    EXPECT_THAT(FailureOf({"maps/geofla.zip/2016"}),
                HasSubstr("maps/geofla.zip/2016: is not a file or folder in the archive; it holds "
                          "2014/COMMUNE.MIF, 2014/lakes.geojson, 2015/commune.mif, other.json"));
    support::MakeArchive(folder_.path() / "json.zip", ArchiveForm::Zip, {{"a.json", "1"}});
    EXPECT_THAT(FailureOf({"json.zip"}),
                HasSubstr("json.zip: holds .json files alone; name the one to read: a.json"));
    support::MakeArchive(folder_.path() / "texts.zip", ArchiveForm::Zip, {{"a.txt", "1"}});
    EXPECT_THAT(FailureOf({"texts.zip"}),
                HasSubstr("texts.zip: holds no file that can be read: .mif, .geojson"));
}

TEST_F(TheInputs, OfACompressedFileMayBeJson) {
    support::MakeArchive(folder_.path() / "lakes.json.gz", ArchiveForm::Gz, {{"x", "{}"}});

    EXPECT_THAT(Resolve({"lakes.json.gz"}), ElementsAre("lakes.json.gz/lakes.json"));
}

TEST_F(TheInputs, LeaveFoldersWhereArchivesAloneAreWanted) {
    EXPECT_THAT(Resolve({"maps", "maps/geofla.zip/2015"}, InputRule::Archives),
                ElementsAre("maps", "maps/geofla.zip/2015/commune.mif"));
}

TEST_F(TheInputs, MayBeFoldersInPlaceOfArchives) {
    EXPECT_THAT(Resolve({"maps", "maps/geofla.zip", "maps/geofla.zip/2015"}, InputRule::Folders),
                ElementsAre("maps", "maps/geofla.zip", "maps/geofla.zip/2015/commune.mif"));
    EXPECT_TRUE(std::filesystem::is_directory(inputs_.arguments[1]));
}

TEST_F(TheInputs, AreOneWhereOneIsWanted) {
    EXPECT_THAT(Resolve({"maps/geofla.zip/2015"}, InputRule::OneFile),
                ElementsAre("maps/geofla.zip/2015/commune.mif"));
    EXPECT_THAT(FailureOf({"maps/geofla.zip"}, InputRule::OneFile),
                HasSubstr("maps/geofla.zip: holds several files; name one of them ("));
}

TEST_F(TheInputs, GoWithTheLastCopy) {
    Resolve({"maps/geofla.zip"});
    const std::filesystem::path file = inputs_.arguments.front();
    ASSERT_TRUE(std::filesystem::exists(file));

    inputs_ = {};

    EXPECT_FALSE(std::filesystem::exists(file));
}

TEST_F(TheInputs, OpenWithoutASourceForPairs) {
    EXPECT_EQ(OpenUnlessPair((folder_.path() / "roads.mif").string(), {}).source, nullptr);
    EXPECT_EQ(OpenUnlessPair((folder_.path() / "maps/read me.txt").string(), {}).source, nullptr);
    EXPECT_EQ(OpenUnlessPair((folder_.path() / "maps/a.geojson").string(), {}).words, "GeoJSON");
}

}  // namespace
}  // namespace app
