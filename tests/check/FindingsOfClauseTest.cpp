// What check says that convert, draw and info make of a CoordSys clause.
#include "app/check/CheckRun.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <cstdio>
#include <filesystem>
#include <memory>
#include <ostream>
#include <string>

namespace {

using Json = nlohmann::json;

struct ClauseRow {
    std::string name;
    std::string clause;
    std::string code;          // of the finding
    bool isForOthersOnly;      // the command itself reads it as it was meant
    std::string adviceEnding;  // what the command takes instead
};
void PrintTo(const ClauseRow& row, std::ostream* out) {
    *out << row.name;
}

// The findings on a file with the clause and one point.
Json FindingsOn(const std::string& clause, app::CheckOptions options = {}) {
    const support::TemporaryFolder folder;
    folder.Write("a.mif", "Version 300\nCharset \"WindowsLatin1\"\nDelimiter \",\"\nCoordSys " +
                              clause + "\n\nColumns 1\n  a Char(9)\nData\n\nPoint 500 600\n");
    folder.Write("a.mid", "\"x\"\n");
    options.files = {folder.path() / "a.mif"};
    options.json = true;
    options.modulePath = QOLF_MODULE;
    app::Reporter reporter(stderr, false, false);
    reporter.SetVerbosity(app::Verbosity::Quiet);
    testing::internal::CaptureStdout();
    app::RunCheck(options, reporter);
    return Json::parse(testing::internal::GetCapturedStdout()).at("files").at(0).at("findings");
}

Json FindingOf(const Json& findings, const std::string& code) {
    for (const Json& finding : findings) {
        if (finding.at("code") == code) {
            return finding;
        }
    }
    ADD_FAILURE() << code << " is not in " << findings.dump(1);
    return {{"otherProgramsOnly", false}, {"advice", ""}};
}

class AFindingOnAClause : public testing::TestWithParam<ClauseRow> {};

TEST_P(AFindingOnAClause, SaysWhatTheCommandItselfMakesOfIt) {
    const Json finding = FindingOf(FindingsOn(GetParam().clause), GetParam().code);

    EXPECT_EQ(finding.at("otherProgramsOnly"), GetParam().isForOthersOnly);
    EXPECT_TRUE(finding.at("advice").get<std::string>().ends_with(GetParam().adviceEnding))
        << finding.at("advice");
}

TEST_P(AFindingOnAClause, MattersForOthersOnlyWhenTheSystemIsNamed) {
    app::CheckOptions options;
    options.assumedSystem = std::make_shared<const app::CoordinateSystem>(app::Wgs84System());

    const Json finding = FindingOf(FindingsOn(GetParam().clause, options), GetParam().code);

    EXPECT_EQ(finding.at("otherProgramsOnly"), true);
    EXPECT_EQ(finding.at("advice").get<std::string>().find("qolf itself"), std::string::npos);
}

TEST_P(AFindingOnAClause, IsThatOfTheModuleAloneWithAsIs) {
    app::CheckOptions options;
    options.asIs = true;

    const Json finding = FindingOf(FindingsOn(GetParam().clause, options), GetParam().code);

    EXPECT_EQ(finding.at("otherProgramsOnly"), false);
    EXPECT_EQ(finding.at("advice").get<std::string>().find("qolf itself"), std::string::npos);
}

// clang-format off
const ClauseRow kClauses[] = {
    {"Projection24", R"(Earth Projection 24, 1016, "m", 27, 0, 1, 3500000, 0)", "MIF-C001", true, ""},
    {"Projection34", R"(Earth Projection 34, 104, "m", 27, 0, 1, 500000, 0)", "MIF-C001", true, ""},
    {"Bounds", R"(Earth Projection 2008, 104, "m", 27, 0, 1, 500000, 0, 0, 0, 9, 9)", "MIF-C001", true, ""},
    {"NoComma", R"(Earth Projection 8 104, "m", 27, 0, 1, 500000, 0)", "MIF-C002", true, ""},
    {"Affine", R"(Earth Projection 8, 104, "m", 27, 0, 1, 5, 0 Affine Units "m", 1, 0, 5, 0, 1, 5)", "MIF-C009", true, ""},
    {"EllipsoidZero", R"(Earth Projection 8, 999, 0, 1, 2, 3, "m", 27, 0, 1, 5, 0)", "MIF-C004", true, ""},
    {"Feet", R"(Earth Projection 8, 104, "ft", 27, 0, 1, 500000, 0)", "MIF-C005", true, ""},
    {"Range", R"(Earth Projection 29, 104, "m", 10, 52, 45)", "MIF-C010", true, ""},
    {"Albers", R"(Earth Projection 9, 74, "m", -96, 23, 29.5, 45.5, 3000, 4000)", "MIF-C011", true, ""},
    {"MapGrid", R"(Earth Projection 18, 31, "m", 173, -41, 2510000, 6023150)", "MIF-C012", true, ""},
    {"UnknownProjection", R"(Earth Projection 777, 104, "m", 1, 2)", "MIF-C001", false, " For qolf itself, projection code 777 is not known in this format, and its coordinates can't be placed. qolf itself reads the coordinates with --assume-crs."},
    {"UnknownDatum", R"(Earth Projection 8, 777, "m", 27, 0, 1, 500000, 0)", "MIF-C003", false, " For qolf itself, the datum code 777 is not known; WGS 84 is taken."},
    {"UnknownEllipsoid", R"(Earth Projection 8, 999, 99, 1, 2, 3, "m", 27, 0, 1, 5, 0)", "MIF-C004", false, " For qolf itself, the ellipsoid code 99 is not known; WGS 84 is taken."},
    {"UnknownUnit", R"(Earth Projection 8, 104, "smoot", 27, 0, 1, 500000, 0)", "MIF-C005", false, " For qolf itself, the unit 'smoot' is not known; metres are taken."},
    {"MissingNumbers", R"(Earth Projection 27, 104, "m", 5)", "MIF-C007", false, " For qolf itself, the clause has 1 of the 4 numbers of projection 27; the others count as 0."},
    {"FurtherNumbers", R"(Earth Projection 10, 104, "m", 5, 6, 7)", "MIF-C014", false, " For qolf itself, 2 further numbers of the clause are ignored."},
    {"AffineThatCantBeUndone", R"(Earth Projection 10, 104, "m", 0 Affine Units "m", 1, 2, 5, 2, 4, 5)", "MIF-C009", false, " For qolf itself, the affine transformation of the coordinate system can't be inverted. qolf itself reads the coordinates with --assume-crs."},
    {"AffineThatLacksNumbers", R"(Earth Projection 10, 104, "m", 0 Affine Units "m", 1, 0, 5, 0, 1)", "MIF-C009", false, " For qolf itself, the affine transformation lacks numbers; they count as 0."},
    {"UnknownUnitOfAnAffine", R"(Earth Projection 10, 104, "m", 0 Affine Units "smoot", 1, 0, 5, 0, 1, 5)", "MIF-C009", false, " For qolf itself, the unit 'smoot' is not known; metres are taken."},
    {"OtherMapGrid", R"(Earth Projection 18, 31, "m", 173, -41, 0, 0)", "MIF-C012", false, " For qolf itself, the New Zealand Map Grid has its own constants; other numbers are ignored."},
    {"KnownUnitBesideAnUnknownDatum", R"(Earth Projection 8, 777, "ft", 27, 0, 1, 500000, 0)", "MIF-C005", true, ""},
    {"UnknownDatumBesideAnUnknownUnit", R"(Earth Projection 8, 777, "smoot", 27, 0, 1, 500000, 0)", "MIF-C003", false, ". For qolf itself, the datum code 777 is not known; WGS 84 is taken."},
    {"UnknownUnitBesideAnUnknownDatum", R"(Earth Projection 8, 777, "smoot", 27, 0, 1, 500000, 0)", "MIF-C005", false, "(the last three of survey feet). For qolf itself, the unit 'smoot' is not known; metres are taken."},
    {"UnknownDatumOfAnUnknownProjection", R"(Earth Projection 777, 777, "m", 1, 2)", "MIF-C003", false, "EPSG:…'."},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(, AFindingOnAClause, testing::ValuesIn(kClauses),
                         [](const auto& row) { return row.param.name; });

struct AddedRow {
    std::string name;
    std::string clause;
    std::string code;
    std::string message;
};
void PrintTo(const AddedRow& row, std::ostream* out) {
    *out << row.name;
}

// The module does not notice what is wrong here.
class AFaultOfAClause : public testing::TestWithParam<AddedRow> {};

TEST_P(AFaultOfAClause, IsAFindingOfItsOwn) {
    const Json finding = FindingOf(FindingsOn(GetParam().clause), GetParam().code);

    EXPECT_EQ(finding.at("message"), GetParam().message);
    EXPECT_EQ(finding.at("otherProgramsOnly"), false);
}

TEST_P(AFaultOfAClause, IsNothingToTheModule) {
    app::CheckOptions options;
    options.asIs = true;

    for (const Json& finding : FindingsOn(GetParam().clause, options)) {
        EXPECT_NE(finding.at("code"), GetParam().code);
    }
}

// clang-format off
const AddedRow kAdded[] = {
    {"NoUnit", R"(Earth Projection 8, 104, 27, 0, 1, 500000, 0)", "MIF-C020", "the clause has no unit; metres are taken"},
    {"NothingBehindTheDatum", R"(Earth Projection 10, 104)", "MIF-C020", "the clause has no unit; metres are taken"},
    {"LatitudeBeyondThePole", R"(Earth Projection 8, 104, "m", 27, 100, 1, 500000, 0)", "MIF-C021", R"(the origin latitude 100 of the projection "Transverse Mercator" is missing or out of range)"},
    {"OppositeParallels", R"(Earth Projection 3, 104, "m", 27, 0, 10, -10, 5, 0)", "MIF-C021", R"(the standard parallels of the projection "Lambert Conformal Conic" are missing, or equal and opposite)"},
    {"AffineByItsCode", R"(Earth Projection 1010, 104, "m", 0, "m", 1, 2, 5, 2, 4, 5)", "MIF-C009", "the affine transformation of the coordinate system can't be inverted"},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(, AFaultOfAClause, testing::ValuesIn(kAdded),
                         [](const auto& row) { return row.param.name; });

bool HasOutsideEarth(const Json& findings) {
    for (const Json& finding : findings) {
        if (finding.at("name") == "outside-earth") {
            return true;
        }
    }
    return false;
}

TEST(ANamedSystem, SaysWhatCoordinatesCanBe) {
    app::CheckOptions degrees;
    degrees.assumedSystem = std::make_shared<const app::CoordinateSystem>(app::Wgs84System());

    EXPECT_TRUE(HasOutsideEarth(FindingsOn("Earth Projection 10, 104, \"m\", 0", degrees)));
    EXPECT_FALSE(HasOutsideEarth(FindingsOn("Earth Projection 10, 104, \"m\", 0")));
}

}  // namespace
