// How often a conversion opens its input.
#include "tests/cli/CliRun.h"
#include "tests/cli/OpenWatch.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

namespace {

class PlainConversion : public testing::TestWithParam<const char*> {};

TEST_P(PlainConversion, OpensEachFileOfThePairTwice) {
    const cli::Sandbox sandbox;
    std::filesystem::copy_file(cli::Sample("island.mif"), sandbox.Path("in.mif"));
    std::filesystem::copy_file(cli::Sample("island.mid"), sandbox.Path("in.mid"));
    const cli::OpenWatch mif(sandbox.Path("in.mif"));
    const cli::OpenWatch mid(sandbox.Path("in.mid"));

    const cli::Result result =
        sandbox.Qolf({"convert", "--no-store", "in.mif", std::string("out") + GetParam()});

    ASSERT_EQ(result.exitCode, 0) << result.err;
    EXPECT_EQ(mif.Count(), 2);
    EXPECT_EQ(mid.Count(), 2);
}

INSTANTIATE_TEST_SUITE_P(To, PlainConversion,
                         testing::Values(".geojson", ".geojsonl", ".gpkg", ".mif"),
                         [](const auto& row) { return std::string(row.param + 1); });

TEST(AnOpenWatch, CountsEveryOpening) {
    const cli::Sandbox sandbox;
    const std::filesystem::path file = sandbox.Write("a", "text");
    const cli::OpenWatch watch(file);

    for (int i = 0; i < 3; ++i) {
        std::ifstream reader(file);
    }

    EXPECT_EQ(watch.Count(), 3);
}

}  // namespace
