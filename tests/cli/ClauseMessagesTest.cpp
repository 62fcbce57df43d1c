// What convert and draw say of a CoordSys clause that they read in another way than the module.
#include "tests/cli/CliRun.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <utility>

namespace {

using cli::Result;
using cli::Sandbox;

struct MessageRow {
    std::string name;
    std::string clause;
    std::string message;  // of convert and of draw, on a line of its own
};
void PrintTo(const MessageRow& row, std::ostream* out) {
    *out << row.name;
}

std::size_t CountOf(const std::string& text, const std::string& part) {
    std::size_t count = 0;
    for (auto at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) {
        ++count;
    }
    return count;
}

class AClause : public testing::TestWithParam<MessageRow> {
protected:
    AClause() {
        sandbox_.Write("a.mif", "Version 300\nCoordSys " + GetParam().clause +
                                    "\nColumns 1\n  a Char(9)\nData\nPoint 1 2\nPoint 3 5\n");
        sandbox_.Write("a.mid", "x\ny\n");
    }

    void ExpectMessage(const Result& result) const {
        EXPECT_EQ(result.exitCode, 0);
        EXPECT_EQ(CountOf(result.err, "qolf: " + GetParam().message), 1U) << result.err;
    }

    const Sandbox sandbox_;
};

TEST_P(AClause, IsNotedByConvert) {
    ExpectMessage(sandbox_.Qolf({"convert", "a.mif", "a.geojson"}));
}

TEST_P(AClause, IsNotedByDraw) {
    ExpectMessage(sandbox_.Qolf({"draw", "a.mif", "a.png"}));
}

TEST_P(AClause, IsNotedByNeitherWhenTheSystemIsNamed) {
    for (const auto& [command, output] : {std::pair("convert", "b.gpkg"), {"draw", "b.svg"}}) {
        const Result result =
            sandbox_.Qolf({command, "--assume-crs", "EPSG:32635", "a.mif", output});

        EXPECT_EQ(result.exitCode, 0) << result.err;
        EXPECT_EQ(CountOf(result.err, GetParam().message), 0U) << result.err;
    }
}

// clang-format off
const MessageRow kMessages[] = {
    {"Projection24", R"(Earth Projection 24, 1016, "m", 27, 0, 1, 3500000, 0)", "note: a.mif: projection 24, the Finnish KKJ variant of Transverse Mercator (Gauss-Kruger), is read as projection 8, Transverse Mercator\n"},
    {"Projection34", R"(Earth Projection 34, 104, "m", 27, 0, 1, 500000, 0)", "note: a.mif: projection 34, Extended Transverse Mercator, an exact form of projection 8, is read as projection 8, Transverse Mercator\n"},
    {"Affine", R"(Earth Projection 8, 104, "m", 27, 0, 1, 500000, 0 Affine Units "m", 1, 0, 5, 0, 1, 5)", "note: a.mif: the coordinates are those behind the clause's affine transformation\n"},
    {"BoundsByCode", R"(Earth Projection 2008, 104, "m", 27, 0, 1, 500000, 0, 0, 0, 9, 9)", "note: a.mif: the bounds of projection 2008 are skipped\n"},
    {"FurtherNumbers", R"(Earth Projection 8, 104, "m", 27, 0, 1, 500000, 0, 6, 7)", "warning: a.mif: 2 further numbers of the clause are ignored\n"},
    {"Range", R"(Earth Projection 29, 104, "m", 10, 52, 45)", "note: a.mif: the range of 45 degrees around the centre is ignored; it moves no coordinate\n"},
    {"EllipsoidZero", R"(Earth Projection 1, 999, 0, 1, 2, 3)", "note: a.mif: ellipsoid 0 of the datum is read as GRS 80\n"},
    {"UnknownDatum", R"(Earth Projection 1, 777)", "warning: a.mif: the datum code 777 is not known; WGS 84 is taken\n"},
    {"UnknownProjection", R"(Earth Projection 777, 104, "m", 1, 2)", "warning: a.mif: projection code 777 is not known in this format, and its coordinates can't be placed; "},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(, AClause, testing::ValuesIn(kMessages),
                         [](const auto& row) { return row.param.name; });

TEST_P(AClause, IsNoMatterToCheckWhenTheSystemIsNamed) {
    const Result result = sandbox_.Qolf({"check", "--assume-crs", "EPSG:32635", "a.mif"});

    EXPECT_EQ(CountOf(result.out, "For qolf itself"), 0U) << result.out;
}

// Objects are read without the clause, so that no word of it can stop them.
TEST(AClauseWithoutItsNumbers, LeavesTheDataLineAlone) {
    for (const char* const header : {"Version 300\n", "Version 300\n\nUnique\n", ""}) {
        const Sandbox sandbox;
        sandbox.Write("a.mif", std::string(header) +
                                   "CoordSys Earth Projection 8, 104, \"m\", 20, 0 Bounds\n"
                                   "Data\nPoint 1 2\n");

        const Result result = sandbox.Qolf({"convert", "a.mif", "a.geojson"});

        EXPECT_EQ(result.exitCode, 0) << result.err;
        EXPECT_NE(sandbox.Read("a.geojson").find("[1,2]"), std::string::npos) << result.err;
        EXPECT_NE(result.err.find("the scale factor 0 of the projection"), std::string::npos);
    }
}

}  // namespace
