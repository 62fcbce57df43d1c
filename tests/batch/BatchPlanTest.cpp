// Which files a conversion of many reads and writes, and what it has done already.
#include "app/batch/BatchPlan.h"

#include "app/base/Errors.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>

namespace {

using std::filesystem::path;

class BatchPlan : public testing::Test {
protected:
    void Touch(const std::string& name) {
        std::filesystem::create_directories((folder_.path() / name).parent_path());
        folder_.Write(name, "x");
    }

    void Write(const std::string& name, const std::string& text) { folder_.Write(name, text); }

    std::string Path(const std::string& name) const { return (folder_.path() / name).string(); }

    std::vector<app::BatchItem> ItemsOf(const std::string& list) {
        constexpr std::array<std::string_view, 1> kExtensions{".mif"};
        return app::PlanBatch(std::vector{Path(list)}, Path("out"), ".gpkg", kExtensions);
    }

    void SetAge(const std::string& name, int seconds) {
        std::filesystem::last_write_time(folder_.path() / name,
                                         std::filesystem::file_time_type::clock::now() -
                                             std::chrono::seconds(seconds));
    }

    // "input>output" an item, relative to the folder.
    std::string Plan(const std::vector<std::string>& inputs,
                     const std::string& outputFolder = "out",
                     const std::string& extension = ".gpkg") {
        constexpr std::array<std::string_view, 1> kExtensions{".mif"};
        std::vector<std::string> arguments;
        for (const std::string& input : inputs) {
            arguments.push_back((folder_.path() / input).string());
        }
        std::string text;
        for (const app::BatchItem& item :
             app::PlanBatch(arguments, folder_.path() / outputFolder, extension, kExtensions)) {
            text += (text.empty() ? "" : " ") + Relative(item.input) + ">" + Relative(item.output);
        }
        return text;
    }

    // "output=layer;" an item, when each package has these layers.
    std::string PlanOfLayers(const std::vector<std::string>& inputs,
                             const std::vector<std::string>& layers) {
        constexpr std::array<std::string_view, 2> kExtensions{".mif", ".gpkg"};
        std::vector<std::string> arguments;
        for (const std::string& input : inputs) {
            arguments.push_back((folder_.path() / input).string());
        }
        const auto layersOf = [&layers](const path& input) {
            return input.extension() == ".gpkg" ? layers : std::vector<std::string>();
        };
        std::string text;
        for (const app::BatchItem& item :
             app::PlanBatch(arguments, folder_.path() / "out", "mif", kExtensions, layersOf)) {
            text += Relative(item.output) + "=" + item.layer + ";";
        }
        return text;
    }

    template <typename Error>
    std::string ErrorOf(const std::vector<std::string>& inputs,
                        const std::string& outputFolder = "out",
                        const std::string& extension = ".gpkg") {
        try {
            return "no error: " + Plan(inputs, outputFolder, extension);
        } catch (const Error& error) {
            return WithoutFolder(error.what());
        }
    }

    bool IsDone(const std::string& input, const std::string& output) {
        return app::IsDone({folder_.path() / input, folder_.path() / output});
    }

private:
    std::string Relative(const path& file) const {
        return file.lexically_relative(folder_.path()).string();
    }

    std::string WithoutFolder(std::string text) const {
        const std::string prefix = (folder_.path() / "").string();
        for (auto at = text.find(prefix); at != std::string::npos; at = text.find(prefix)) {
            text.erase(at, prefix.size());
        }
        return text;
    }

    support::TemporaryFolder folder_;
};

TEST_F(BatchPlan, PutsFilesSideBySideUnderTheNewExtension) {
    Touch("a.mif");
    Touch("sub/B.MIF");

    EXPECT_EQ(Plan({"a.mif", "sub/B.MIF"}), "a.mif>out/a.gpkg sub/B.MIF>out/B.gpkg");
}

TEST_F(BatchPlan, TakesTheMifFilesBelowAFolderInAnyCaseAndInOrder) {
    Touch("maps/z.mif");
    Touch("maps/north/A.Mif");
    Touch("maps/north/A.mid");
    Touch("maps/readme.txt");

    EXPECT_EQ(Plan({"maps"}), "maps/north/A.Mif>out/north/A.gpkg maps/z.mif>out/z.gpkg");
}

TEST_F(BatchPlan, PassesOverFoldersThatAKilledRunLeft) {
    Touch("maps/a.mif");
    Touch("maps/.qolf-abc/b.mif");

    EXPECT_EQ(Plan({"maps"}), "maps/a.mif>out/a.gpkg");
}

TEST_F(BatchPlan, TakesAFileOnceThatIsNamedTwice) {
    Touch("maps/a.mif");

    EXPECT_EQ(Plan({"maps/a.mif", "maps"}), "maps/a.mif>out/a.gpkg");
}

TEST_F(BatchPlan, RefusesTwoInputsOfOneOutput) {
    Touch("one/a.mif");
    Touch("two/a.MIF");

    EXPECT_EQ(ErrorOf<app::UsageError>({"one/a.mif", "two/a.MIF"}),
              "one/a.mif and two/a.MIF would both be written to out/a.gpkg; convert them into "
              "different folders");
}

TEST_F(BatchPlan, RefusesAnOutputThatIsAnInput) {
    Touch("a.mif");

    EXPECT_EQ(ErrorOf<app::UsageError>({"a.mif"}, ".", ".mif"),
              "./a.mif is an input as well; name another --output-dir");
}

TEST_F(BatchPlan, RefusesAFileThatIsNotThere) {
    EXPECT_EQ(ErrorOf<app::Failure>({"none.mif"}), "none.mif: there is no such file");
}

TEST_F(BatchPlan, RefusesAFolderWithoutMaps) {
    Touch("maps/readme.txt");

    EXPECT_EQ(ErrorOf<app::Failure>({"maps"}), "maps: holds no file to convert (looked for *.mif)");
}

TEST_F(BatchPlan, TakesTheFilesOfAListToTheirPlaces) {
    Touch("north/a.mif");
    Write("files.txt", Path("north/a.mif") + "\r\n\n12\t" + Path("none.mif") + "\n");

    const std::vector<app::BatchItem> items = ItemsOf("files.txt");

    ASSERT_EQ(items.size(), 2U);
    EXPECT_EQ(items[0].input, Path("north/a.mif"));
    EXPECT_EQ(items[0].output, Path("out") + Path("north/a.gpkg"));
    EXPECT_EQ(items[0].bytes, std::nullopt);
    EXPECT_EQ(items[1].output, Path("out") + Path("none.gpkg"));
    EXPECT_EQ(items[1].bytes, 12U);
}

TEST_F(BatchPlan, RefusesAListThatLeadsOutOfTheWorkingFolder) {
    Write("files.txt", "a.mif\n../b.mif\n");

    EXPECT_EQ(ErrorOf<app::UsageError>({"files.txt"}),
              "files.txt:2: ../b.mif leads out of the working folder; name it by its whole path");
}

TEST_F(BatchPlan, RefusesAListOfNothing) {
    Write("files.lst", "\n");

    EXPECT_EQ(ErrorOf<app::Failure>({"files.lst"}), "files.lst: lists no file");
}

TEST_F(BatchPlan, CountsAnOutputAsDoneThatIsNewerThanItsInput) {
    Touch("a.mif");
    SetAge("a.mif", 60);
    Touch("a.gpkg");

    EXPECT_TRUE(IsDone("a.mif", "a.gpkg"));
}

TEST_F(BatchPlan, CountsNoOutputAsDoneThatIsOlderThanItsInput) {
    Touch("a.mif");
    Touch("a.gpkg");
    SetAge("a.gpkg", 60);

    EXPECT_FALSE(IsDone("a.mif", "a.gpkg"));
}

TEST_F(BatchPlan, CountsNoOutputAsDoneThatIsOlderThanTheRowsOfItsInput) {
    Touch("a.mif");
    SetAge("a.mif", 120);
    Touch("a.gpkg");
    SetAge("a.gpkg", 60);
    Touch("a.MID");

    EXPECT_FALSE(IsDone("a.mif", "a.gpkg"));
}

TEST_F(BatchPlan, CountsNoPairAsDoneThatLacksItsRows) {
    Touch("a.geojson");
    SetAge("a.geojson", 60);
    Touch("out.mif");

    EXPECT_FALSE(IsDone("a.geojson", "out.mif"));
}

TEST_F(BatchPlan, CountsNothingAsDoneThatIsNotThere) {
    Touch("a.mif");

    EXPECT_FALSE(IsDone("a.mif", "a.gpkg"));
}

TEST_F(BatchPlan, MakesAFileOfEachLayerOfAnInput) {
    Touch("north/maps.gpkg");
    Touch("roads.mif");

    EXPECT_EQ(PlanOfLayers({"roads.mif", "north"}, {"Roads", "a/b", "A:B", "v1.2"}),
              "out/roads.mif=;out/Roads_2.mif=Roads;out/a_b.mif=a/b;out/A_B_2.mif=A:B;"
              "out/v1.2.mif=v1.2;");
}

}  // namespace
