// Clauses as their authors meant them.
//
// Expected places come from cs2cs, run by hand with definitions that were written for it, as in
//   echo 4 102.25 | cs2cs -f %.4f EPSG:4742 +to EPSG:3375
#include "app/crs/ReadClause.h"
#include "app/crs/WriteClause.h"
#include "tests/crs/Systems.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr double kMillimetre = 0.001;
constexpr double kMillimetreInDegrees = 8e-9;

struct SameRow {
    std::string name;
    std::string clause;
    std::string plain;  // a clause that means the same, in the usual words
};
void PrintTo(const SameRow& row, std::ostream* out) {
    *out << row.name;
}

class AnUnusualClause : public testing::TestWithParam<SameRow> {};

TEST_P(AnUnusualClause, MeansTheSameAsThePlainOne) {
    const app::CoordinateSystem system = app::ReadClause(GetParam().clause);
    const app::CoordinateSystem plain = app::ReadClause(GetParam().plain);

    ASSERT_TRUE(plain.IsOnEarth()) << plain.problem;
    ASSERT_TRUE(system.IsOnEarth()) << system.problem;
    EXPECT_TRUE(app::IsSameSystem(system, plain)) << system.definition << "\n" << plain.definition;
}

// clang-format off
const SameRow kSame[] = {
    {"FinnishTransverseMercator", R"(Earth Projection 24, 1016, "m", 27, 0, 1, 3500000, 0)", R"(Earth Projection 8, 1016, "m", 27, 0, 1, 3500000, 0)"},
    {"FinnishOnAnotherDatum", R"(Earth Projection 24, 115, "m", 27, 0, 1, 3500000, 0)", R"(Earth Projection 8, 115, "m", 27, 0, 1, 3500000, 0)"},
    {"ExtendedTransverseMercator", R"(Earth Projection 34, 104, "m", 27, 0, 1, 500000, 0)", R"(Earth Projection 8, 104, "m", 27, 0, 1, 500000, 0)"},
    {"BoundsByCode", R"(Earth Projection 2008, 104, "m", 27, 0, 1, 500000, 0 Bounds (0, 0) (9, 9))", R"(Earth Projection 8, 104, "m", 27, 0, 1, 500000, 0)"},
    {"BoundsAsNumbers", R"(Earth Projection 2008, 104, "m", 27, 0, 1, 500000, 0, 0, 0, 9, 9)", R"(Earth Projection 8, 104, "m", 27, 0, 1, 500000, 0)"},
    {"BoundsOfACone", R"(Earth Projection 2003, 104, "m", 3, 46.5, 44, 49, 7, 8)", R"(Earth Projection 3, 104, "m", 3, 46.5, 44, 49, 7, 8)"},
    {"BoundsOfExtendedTransverseMercator", R"(Earth Projection 2034, 104, "m", 27, 0, 1, 5, 0 Bounds (0, 0) (9, 9))", R"(Earth Projection 8, 104, "m", 27, 0, 1, 5, 0)"},
    {"AffineByCodeWithItsUnit", R"(Earth Projection 1008, 104, "m", 15, 0, 0.9996, 500000, 0, 7, 0.5, -0.866, 100, 0.866, 0.5, 200)", R"(Earth Projection 8, 104, "m", 15, 0, 0.9996, 500000, 0 Affine Units "m", 0.5, -0.866, 100, 0.866, 0.5, 200)"},
    {"AffineByCodeWithANamedUnit", R"(Earth Projection 1010, 104, "m", 15, "ft", 1, 2, 3, 4, 5, 6)", R"(Earth Projection 10, 104, "m", 15 Affine Units "ft", 1, 2, 3, 4, 5, 6)"},
    {"AffineByCodeWithoutItsUnit", R"(Earth Projection 1010, 104, "m", 15, 1, 2, 3, 4, 5, 6)", R"(Earth Projection 10, 104, "m", 15 Affine Units "m", 1, 2, 3, 4, 5, 6)"},
    {"AffineByCodeAndKeyword", R"(Earth Projection 1010, 104, "m", 15 Affine Units "m", 1, 2, 3, 4, 5, 6)", R"(Earth Projection 10, 104, "m", 15 Affine Units "m", 1, 2, 3, 4, 5, 6)"},
    {"AffineAndBoundsByCode", R"(Earth Projection 3010, 104, "m", 15, 7, 1, 2, 3, 4, 5, 6, 0, 0, 9, 9)", R"(Earth Projection 10, 104, "m", 15 Affine Units "m", 1, 2, 3, 4, 5, 6)"},
    {"AffineAndBoundsByCodeAndKeywords", R"(Earth Projection 3010, 104, "m", 15 Affine Units "m", 1, 2, 3, 4, 5, 6 Bounds (0, 0) (9, 9))", R"(Earth Projection 10, 104, "m", 15 Affine Units "m", 1, 2, 3, 4, 5, 6)"},
    {"EllipsoidOfCodeZero", R"(Earth Projection 1, 999, 0, 0, 0, 0)", R"(Earth Projection 1, 9999, 0, 0, 0, 0, 0, 0, 0, 0, 0)"},
    {"AlbersWithSixNumbers", R"(Earth Projection 9, 74, "m", -96, 23, 29.5, 45.5, 3000, 4000)", R"(Earth Projection 9, 74, "m", -96, 23, 29.5, 45.5, 3000, 4000, 0)"},
    {"AlbersWithAnAzimuth", R"(Earth Projection 9, 74, "m", -96, 23, 29.5, 45.5, 0, 3000, 4000)", R"(Earth Projection 9, 74, "m", -96, 23, 29.5, 45.5, 3000, 4000)"},
    {"MapGridWithTwoNumbers", R"(Earth Projection 18, 31, "m", 173, -41)", R"(Earth Projection 18, 31, "m", 173, -41, 2510000, 6023150)"},
    {"NoCommaBehindTheCode", R"(Earth Projection 8 104, "m", 27, 0, 1, 500000, 0)", R"(Earth Projection 8, 104, "m", 27, 0, 1, 500000, 0)"},
    {"OtherLetters", R"(EARTH PROJECTION 8, 104, "M", 27, 0, 1, 500000, 0)", R"(Earth Projection 8, 104, "m", 27, 0, 1, 500000, 0)"},
    {"AMinusApart", R"(Earth Projection 8, 104, "m", - 27, 0, 1, 500000, 0)", R"(Earth Projection 8, 104, "m", -27, 0, 1, 500000, 0)"},
    {"Feet", R"(Earth Projection 8, 104, "ft", 27, 0, 1, 500000, 0)", R"(Earth Projection 8, 104, "3.280839895013123", 27, 0, 1, 500000, 0)"},
    {"Kilometres", R"(Earth Projection 8, 104, "km", 27, 0, 1, 500, 0)", R"(Earth Projection 8, 104, "0.001", 27, 0, 1, 500, 0)"},
    {"SurveyFeetByAnotherName", R"(Earth Projection 8, 104, "us survey ft", 27, 0, 1, 500000, 0)", R"(Earth Projection 8, 104, "survey ft", 27, 0, 1, 500000, 0)"},
    {"TheNumberOfTheMetre", R"(Earth Projection 8, 104, 7, 27, 0, 1, 500000, 0)", R"(Earth Projection 8, 104, "m", 27, 0, 1, 500000, 0)"},
    {"NoUnit", R"(Earth Projection 8, 104, 27, 0, 1, 500000, 0)", R"(Earth Projection 8, 104, "m", 27, 0, 1, 500000, 0)"},
    {"DegreesWithAUnit", R"(Earth Projection 1, 104, "degree")", R"(Earth Projection 1, 104)"},
    {"EarthAlone", R"(Earth)", R"(Earth Projection 1, 104)"},
    {"EarthWithBounds", R"(Earth Bounds (0, 0) (9, 9))", R"(Earth Projection 1, 104)"},
    {"AzimuthalAtThePole", R"(Earth Projection 4, 104, "m", 10, 90, 45)", R"(Earth Projection 4, 104, "m", 10, 90, 90)"},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(, AnUnusualClause, testing::ValuesIn(kSame),
                         [](const auto& row) { return row.param.name; });

struct PlaceRow {
    std::string name;
    std::string clause;
    Place inFile;
    Place onWgs84;
};
void PrintTo(const PlaceRow& row, std::ostream* out) {
    *out << row.name;
}

class APlace : public testing::TestWithParam<PlaceRow> {};

TEST_P(APlace, LiesWhereTheClauseMeans) {
    const Place place = OnWgs84(app::ReadClause(GetParam().clause), GetParam().inFile);

    EXPECT_NEAR(place.x, GetParam().onWgs84.x, kMillimetreInDegrees);
    EXPECT_NEAR(place.y, GetParam().onWgs84.y, kMillimetreInDegrees);
}

TEST_P(APlace, HasTheCoordinatesOfTheFile) {
    const Place place = FromWgs84(app::ReadClause(GetParam().clause), GetParam().onWgs84);

    EXPECT_NEAR(place.x, GetParam().inFile.x, kMillimetre);
    EXPECT_NEAR(place.y, GetParam().inFile.y, kMillimetre);
}

// clang-format off
const PlaceRow kPlaces[] = {
    // The numbers and the places of EPSG:3375.
    {"Malaysia", R"(Earth Projection 35, 33, "m", 102.25, 4, 323.025796466667, 323.130102361111, 0.99984, 804671, 0)", {472830.42607, 442454.09868}, {102.25, 4}},
    {"MalaysiaInTheSouth", R"(Earth Projection 35, 33, "m", 102.25, 4, 323.025796466667, 323.130102361111, 0.99984, 804671, 0)", {633724.93536, 165881.56880}, {103.7, 1.5}},
    {"EqualAreaCylinder", R"(Earth Projection 2, 104, "m", 5, 30)", {482431.40125, 5614050.10306}, {10, 50}},
    {"RegionalMercator", R"(Earth Projection 26, 104, "m", 5, 30)", {482431.40125, 5558928.87201}, {10, 50}},
    {"Gall", R"(Earth Projection 17, 104, "m", 5)", {393573.83409, 5077232.82210}, {10, 50}},
    {"SwissOblique", R"(Earth Projection 25, 104, "m", 7.43958333333333, 46.9524055555556, 600000, 200000)", {661492.33506, 219505.44061}, {8.25, 47.125}},
    {"DoubleStereographic", R"(Earth Projection 31, 104, "m", 5.38763888888889, 52.1561605555556, 0.9999079, 155000, 463000)", {128380.22068, 445696.82176}, {5, 52}},
    // Twice as large, turned by a quarter and moved.
    {"Affine", R"(Earth Projection 8, 104, "m", 9, 0, 0.9996, 500000, 0 Affine Units "m", 0, -2, 10, 2, 0, 20)", {-11078209.6306, 1143352.8950}, {10, 50}},
    {"AffineInKilometres", R"(Earth Projection 8, 104, "m", 9, 0, 0.9996, 500000, 0 Affine Units "km", 1, 0, 1000, 0, 1, 2000)", {1571.6664475, 7539.1098153}, {10, 50}},
    {"AffineOfDegrees", R"(Earth Projection 1, 104 Affine Units "degree", 10, 0, 1, 0, 10, 2)", {101, 502}, {10, 50}},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(, APlace, testing::ValuesIn(kPlaces),
                         [](const auto& row) { return row.param.name; });

struct SayingRow {
    std::string name;
    std::string clause;
    std::vector<std::string> notes;
    std::vector<std::string> warnings;
};
void PrintTo(const SayingRow& row, std::ostream* out) {
    *out << row.name;
}

class ASaying : public testing::TestWithParam<SayingRow> {};

TEST_P(ASaying, ComesWithTheSystem) {
    const app::CoordinateSystem system = app::ReadClause(GetParam().clause);

    EXPECT_TRUE(system.IsOnEarth()) << system.problem;
    EXPECT_EQ(system.notes, GetParam().notes);
    EXPECT_EQ(system.warnings, GetParam().warnings);
}

// clang-format off
const SayingRow kSayings[] = {
    {"NothingOfAPlainClause", R"(Earth Projection 8, 104, "m", 27, 0, 1, 500000, 0 Bounds (0, 0) (9, 9))", {}, {}},
    {"Bounds", R"(Earth Projection 2008, 104, "m", 27, 0, 1, 500000, 0, 0, 0, 9, 9)", {"the bounds of projection 2008 are skipped"}, {}},
    {"GivenEllipsoidZero", R"(Earth Projection 1, 999, 0, 1, 2, 3)", {"ellipsoid 0 of the datum is read as GRS 80"}, {}},
    {"Finnish", R"(Earth Projection 24, 1016, "m", 27, 0, 1, 3500000, 0)", {"projection 24, the Finnish KKJ variant of Transverse Mercator (Gauss-Kruger), is read as projection 8, Transverse Mercator"}, {}},
    {"Extended", R"(Earth Projection 34, 104, "m", 27, 0, 1, 500000, 0)", {"projection 34, Extended Transverse Mercator, an exact form of projection 8, is read as projection 8, Transverse Mercator"}, {}},
    {"Range", R"(Earth Projection 29, 104, "m", 10, 52, 45)", {"the range of 45 degrees around the centre is ignored; it moves no coordinate"}, {}},
    {"Affine", R"(Earth Projection 10, 104, "m", 0 Affine Units "m", 1, 0, 5, 0, 1, 5)", {"the coordinates are those behind the clause's affine transformation"}, {}},
    {"UnitNumber", R"(Earth Projection 10, 104, 8, 0)", {"the unit 8 is read as a number of the format's list: survey ft"}, {}},
    {"EarthAlone", R"(Earth)", {"no projection is given; longitude and latitude of WGS 84 are taken"}, {}},
    {"UnknownDatum", R"(Earth Projection 1, 777)", {}, {"the datum code 777 is not known; WGS 84 is taken"}},
    {"UnknownEllipsoid", R"(Earth Projection 1, 999, 99, 1, 2, 3)", {}, {"the ellipsoid code 99 is not known; WGS 84 is taken"}},
    {"UnknownUnit", R"(Earth Projection 10, 104, "smoot", 0)", {}, {"the unit 'smoot' is not known; metres are taken"}},
    {"NoUnit", R"(Earth Projection 10, 104, 0)", {}, {"the clause has no unit; metres are taken"}},
    {"MissingNumbers", R"(Earth Projection 27, 104, "m", 5)", {}, {"the clause has 1 of the 4 numbers of projection 27; the others count as 0"}},
    {"FurtherNumbers", R"(Earth Projection 10, 104, "m", 5, 6, 7)", {}, {"2 further numbers of the clause are ignored"}},
    {"OtherMapGrid", R"(Earth Projection 18, 31, "m", 173, -41, 0, 0)", {}, {"the New Zealand Map Grid has its own constants; other numbers are ignored"}},
    {"AlbersWithAnAzimuth", R"(Earth Projection 9, 74, "m", -96, 23, 29.5, 45.5, 0, 3000, 4000)", {"the fifth of seven numbers of the Albers projection is read as an azimuth"}, {}},
    {"AlbersWithASeventhNumber", R"(Earth Projection 9, 74, "m", -96, 23, 29.5, 45.5, 1, 2, 3)", {}, {"the seventh number of the Albers projection is ignored"}},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(, ASaying, testing::ValuesIn(kSayings),
                         [](const auto& row) { return row.param.name; });

struct ProblemRow {
    std::string name;
    std::string clause;
    app::SystemKind kind;
    std::string problem;
};
void PrintTo(const ProblemRow& row, std::ostream* out) {
    *out << row.name;
}

class AProblem : public testing::TestWithParam<ProblemRow> {};

TEST_P(AProblem, LeavesTheSystemUnknownAndSaysWhy) {
    const app::CoordinateSystem system = app::ReadClause(GetParam().clause);

    EXPECT_EQ(system.kind, GetParam().kind);
    EXPECT_EQ(system.problem, GetParam().problem);
}

// clang-format off
const ProblemRow kProblems[] = {
    {"ACodeThatNobodyKnows", R"(Earth Projection 777, 104, "m", 1, 2)", app::SystemKind::Unknown, "projection code 777 is not known in this format, and its coordinates can't be placed"},
    {"ACodeKnownByNameAlone", R"(Earth Projection 32, 104, "m", 1, 2)", app::SystemKind::Unknown, "projection code 32 is Krovak, and its coordinates can't be placed"},
    {"ACodeWithThousandsOfNone", R"(Earth Projection 2099, 104, "m", 1, 2)", app::SystemKind::Unknown, "projection code 2099 is not known in this format, and its coordinates can't be placed"},
    {"AScaleOfZero", R"(Earth Projection 8, 104, "m", 27, 0)", app::SystemKind::Unknown, "the scale factor 0 of the projection \"Transverse Mercator\" is missing or out of range"},
    {"ALatitudeBeyondThePole", R"(Earth Projection 27, 104, "m", 0, 91, 0, 0)", app::SystemKind::Unknown, "the origin latitude 91 of the projection \"Polyconic\" is missing or out of range"},
    {"OppositeParallels", R"(Earth Projection 3, 104, "m", 0, 0, 20, -20, 0, 0)", app::SystemKind::Unknown, "the standard parallels of the projection \"Lambert Conformal Conic\" are missing, or equal and opposite"},
    {"AnAffineThatCantBeInverted", R"(Earth Projection 10, 104, "m", 0 Affine Units "m", 1, 2, 5, 2, 4, 5)", app::SystemKind::Faulty, "the affine transformation of the coordinate system can't be inverted"},
    {"AnAffineWithoutNumbers", R"(Earth Projection 1010, 104, "m", 0)", app::SystemKind::Faulty, "the affine transformation of the coordinate system can't be inverted"},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(, AProblem, testing::ValuesIn(kProblems),
                         [](const auto& row) { return row.param.name; });

struct VersionRow {
    std::string name;
    std::string clause;
    std::optional<int> version;
};
void PrintTo(const VersionRow& row, std::ostream* out) {
    *out << row.name;
}

class ANeededVersion : public testing::TestWithParam<VersionRow> {};

TEST_P(ANeededVersion, IsTheLowestThatHasAllOfTheClause) {
    EXPECT_EQ(app::VersionOfClause(GetParam().clause), GetParam().version);
}

// clang-format off
const VersionRow kVersions[] = {
    {"Plane", R"(NonEarth Units "m" Bounds (0, 0) (9, 9))", 300},
    {"OldCodes", R"(Earth Projection 8, 104, "m", 27, 0, 1, 500000, 0)", 300},
    {"DatumOfItsOwnNumbers", R"(Earth Projection 8, 999, 28, 1, 2, 3, "m", 27, 0, 1, 500000, 0)", 450},
    {"DatumWithRotations", R"(Earth Projection 1, 9999, 28, 1, 2, 3, 4, 5, 6, 7, 0)", 450},
    {"LaterDatum", R"(Earth Projection 8, 1016, "m", 27, 0, 1, 500000, 0)", 600},
    {"LaterProjection", R"(Earth Projection 24, 104, "m", 27, 0, 1, 500000, 0)", app::KnownProjection(24)->fromVersion},
    {"Affine", R"(Earth Projection 10, 104, "m", 0 Affine Units "m", 1, 0, 5, 0, 1, 5)", 650},
    {"AffineByItsCode", R"(Earth Projection 1010, 104, "m", 15, 1, 2, 3, 4, 5, 6)", 650},
    {"UnknownProjection", R"(Earth Projection 777, 104, "m", 1, 2)", std::nullopt},
    {"UnknownDatum", R"(Earth Projection 8, 777, "m", 27, 0, 1, 500000, 0)", std::nullopt},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(, ANeededVersion, testing::ValuesIn(kVersions),
                         [](const auto& row) { return row.param.name; });

TEST(AClauseOfAPlane, HasItsUnit) {
    EXPECT_EQ(app::UnitInWords(app::ReadClause("NonEarth Units \"ft\" Bounds (0, 0) (9, 9)")),
              "ft");
    EXPECT_EQ(app::ReadClause("Layout Units \"cm\"").kind, app::SystemKind::Plane);
    EXPECT_EQ(app::ReadClause("").kind, app::SystemKind::Plane);
}

TEST(AClauseOfAPlane, WarnsOfAKindThatIsNotKnown) {
    EXPECT_THAT(app::ReadClause("Layout Units \"cm\"").warnings, IsEmpty());
    EXPECT_THAT(app::ReadClause("").warnings, IsEmpty());
    EXPECT_THAT(app::ReadClause("Somewhere Units \"m\"").warnings,
                ElementsAre("the CoordSys clause names no kind of system that is known; the "
                            "coordinates are taken as plain numbers"));
}

// The register's system for the same maps has rounded parallels, 43 mm away.
TEST(TheBelgianCone, TurnsCoordinatesLikeTheSystemThatHasTheTurnInItsMeridian) {
    const Place place = Moved(
        app::ReadClause("Earth Projection 19, 110, \"m\", 4.35693972222222, 90, 49.8333333333333, "
                        "51.1666666666667, 150000.01256, 5400088.4378"),
        app::ReadClause("Earth Projection 3, 110, \"m\", 4.367486666666666, 90, 51.16666723333333, "
                        "49.8333339, 150000.013, 5400088.438"),
        {148768.5373, 171006.2133});

    EXPECT_NEAR(place.x, 148768.5373, 0.05);
    EXPECT_NEAR(place.y, 171006.2133, 0.05);
}

TEST(AnUnknownDatum, IsNotTakenForThatOfWgs84ByName) {
    EXPECT_EQ(app::ReadClause("Earth Projection 1, 777").name,
              "Unknown datum / Longitude/Latitude");
}

TEST(TheDatumOfCode113, IsThatOfLisbonWhichTheModuleDoesNotFind) {
    EXPECT_EQ(app::ReadClause("Earth Projection 1, 113").name, "Lisboa (DLx) / Longitude/Latitude");
}

}  // namespace
