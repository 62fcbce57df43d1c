// Every row of the reference tables through the writer and back through the reader.
#include "export/CoordSysWriter.h"

#include "host/shr/Text.h"
#include "reader/CMifReader.h"
#include "reader/ReferenceTables.h"
#include "tests/export/CoordinateSystems.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace mif::test {

namespace {

using gcs::ProjectionMethod;
using enum gcs::ProjectionParameterID;

struct ReadBack {
    bool isRead = false;
    gcs::ProjectionDef projection;
    gcs::DatumDef datum;
};

// Reads the clause out of a header that has lines to lose behind it: a clause that ends with its
// datum takes the next line with it.
ReadBack Read(const std::string& clause) {
    const support::TemporaryFolder folder;
    const std::wstring path = folder.Write("clause.mif", "VERSION 300\n" + clause +
                                                             "Bounds (0, 0) (1, 1)\n"
                                                             "COLUMNS 0\n\nDATA\n\nPOINT 1 1\n");
    CMifReader reader;
    std::wstring warnings;
    ReadBack result;
    result.isRead = reader.Open(path, warnings) && reader.hasEarthProjection();
    result.projection = reader.projection();
    result.datum = reader.datum();
    return result;
}

// A system of the row's method with another value for each of its parameters.
gcs::GCSDef SystemOf(const ProjectionRow& row) {
    const bool isOblique = row.method == ProjectionMethod::HotineObliqueMercator;
    gcs::ProjectionDef projection = Projection(row.method, {{UnitsPerMetre, 3.28083333333333}});
    const auto setIf = [&](bool isCarried, gcs::ProjectionParameterID id, double value) {
        if (isCarried) {
            projection.SetParameter(id, value);
        }
    };
    setIf(row.hasOriginLongitude, isOblique ? CentreLongitude : CentralLongitude, 11.125);
    setIf(row.hasOriginLatitude, LatitudeOfOrigin, 12.25);
    setIf(row.hasStandardParallel1, StandardParallel1, 13.5);
    setIf(row.hasStandardParallel2, StandardParallel2, 14.75);
    setIf(row.hasAzimuth, Azimuth, 15.1);
    setIf(row.hasScaleFactor, ScaleFactor, 0.9996);
    setIf(row.hasFalseEasting, FalseEasting, 500000.5);
    setIf(row.hasFalseNorthing, FalseNorthing, -1234567.875);
    if (isOblique) {
        projection.SetParameter(RectifiedOrigin, true);
    }
    return Earth(projection, KnownDatum(L"DATUM_WGS84"));
}

// What came back otherwise than it was written, as text; empty when nothing did. Only what the row
// that was written carries can come back.
std::string DifferencesOf(const ProjectionRow& written, const gcs::ProjectionDef& expected,
                          const gcs::ProjectionDef& actual) {
    const std::vector<std::pair<bool, gcs::ProjectionParameterID>> carried = {
        {written.method != ProjectionMethod::LongitudeLatitude, UnitsPerMetre},
        {written.hasOriginLatitude, LatitudeOfOrigin},
        {written.hasStandardParallel1, StandardParallel1},
        {written.hasStandardParallel2, StandardParallel2},
        {written.hasAzimuth, Azimuth},
        {written.hasScaleFactor, ScaleFactor},
        {written.hasFalseEasting, FalseEasting},
        {written.hasFalseNorthing, FalseNorthing},
    };
    std::string differences;
    for (const auto& [isCarried, id] : carried) {
        if (isCarried && expected.GetParameter(id) != actual.GetParameter(id)) {
            differences += std::to_string(static_cast<int>(id)) + " ";
        }
    }
    const bool isOblique = expected.GetMethod() == ProjectionMethod::HotineObliqueMercator;
    const gcs::ProjectionParameterID longitude = isOblique ? CentreLongitude : CentralLongitude;
    if (written.hasOriginLongitude &&
        expected.GetParameter(longitude) != actual.GetParameter(longitude)) {
        differences += "longitude ";
    }
    return differences;
}

// Gauss-Krueger shares its code with the transverse Mercator projection and comes back as that.
ProjectionMethod MethodReadBack(ProjectionMethod method) {
    return method == ProjectionMethod::GaussKrueger ? ProjectionMethod::TransverseMercator : method;
}

// The codes under which a method with two rows is written: those of its first row.
int CodeWritten(int mifCode) {
    static const std::map<int, int> kSecondRows = {{28, 5}, {29, 4}, {2003, 3}};
    const auto found = kSecondRows.find(mifCode);
    return found == kSecondRows.end() ? mifCode : found->second;
}

std::string CodeBehind(const std::string& clause, const std::string& lead) {
    const std::size_t start = clause.find(lead) + lead.size();
    return clause.substr(start, clause.find_first_of(",\n", start) - start);
}

}  // namespace

class AProjectionRow : public testing::TestWithParam<std::size_t> {};

TEST_P(AProjectionRow, ComesBackFromTheReader) {
    const ProjectionRow& row = kProjectionTable[GetParam()];
    const gcs::GCSDef system = SystemOf(row);
    std::string clause;
    unsigned minVersion = 0;
    WriteCoordSys(&system, clause, minVersion, /*inlineForm=*/false);

    const ReadBack back = Read(clause);

    const ProjectionRow& written = *FindProjectionByCode(CodeWritten(row.mifCode));
    EXPECT_EQ(CodeBehind(clause, "Projection "), std::to_string(written.mifCode));
    EXPECT_EQ(minVersion, static_cast<unsigned>(written.minVersion));
    EXPECT_TRUE(back.isRead);
    EXPECT_EQ(back.projection.GetMethod(), MethodReadBack(row.method));
    EXPECT_EQ(DifferencesOf(written, system.GetProjection(), back.projection), "");
    EXPECT_EQ(back.datum.GetToken(), L"DATUM_WGS84");
}
INSTANTIATE_TEST_SUITE_P(, AProjectionRow, testing::Range<std::size_t>(0, kProjectionRowCount),
                         [](const auto& row) {
                             return "Row" + std::to_string(row.param) + "Code" +
                                    std::to_string(kProjectionTable[row.param].mifCode);
                         });

namespace {

// The rows whose token does not come back, with the token that does ("" for none). Each token is
// written with the code of its first row, and each code is read as the token of its first row.
const std::map<std::string, std::string> kTokensReadOtherwise = {
    {"DATUM_DLX,", ""},  // no list of datums has a token with a comma
    {"DATUM_RAUENBERG_RD83", "DATUM_DHDN"},
    {"DATUM_NAD27_CONUS", "DATUM_NAD27_MOL"},
    {"DATUM_WGS72_MOL", "DATUM_WGS72"},
    {"DATUM_GDA94_2002", "DATUM_GDA94_EPSG4283"},
    {"DATUM_GDA94_2000", "DATUM_GDA94_EPSG4283"},
    {"DATUM_GDA94_1998", "DATUM_GDA94_EPSG4283"},
    {"DATUM_GDA94_1996", "DATUM_GDA94_EPSG4283"},
    {"DATUM_GDA94_1994", "DATUM_GDA94_EPSG4283"},
    {"DATUM_GDA94_1992", "DATUM_GDA94_EPSG4283"},
};

// The datum of a row, made up when no list has it.
gcs::DatumDef DatumOf(const DatumRow& row) {
    const std::wstring token = shr::AtoW(row.token);
    gcs::DatumDef known = KnownDatum(token.c_str());
    if (!known.IsUnknown()) {
        return known;
    }
    gcs::DatumParameters parameters;
    parameters.kind = gcs::DatumMethod::None;
    parameters.ellipsoid = Wgs84Ellipsoid();
    return {token, L"", parameters};
}

// The code of the token's first row.
const DatumRow& FirstRowOf(const std::string& token) {
    return *std::find_if(kDatumTable.begin(), kDatumTable.end(),
                         [&](const DatumRow& row) { return row.token == token; });
}

}  // namespace

class ADatumRow : public testing::TestWithParam<std::size_t> {};

TEST_P(ADatumRow, ComesBackFromTheReader) {
    const DatumRow& row = kDatumTable[GetParam()];
    const gcs::GCSDef system = Earth(Projection(ProjectionMethod::Polyconic), DatumOf(row));
    std::string clause;
    unsigned minVersion = 0;
    WriteCoordSys(&system, clause, minVersion, /*inlineForm=*/false);

    const ReadBack back = Read(clause);

    const DatumRow& written = FirstRowOf(row.token);
    const auto exception = kTokensReadOtherwise.find(row.token);
    const std::string expected =
        exception == kTokensReadOtherwise.end() ? row.token : exception->second;
    EXPECT_EQ(CodeBehind(clause, "Projection 27, "), std::to_string(written.mifCode));
    EXPECT_EQ(minVersion, static_cast<unsigned>(std::max(550, written.minVersion)));
    EXPECT_TRUE(back.isRead);
    EXPECT_EQ(shr::WtoAN(back.datum.GetToken()), expected);
}
INSTANTIATE_TEST_SUITE_P(, ADatumRow, testing::Range<std::size_t>(0, kDatumRowCount),
                         [](const auto& row) {
                             return "Row" + std::to_string(row.param) + "Code" +
                                    std::to_string(kDatumTable[row.param].mifCode);
                         });

namespace {

std::string ParametersOf(const gcs::DatumDef& datum) {
    const gcs::DatumParameters& p = datum.GetParameters();
    std::string text = std::to_string(static_cast<int>(p.kind));
    for (const double value : {p.dx, p.dy, p.dz, p.rx, p.ry, p.rz, p.scale, p.primeMeridian,
                               p.ellipsoid.GetMajorRadius(), p.ellipsoid.GetFlattening() * 1e9}) {
        text += ' ' + std::to_string(value);
    }
    return text;
}

}  // namespace

TEST(AnOwnDatum, OfThreeShiftsComesBackFromTheReader) {
    const gcs::DatumDef datum = OwnDatum(
        {.kind = gcs::DatumMethod::ThreeParameters, .ellipsoid = {}, .dx = 1.5, .dy = -2, .dz = 3});
    const gcs::GCSDef system = Earth(Projection(ProjectionMethod::Polyconic), datum);
    const ReadBack back = Read(HeaderClause(system).substr(4));

    EXPECT_EQ(ParametersOf(back.datum), ParametersOf(datum));
}

TEST(AnOwnDatum, OfSevenParametersComesBackFromTheReader) {
    const gcs::DatumDef datum = OwnDatum({.kind = gcs::DatumMethod::SevenParameters,
                                          .ellipsoid = {},
                                          .dx = 1.5,
                                          .dy = -2,
                                          .dz = 3,
                                          .rx = 0.1,
                                          .ry = 0.2,
                                          .rz = 0.3,
                                          .scale = 4.5,
                                          .primeMeridian = 2.5});
    const gcs::GCSDef system = Earth(Projection(ProjectionMethod::Polyconic), datum);
    const ReadBack back = Read(HeaderClause(system).substr(4));

    EXPECT_EQ(ParametersOf(back.datum), ParametersOf(datum));
}

}  // namespace mif::test
