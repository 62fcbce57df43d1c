// Many conversions, each in a process of its own.
#include "app/convert/BatchConvert.h"

#include "app/base/Errors.h"
#include "tests/support/KeptMessages.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace {

constexpr const char* kPoint =
    "Version 300\nCharset \"Neutral\"\nCoordSys Earth Projection 1, 104\n"
    "\nColumns 1\n  id Integer\nData\n\nPoint 1 2\n";

class ConversionsOfMany : public testing::Test {
protected:
    ConversionsOfMany() {
        options_.modulePath = QOLF_MODULE;
        options_.noStore = true;
        options_.outputFolder = (folder_.path() / "out").string();
        options_.format = "geojson";
        std::filesystem::create_directories(folder_.path() / "maps/north");
        folder_.Write("maps/a.mif", kPoint);
        folder_.Write("maps/a.mid", "1\n");
        folder_.Write("maps/north/B.MIF", kPoint);
        folder_.Write("maps/notes.txt", "no map");
        options_.paths = {(folder_.path() / "maps").string()};
    }

    int Run() { return app::ConvertMany(options_, messages_.Reporter()); }

    app::ConvertOptions options_;
    support::TemporaryFolder folder_;
    support::KeptMessages messages_;
};

TEST_F(ConversionsOfMany, TakeThePairsInAFolderToTheirPlaces) {
    EXPECT_EQ(Run(), 0);

    EXPECT_TRUE(folder_.Has("out/a.geojson"));
    EXPECT_TRUE(folder_.Has("out/north/B.geojson"));
    EXPECT_EQ(messages_.Text(), "qolf: note: converted 2 of 2 files\n");
}

TEST_F(ConversionsOfMany, WriteTheExtensionOfTheFormatUnderAnyOfItsNames) {
    options_.format = "json";

    EXPECT_EQ(Run(), 0);

    EXPECT_TRUE(folder_.Has("out/a.geojson"));
}

TEST_F(ConversionsOfMany, GoOnBehindAFaultyFile) {
    folder_.Write("maps/c.mif", "no map");

    EXPECT_EQ(Run(), 1);

    EXPECT_TRUE(folder_.Has("out/north/B.geojson"));
    EXPECT_FALSE(folder_.Has("out/c.geojson"));
    EXPECT_NE(messages_.Text().find("maps/c.mif"), std::string::npos);
    EXPECT_TRUE(messages_.Text().ends_with("qolf: note: converted 2 of 3 files, 1 failed\n"));
}

TEST_F(ConversionsOfMany, LeaveWhatExistsUnlessTold) {
    std::filesystem::create_directory(folder_.path() / "out");
    folder_.Write("out/a.geojson", "old");

    EXPECT_EQ(Run(), 1);
    EXPECT_EQ(folder_.Read("out/a.geojson"), "old");
    options_.overwrite = true;
    EXPECT_EQ(Run(), 0);
    EXPECT_NE(folder_.Read("out/a.geojson"), "old");
}

TEST_F(ConversionsOfMany, NeedAFormat) {
    options_.format.clear();

    EXPECT_THROW(Run(), app::UsageError);
}

TEST_F(ConversionsOfMany, RefuseAFolderWithoutPairs) {
    std::filesystem::create_directory(folder_.path() / "empty");
    options_.paths = {(folder_.path() / "empty").string()};
    try {
        Run();
        FAIL() << "the folder is not refused";
    } catch (const app::Failure& failure) {
        EXPECT_EQ(std::string(failure.what()),
                  options_.paths.front() + ": holds no file to convert (looked for *.mif)");
    }
}

}  // namespace
