// The COORDSYS clause: what it becomes, what it objects to and where it stops.
#include "reader/CoordSysParser.h"
#include "host/gcs/KnownLists.h"
#include "host/shr/Text.h"
#include "reader/ReferenceTables.h"
#include "tests/reader/Sources.h"

#include <gtest/gtest.h>

#include <string>

using namespace std::string_literals;

namespace {

using gcs::DatumMethod;
using gcs::ProjectionMethod;
using Id = gcs::ProjectionParameterID;

// A clause of a header, read.
struct ReadClause {
    explicit ReadClause(const std::string& clause) : text(readertest::Source::Stream, clause) {
        mif::ReadCoordSysClause(text.input(), result);
    }

    double Parameter(Id id) const { return result.projection.GetParameter(id); }

    readertest::OpenText text;
    mif::CoordSysClause result;
};

constexpr double kFeetPerMetre = 3.28083333333333;
constexpr double kClarkeRadius = 6378206.4;
constexpr double kClarkeFlattening = 0.0033900753040885176;

gcs::DatumDef KnownDatum(const wchar_t* token) {
    gcs::DatumDef datum;
    static_cast<void>(gcs::GCSKnownDatumsList.FindByToken(token, &datum));
    return datum;
}

TEST(CoordSys, OfLongitudeLatitudeAndWgs84) {
    const ReadClause clause("CoordSys Earth Projection 1, 104\n\nnext\n");

    EXPECT_TRUE(clause.result.isValid);
    EXPECT_EQ(clause.result.message, L"");
    EXPECT_TRUE(clause.result.hasEarthProjection);
    EXPECT_EQ(clause.result.projection.GetMethod(), ProjectionMethod::LongitudeLatitude);
    EXPECT_EQ(clause.Parameter(Id::UnitsPerMetre), 1.0);
    EXPECT_EQ(clause.result.datum.GetToken(), L"DATUM_WGS84");
    ASSERT_NE(clause.result.projection.GetEllipsoid(), nullptr);
    EXPECT_EQ(*clause.result.projection.GetEllipsoid(), KnownDatum(L"DATUM_WGS84").GetEllipsoid());
}

TEST(CoordSys, KeptAClauseThatEndsAtItsDatumTakesTheFollowingLine) {
    const ReadClause clause("CoordSys Earth Projection 1, 104\nColumns 2\n  A Integer\n");

    EXPECT_TRUE(clause.result.isValid);
    EXPECT_EQ(clause.text.token(), "A");
}

TEST(CoordSys, TakesACommaWithANulBehindItForAComma) {
    const ReadClause clause("CoordSys Earth\0x Projection\0x 1 \",\0x\" 104, \"m\"\nnext\n"s);

    EXPECT_TRUE(clause.result.isValid);
    EXPECT_EQ(clause.result.datum.GetToken(), L"DATUM_WGS84");
}

TEST(CoordSys, OfLongitudeLatitudeWithAUnitLeavesTheFollowingLine) {
    const ReadClause clause("CoordSys Earth Projection 1, 104, \"degree\"\nColumns 2\n");

    EXPECT_TRUE(clause.result.isValid);
    EXPECT_EQ(clause.text.token(), "Columns");
    EXPECT_EQ(clause.Parameter(Id::UnitsPerMetre), 1.0);
}

struct PlainRow {
    std::string name;
    std::string clause;
};
void PrintTo(const PlainRow& row, std::ostream* out) {
    *out << row.name;
}

class CoordSysOfNoEarthProjection : public testing::TestWithParam<PlainRow> {};

TEST_P(CoordSysOfNoEarthProjection, IsValidAndUnknown) {
    const ReadClause clause(GetParam().clause + "\nnext\n");

    EXPECT_TRUE(clause.result.isValid);
    EXPECT_EQ(clause.result.message, L"");
    EXPECT_FALSE(clause.result.hasEarthProjection);
    EXPECT_TRUE(clause.result.datum.IsUnknown());
    EXPECT_EQ(clause.result.projection, gcs::ProjectionDef());
    EXPECT_EQ(clause.text.token(), "next");
}

INSTANTIATE_TEST_SUITE_P(
    , CoordSysOfNoEarthProjection,
    testing::Values(PlainRow{"Nonearth", "CoordSys Nonearth Units \"m\" Bounds (0, 0) (100, 100)"},
                    PlainRow{"AnotherWord", "CoordSys Layout Units \"in\""},
                    PlainRow{"NothingAtAll", "CoordSys"},
                    PlainRow{"EarthWithoutAProjection", "CoordSys Earth Units \"m\""},
                    PlainRow{"EarthAlone", "CoordSys Earth\n  Affine"}),
    [](const auto& row) { return row.param.name; });

TEST(CoordSys, OfNonearthLeavesTheBoundsOnItsLineUnread) {
    readertest::FilePair pair("Version 300\nCoordSys Nonearth Units \"m\" Bounds (1, 2) (3, 4)\n"
                              "Data\n\n");

    ASSERT_TRUE(pair.Open());

    EXPECT_EQ(pair.reader().bounds().x1, 0.0);
    EXPECT_EQ(pair.reader().bounds().y2, 0.0);
    EXPECT_FALSE(pair.reader().hasEarthProjection());
}

TEST(CoordSys, MayBreakBehindEarth) {
    const ReadClause clause("COORDSYS Earth  \n  Projection 1, 104, \"m\"\nnext\n");

    EXPECT_TRUE(clause.result.isValid);
    EXPECT_EQ(clause.result.projection.GetMethod(), ProjectionMethod::LongitudeLatitude);
    EXPECT_EQ(clause.text.token(), "next");
}

TEST(CoordSys, KeywordsAreRecognisedInAnyCase) {
    const ReadClause clause("coordsys EARTH projection 1, 104, \"M\"\nnext\n");

    EXPECT_TRUE(clause.result.hasEarthProjection);
    EXPECT_EQ(clause.Parameter(Id::UnitsPerMetre), 1.0);
}

// A projection code, the method that it means and the parameters of its clause in their order:
// l origin longitude, b origin latitude, 1 and 2 standard parallels, a azimuth, k scale factor,
// e false easting, n false northing, r range.
struct ProjectionRow {
    int code;
    int method;
    std::string parameters;
};
void PrintTo(const ProjectionRow& row, std::ostream* out) {
    *out << row.code;
}

// The numbers of a clause: 1.5, 2.5 and so on.
double NumberAt(std::size_t place) {
    return static_cast<double>(place) + 1.5;
}

std::string ClauseOf(const ProjectionRow& row) {
    std::string clause =
        "CoordSys Earth Projection " + std::to_string(row.code) + ", 104, \"feet\"";
    for (std::size_t place = 0; place < row.parameters.size(); ++place) {
        clause += ", " + shr::ToString(NumberAt(place), "%.1f");
    }
    return clause + "\nnext\n";
}

std::vector<Id> IdsOf(char parameter) {
    switch (parameter) {
    case 'l':
        return {Id{6}, Id{7}};
    case 'b':
        return {Id{9}, Id{10}};
    case '1':
        return {Id{10}};
    case '2':
        return {Id{11}};
    case 'a':
        return {Id{14}};
    case 'k':
        return {Id{12}};
    case 'e':
        return {Id{4}};
    case 'n':
        return {Id{5}};
    default:
        return {};
    }
}

gcs::ProjectionDef ExpectedOf(const ProjectionRow& row) {
    gcs::ProjectionDef projection;
    projection.SetMethod(ProjectionMethod{row.method});
    projection.SetParameter(Id{2}, KnownDatum(L"DATUM_WGS84").GetEllipsoid());
    projection.SetParameter(Id{3}, kFeetPerMetre);
    if (row.method == 12) {
        projection.SetParameter(Id{15}, true);
        projection.SetParameter(Id{16}, true);
    }
    for (std::size_t place = 0; place < row.parameters.size(); ++place) {
        for (const Id id : IdsOf(row.parameters[place])) {
            projection.SetParameter(id, NumberAt(place));
        }
        if (row.parameters[place] == 'b' && row.method == 20) {
            projection.SetParameter(Id{10}, 0.0);
        }
    }
    return projection;
}

class CoordSysProjection : public testing::TestWithParam<ProjectionRow> {};

TEST_P(CoordSysProjection, TakesItsParametersInOrder) {
    const ReadClause clause(ClauseOf(GetParam()));

    EXPECT_TRUE(clause.result.isValid);
    EXPECT_EQ(clause.result.projection, ExpectedOf(GetParam()));
    EXPECT_TRUE(clause.result.hasEarthProjection);
    EXPECT_EQ(clause.text.token(), "next");
}

INSTANTIATE_TEST_SUITE_P(
    , CoordSysProjection,
    testing::Values(
        ProjectionRow{1, 1, ""}, ProjectionRow{3, 16, "lb12en"}, ProjectionRow{4, 17, "lbr"},
        ProjectionRow{5, 4, "l1r"}, ProjectionRow{6, 10, "lb12en"}, ProjectionRow{7, 12, "lbaken"},
        ProjectionRow{8, 25, "lbken"}, ProjectionRow{9, 3, "lb12aen"}, ProjectionRow{10, 13, "l"},
        ProjectionRow{11, 18, "l"}, ProjectionRow{12, 22, "l"}, ProjectionRow{13, 14, "l"},
        ProjectionRow{14, 7, "l"}, ProjectionRow{15, 8, "l"}, ProjectionRow{16, 24, "l"},
        ProjectionRow{18, 29, "en"}, ProjectionRow{20, 20, "lbken"}, ProjectionRow{27, 21, "lben"},
        ProjectionRow{28, 4, "l1r"}, ProjectionRow{29, 17, "l1r"}, ProjectionRow{30, 6, "lben"},
        ProjectionRow{33, 9, "l1en"}, ProjectionRow{2003, 16, "lb12en"}),
    [](const auto& row) { return "Code" + std::to_string(row.param.code); });

TEST(CoordSys, KeptStandardParallel1ReplacesTheOriginLatitude) {
    const ReadClause clause(
        "CoordSys Earth Projection 3, 104, \"m\", 10, 20, 30, 40, 0, 0\nnext\n");

    EXPECT_EQ(clause.Parameter(Id::LatitudeOfOrigin), 20.0);
    EXPECT_EQ(clause.Parameter(Id::StandardParallel1), 30.0);
    EXPECT_EQ(clause.Parameter(Id::StandardParallel2), 40.0);
}

TEST(CoordSys, ParametersNeedNoCommas) {
    const ReadClause clause("CoordSys Earth Projection 8, 104 \"m\" 9 0 0.9996 500000 -1\nnext\n");

    EXPECT_TRUE(clause.result.isValid);
    EXPECT_EQ(clause.Parameter(Id::CentralLongitude), 9.0);
    EXPECT_EQ(clause.Parameter(Id::ScaleFactor), 0.9996);
    EXPECT_EQ(clause.Parameter(Id::FalseEasting), 500000.0);
    EXPECT_EQ(clause.Parameter(Id::FalseNorthing), -1.0);
}

TEST(CoordSys, WhatFollowsTheParametersIsDropped) {
    const ReadClause clause(
        "CoordSys Earth Projection 8, 104, \"m\", 9, 0, 1, 2, 3 Bounds (1, 2) (3, 4)\nnext\n");

    EXPECT_EQ(clause.Parameter(Id::FalseNorthing), 3.0);
    EXPECT_EQ(clause.text.token(), "next");
}

struct FatalRow {
    std::string name;
    std::string clause;
    std::wstring message;
};
void PrintTo(const FatalRow& row, std::ostream* out) {
    *out << row.name;
}

class InvalidCoordSys : public testing::TestWithParam<FatalRow> {};

TEST_P(InvalidCoordSys, SaysWhyAndLeavesTheDefinitionsUnknown) {
    const ReadClause clause(GetParam().clause);

    EXPECT_FALSE(clause.result.isValid);
    EXPECT_EQ(clause.result.message, GetParam().message);
    EXPECT_EQ(clause.result.projection, gcs::ProjectionDef());
    EXPECT_TRUE(clause.result.datum.IsUnknown());
}

INSTANTIATE_TEST_SUITE_P(
    , InvalidCoordSys,
    testing::Values(
        FatalRow{"UnlistedProjection", "CoordSys Earth Projection 2, 104\n",
                 L"Invalid MIF projection code '2'."},
        FatalRow{"ProjectionZero", "CoordSys Earth Projection 0, 104\n",
                 L"Invalid MIF projection code '0'."},
        FatalRow{"NoNumber", "CoordSys Earth Projection x, 104\n",
                 L"Invalid MIF projection code '0'."},
        FatalRow{"HugeNumber", "CoordSys Earth Projection 99999999999, 104\n",
                 L"Invalid MIF projection code '2147483647'."},
        FatalRow{"NothingBehindTheCode", "CoordSys Earth Projection 1\nnext\n", L"Missing comma."},
        FatalRow{"ABlankBehindTheCode", "CoordSys Earth Projection 8 104\n", L"Missing comma."},
        FatalRow{"TheEndBehindTheCode", "CoordSys Earth Projection 1", L"Missing comma."},
        FatalRow{"AnEmptyFileBehindProjection", "CoordSys Earth Projection",
                 L"Invalid MIF projection code '0'."}),
    [](const auto& row) { return row.param.name; });

TEST(CoordSys, WithNothingOpenIsInvalid) {
    mif::CMifInputFile input;

    mif::CoordSysClause clause;
    mif::ReadCoordSysClause(input, clause);

    EXPECT_FALSE(clause.isValid);
    EXPECT_EQ(clause.message, L"Input file not open.");
}

TEST(CoordSys, WithAnUnlistedDatumIsValidAndSaysSo) {
    const ReadClause clause("CoordSys Earth Projection 8, 32, \"m\", 9, 0, 1, 2, 3\nnext\n");

    EXPECT_TRUE(clause.result.isValid);
    EXPECT_EQ(clause.result.message, L"Invalid datum code '32'.");
    EXPECT_TRUE(clause.result.datum.IsUnknown());
    EXPECT_EQ(clause.result.projection.GetEllipsoid(), nullptr);
    EXPECT_TRUE(clause.result.hasEarthProjection);
    EXPECT_EQ(clause.Parameter(Id::FalseNorthing), 3.0);
}

class CoordSysDatum : public testing::TestWithParam<mif::DatumRow> {};

// The token of a datum that the known list has; "" when it doesn't.
std::wstring KnownTokenOf(int code) {
    return KnownDatum(shr::AtoW(mif::FindDatumByCode(code)->token).c_str()).GetToken();
}

TEST_P(CoordSysDatum, IsTheKnownOneOfItsCodesFirstToken) {
    const int code = GetParam().mifCode;
    const ReadClause clause("CoordSys Earth Projection 1, " + std::to_string(code) +
                            ", \"m\"\nnext\n");

    EXPECT_TRUE(clause.result.isValid);
    EXPECT_EQ(clause.result.message, L"");
    EXPECT_EQ(clause.result.datum.GetToken(), KnownTokenOf(code));
    EXPECT_EQ(clause.result.datum.IsUnknown(), code == 113);
    EXPECT_EQ(clause.result.projection.HasParameter(Id::Ellipsoid), code != 113);
}

INSTANTIATE_TEST_SUITE_P(, CoordSysDatum, testing::ValuesIn(mif::kDatumTable), [](const auto& row) {
    return "Row" + std::to_string(row.index) + "Code" + std::to_string(row.param.mifCode);
});

TEST(OwnDatum, OfThreeShiftsOnAnUnknownEllipsoidTakesThePreset) {
    const ReadClause clause("CoordSys Earth Projection 1, 999, 0, 1, 2, 3, \"m\"\nnext\n");

    EXPECT_TRUE(clause.result.isValid);
    const gcs::DatumParameters& datum = clause.result.datum.GetParameters();
    EXPECT_EQ(datum.kind, DatumMethod::ThreeParameters);
    EXPECT_NEAR(datum.ellipsoid.GetMajorRadius(), kClarkeRadius, 1e-6);
    EXPECT_NEAR(datum.ellipsoid.GetFlattening(), kClarkeFlattening, 1e-12);
    EXPECT_EQ(datum.dx, 1.0);
    EXPECT_EQ(datum.dy, 2.0);
    EXPECT_EQ(datum.dz, 3.0);
    EXPECT_EQ(datum.rx, 0.0);
    EXPECT_EQ(datum.scale, 0.0);
    EXPECT_EQ(datum.primeMeridian, 0.0);
    EXPECT_EQ(clause.result.datum.GetToken(), L"");
    EXPECT_EQ(*clause.result.projection.GetEllipsoid(), datum.ellipsoid);
    EXPECT_EQ(clause.text.token(), "next");
}

TEST(OwnDatum, OfSevenNumbersAndAPrimeMeridian) {
    const ReadClause clause(
        "CoordSys Earth Projection 1, 9999, 10, 1, 2, 3, 4, 5, 6, 7, 8.5, \"m\"\nnext\n");

    const gcs::DatumParameters& datum = clause.result.datum.GetParameters();
    EXPECT_EQ(datum.kind, DatumMethod::SevenParameters);
    EXPECT_EQ(datum.ellipsoid.GetMajorRadius(), 6377397.155);
    EXPECT_EQ(datum.dx, 1.0);
    EXPECT_EQ(datum.dy, 2.0);
    EXPECT_EQ(datum.dz, 3.0);
    EXPECT_EQ(datum.rx, 4.0);
    EXPECT_EQ(datum.ry, 5.0);
    EXPECT_EQ(datum.rz, 6.0);
    EXPECT_EQ(datum.scale, 7.0);
    EXPECT_EQ(datum.primeMeridian, 8.5);
    EXPECT_EQ(clause.text.token(), "next");
}

TEST(OwnDatum, WithoutRotationsAndScaleHasThreeParameters) {
    const ReadClause clause(
        "CoordSys Earth Projection 1, 9999, 10, 1, 2, 3, 0, -0, 0.0, 0, 2.5, \"m\"\nnext\n");

    EXPECT_EQ(clause.result.datum.GetMethod(), DatumMethod::ThreeParameters);
    EXPECT_EQ(clause.result.datum.GetParameters().primeMeridian, 2.5);
}

struct RotationRow {
    std::string name;
    std::string numbers;
};
void PrintTo(const RotationRow& row, std::ostream* out) {
    *out << row.name;
}

class OwnDatumWithOnly : public testing::TestWithParam<RotationRow> {};

TEST_P(OwnDatumWithOnly, ThisNumberHasSevenParameters) {
    const ReadClause clause("CoordSys Earth Projection 1, 9999, 10, 1, 2, 3, " +
                            GetParam().numbers + ", 0, \"m\"\nnext\n");

    EXPECT_EQ(clause.result.datum.GetMethod(), DatumMethod::SevenParameters);
}

INSTANTIATE_TEST_SUITE_P(, OwnDatumWithOnly,
                         testing::Values(RotationRow{"RotationX", "1e-9, 0, 0, 0"},
                                         RotationRow{"RotationY", "0, 1, 0, 0"},
                                         RotationRow{"RotationZ", "0, 0, -1, 0"},
                                         RotationRow{"Scale", "0, 0, 0, 1"}),
                         [](const auto& row) { return row.param.name; });

class OwnDatumEllipsoid : public testing::TestWithParam<mif::EllipsoidRow> {};

TEST_P(OwnDatumEllipsoid, IsTheTablesRow) {
    const ReadClause clause("CoordSys Earth Projection 1, 999, " +
                            std::to_string(GetParam().mifCode) + ", 1, 2, 3, \"m\"\nnext\n");
    const bool isListed = GetParam().mifCode != 0;

    const gcs::EllipsoidDef& ellipsoid = clause.result.datum.GetEllipsoid();
    EXPECT_NEAR(ellipsoid.GetMajorRadius(), isListed ? GetParam().majorRadius : kClarkeRadius,
                1e-6);
    EXPECT_NEAR(ellipsoid.GetFlattening(),
                isListed ? mif::Flattening(GetParam()) : kClarkeFlattening, 1e-12);
}

INSTANTIATE_TEST_SUITE_P(, OwnDatumEllipsoid, testing::ValuesIn(mif::kEllipsoidTable),
                         [](const auto& row) {
                             return "Code" + std::to_string(row.param.mifCode);
                         });

TEST(CoordSys, TakesCodesThatAreNewerThanTheFilesVersion) {
    readertest::FilePair pair(
        "Version 300\nCoordSys Earth Projection 2003, 157, \"m\", 1, 2, 3, 4, "
        "5, 6\nData\n\n");

    EXPECT_TRUE(pair.Open());

    EXPECT_EQ(pair.reader().projection().GetMethod(), ProjectionMethod::LambertConformalConic);
    EXPECT_FALSE(pair.reader().datum().IsUnknown());
}

struct UnitRow {
    std::string name;
    std::string unit;
    double unitsPerMetre;
};
void PrintTo(const UnitRow& row, std::ostream* out) {
    *out << row.name;
}

class CoordSysUnit : public testing::TestWithParam<UnitRow> {};

TEST_P(CoordSysUnit, IsStoredAs) {
    const ReadClause clause("CoordSys Earth Projection 10, 104, " + GetParam().unit +
                            ", 5\nnext\n");

    EXPECT_EQ(clause.Parameter(Id::UnitsPerMetre), GetParam().unitsPerMetre);
    EXPECT_EQ(clause.Parameter(Id::CentralLongitude), 5.0);
}

INSTANTIATE_TEST_SUITE_P(
    , CoordSysUnit,
    testing::Values(UnitRow{"Metres", "\"m\"", 1.0}, UnitRow{"MetresInAnyCase", "\"METERS\"", 1.0},
                    UnitRow{"WithoutQuotes", "m", 1.0}, UnitRow{"F", "\"f\"", kFeetPerMetre},
                    UnitRow{"KeptFeetAreSurveyFeet", "\"feet\"", kFeetPerMetre},
                    UnitRow{"SurveyFt", "\"survey ft\"", kFeetPerMetre},
                    UnitRow{"SurveyFeet", "\"survey feet\"", kFeetPerMetre},
                    UnitRow{"UsSurveyFt", "\"US survey ft\"", kFeetPerMetre},
                    UnitRow{"ANumber", "\"0.3048\"", 0.3048},
                    UnitRow{"ANumberAndAWord", "\"2.5 rods\"", 2.5},
                    UnitRow{"ANumberWithoutQuotes", "0.3048", 0.3048},
                    UnitRow{"Kilometres", "\"km\"", 1.0}, UnitRow{"Zero", "\"0\"", 1.0},
                    UnitRow{"ANegativeNumber", "\"-2\"", 1.0}),
    [](const auto& row) { return row.param.name; });

TEST(CoordSysUnitThat, IsAnEmptyStringIsReadAsTheFirstParameter) {
    const ReadClause clause("CoordSys Earth Projection 27, 104, \"\", 1, 2, 3, 4\nnext\n");

    EXPECT_TRUE(clause.result.isValid);
    EXPECT_EQ(clause.Parameter(Id::UnitsPerMetre), 1.0);
    EXPECT_EQ(clause.Parameter(Id::CentralLongitude), 0.0);
    EXPECT_EQ(clause.Parameter(Id::LatitudeOfOrigin), 1.0);
    EXPECT_EQ(clause.Parameter(Id::FalseEasting), 2.0);
    EXPECT_EQ(clause.Parameter(Id::FalseNorthing), 3.0);
}

TEST(CoordSys, ThatEndsAmongItsParametersGoesOnIntoTheNextLine) {
    const ReadClause clause("CoordSys Earth Projection 8, 104, \"m\", 9\n1 0.5 2 rest\nnext\n");

    EXPECT_TRUE(clause.result.isValid);
    EXPECT_EQ(clause.Parameter(Id::CentralLongitude), 9.0);
    EXPECT_EQ(clause.Parameter(Id::LatitudeOfOrigin), 0.0);
    EXPECT_EQ(clause.Parameter(Id::ScaleFactor), 1.0);
    EXPECT_EQ(clause.Parameter(Id::FalseEasting), 0.5);
    EXPECT_EQ(clause.Parameter(Id::FalseNorthing), 2.0);
    EXPECT_EQ(clause.text.token(), "next");
}

TEST(CoordSys, EachClauseStartsAfresh) {
    readertest::FilePair pair(
        "Version 300\nCoordSys Earth Projection 8, 104, \"m\", 9, 0, 1, 2, 3\n"
        "CoordSys Nonearth Units \"m\"\nData\n\n");

    ASSERT_TRUE(pair.Open());

    EXPECT_FALSE(pair.reader().hasEarthProjection());
    EXPECT_TRUE(pair.reader().datum().IsUnknown());
    EXPECT_EQ(pair.reader().projection(), gcs::ProjectionDef());
}

TEST(CoordSys, IsReadFromABlockOfMemoryToo) {
    readertest::OpenText text(readertest::Source::Memory,
                              "CoordSys Earth Projection 10, 104, \"m\", 5\nnext here\n");

    mif::CoordSysClause clause;
    mif::ReadCoordSysClause(text.input(), clause);

    EXPECT_TRUE(clause.isValid);
    EXPECT_EQ(clause.projection.GetParameter(Id::CentralLongitude), 5.0);
    EXPECT_EQ(text.input().token(), "next");
}

}  // namespace
