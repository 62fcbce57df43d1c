// The tables of projections, datums and ellipsoids, row by row, and the searches in them.
#include "reader/ReferenceTables.h"

#include "host/shr/Text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <sstream>
#include <string>

namespace {

std::string FlagsOf(const mif::ProjectionRow& row) {
    std::string flags;
    for (const bool flag : {row.hasOriginLongitude, row.hasOriginLatitude, row.hasStandardParallel1,
                            row.hasStandardParallel2, row.hasAzimuth, row.hasScaleFactor,
                            row.hasFalseEasting, row.hasFalseNorthing, row.hasRange}) {
        flags += flag ? '1' : '0';
    }
    return flags;
}

// Every row as a line: "projection 3 from 300 flags 111100110 method 16", and so on.
std::string TablesAsText() {
    std::ostringstream text;
    for (const mif::ProjectionRow& row : mif::kProjectionTable) {
        text << "projection " << row.mifCode << " from " << row.minVersion << " flags "
             << FlagsOf(row) << " method " << static_cast<int>(row.method) << '\n';
    }
    for (const mif::EllipsoidRow& row : mif::kEllipsoidTable) {
        text << "ellipsoid " << row.mifCode << " from " << row.minVersion << ' '
             << shr::WtoAN(row.name) << ' ' << shr::ToString(row.majorRadius, "%.9f") << ' '
             << shr::ToString(row.inverseFlattening, "%.9f") << '\n';
    }
    for (const mif::DatumRow& row : mif::kDatumTable) {
        text << "datum " << row.mifCode << " from " << row.minVersion << ' ' << row.token << '\n';
    }
    return text.str();
}

TEST(ReferenceTables, HoldTheseRowsInThisOrder) {
    std::ifstream file(QOLF_TEST_GOLDEN "/reference-tables.txt", std::ios::binary);
    std::ostringstream golden;
    golden << file.rdbuf();

    EXPECT_EQ(TablesAsText(), golden.str());
}

class UnlistedProjection : public testing::TestWithParam<int> {};

TEST_P(UnlistedProjection, IsNotFound) {
    EXPECT_EQ(mif::FindProjectionByCode(GetParam()), nullptr);
}

INSTANTIATE_TEST_SUITE_P(, UnlistedProjection,
                         testing::Values(-1, 0, 2, 17, 19, 21, 22, 23, 24, 25, 26, 31, 32, 34, 1000,
                                         2002, 3003));

TEST(FindProjectionByCode, TakesTheFirstOfTwoRows) {
    const mif::ProjectionRow* const row = mif::FindProjectionByCode(8);

    ASSERT_NE(row, nullptr);
    EXPECT_EQ(row->method, gcs::ProjectionMethod::TransverseMercator);
}

struct MethodRow {
    gcs::ProjectionMethod method;
    int mifCode;
};
void PrintTo(const MethodRow& row, std::ostream* out) {
    *out << static_cast<int>(row.method);
}

class ProjectionMethod : public testing::TestWithParam<MethodRow> {};

TEST_P(ProjectionMethod, IsFoundInItsFirstRow) {
    const mif::ProjectionRow* const row = mif::FindProjectionByMethod(GetParam().method);

    ASSERT_NE(row, nullptr);
    EXPECT_EQ(row->mifCode, GetParam().mifCode);
}

INSTANTIATE_TEST_SUITE_P(
    , ProjectionMethod,
    testing::Values(MethodRow{gcs::ProjectionMethod::AzimuthalEquidistant, 5},
                    MethodRow{gcs::ProjectionMethod::LambertConformalConic, 3},
                    MethodRow{gcs::ProjectionMethod::LambertAzimuthalEqualArea, 4},
                    MethodRow{gcs::ProjectionMethod::GaussKrueger, 8},
                    MethodRow{gcs::ProjectionMethod::LongitudeLatitude, 1}),
    [](const auto& row) { return "Method" + std::to_string(static_cast<int>(row.param.method)); });

TEST(FindProjectionByMethod, OfAMethodWithoutACodeIsNull) {
    EXPECT_EQ(mif::FindProjectionByMethod(gcs::ProjectionMethod::Unknown), nullptr);
    EXPECT_EQ(mif::FindProjectionByMethod(gcs::ProjectionMethod::ObliqueMercatorOther), nullptr);
}

TEST(FindDatumByCode, TakesTheFirstOfSeveralRows) {
    EXPECT_STREQ(mif::FindDatumByCode(62)->token, "DATUM_NAD27_MOL");
    EXPECT_STREQ(mif::FindDatumByCode(116)->token, "DATUM_GDA94_EPSG4283");
    EXPECT_STREQ(mif::FindDatumByCode(1000)->token, "DATUM_DHDN");
}

TEST(FindDatumByCode, OfZeroOrAnUnlistedCodeIsNull) {
    EXPECT_EQ(mif::FindDatumByCode(0), nullptr);
    EXPECT_EQ(mif::FindDatumByCode(32), nullptr);
    EXPECT_EQ(mif::FindDatumByCode(999), nullptr);
    EXPECT_EQ(mif::FindDatumByCode(9999), nullptr);
}

TEST(FindDatumByCode, KeptATokenEndsInAComma) {
    EXPECT_STREQ(mif::FindDatumByCode(113)->token, "DATUM_DLX,");
}

TEST(FindDatumByToken, TakesTheFirstOfTwoCodes) {
    EXPECT_EQ(mif::FindDatumByToken(L"DATUM_AUSTRALIAN_1966")->mifCode, 12);
    EXPECT_EQ(mif::FindDatumByToken(L"DATUM_BELGIUM")->mifCode, 110);
    EXPECT_EQ(mif::FindDatumByToken(L"DATUM_GEODETIC49")->mifCode, 31);
    EXPECT_EQ(mif::FindDatumByToken(L"DATUM_GRS80EUREF89_BURSA")->mifCode, 33);
    EXPECT_EQ(mif::FindDatumByToken(L"DATUM_INDIAN_1975")->mifCode, 40);
}

TEST(FindDatumByToken, IgnoresCase) {
    EXPECT_EQ(mif::FindDatumByToken(L"datum_wgs84")->mifCode, 104);
}

TEST(FindDatumByToken, OfAPartOrMoreOfATokenIsNull) {
    EXPECT_EQ(mif::FindDatumByToken(L"DATUM_WGS8"), nullptr);
    EXPECT_EQ(mif::FindDatumByToken(L"DATUM_WGS844"), nullptr);
    EXPECT_EQ(mif::FindDatumByToken(L""), nullptr);
}

TEST(FindEllipsoidByCode, GivesTheRow) {
    const mif::EllipsoidRow* const row = mif::FindEllipsoidByCode(7);

    ASSERT_NE(row, nullptr);
    EXPECT_STREQ(row->name, L"Clarke 1866");
    EXPECT_EQ(mif::Flattening(*row), 1.0 / 294.9786982);
}

TEST(FindEllipsoidByCode, KeptOfZeroIsNullThoughTheTableHasIt) {
    EXPECT_EQ(mif::FindEllipsoidByCode(0), nullptr);
    EXPECT_EQ(std::count_if(mif::kEllipsoidTable.begin(), mif::kEllipsoidTable.end(),
                            [](const auto& row) { return row.mifCode == 0; }),
              1);
}

TEST(FindEllipsoidByCode, OfAnUnlistedCodeIsNull) {
    EXPECT_EQ(mif::FindEllipsoidByCode(29), nullptr);
    EXPECT_EQ(mif::FindEllipsoidByCode(-1), nullptr);
}

TEST(Flattening, OfASphereIsZero) {
    EXPECT_EQ(mif::Flattening(*mif::FindEllipsoidByCode(12)), 0.0);
}

}  // namespace
