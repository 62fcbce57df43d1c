// What the program reads from a header by itself.
#include "app/mif/MifHeader.h"

#include "app/base/Errors.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using app::ColumnKind;
using app::MifHeader;
using support::TemporaryFolder;

MifHeader Scan(const std::string& text) {
    const TemporaryFolder folder;
    folder.Write("a.mif", text);
    return app::ScanHeader(folder.path() / "a.mif");
}

TEST(ScanHeader, ReadsTheSimpleClausesInAnyCase) {
    const MifHeader header =
        Scan("VERSION 450\ncharset \"WindowsLatin2\"\nDelimiter \";\"\nCOLUMNS 0\nData\n");

    EXPECT_EQ(header.version, 450);
    EXPECT_EQ(header.charset, "WindowsLatin2");
    EXPECT_EQ(header.delimiter, ";");
    EXPECT_TRUE(header.hasData);
}

TEST(ScanHeader, TakesATabWithoutADelimiterClause) {
    EXPECT_EQ(Scan("Version 300\nData\n").delimiter, "\t");
}

TEST(ScanHeader, LeavesADelimiterOfThreeCharactersAlone) {
    EXPECT_EQ(Scan("Version 300\nDelimiter \"abc\"\nData\n").delimiter, "\t");
}

TEST(ScanHeader, FindsTheLineBehindData) {
    const MifHeader header = Scan("Version 300\r\nColumns 0\r\nData\r\n\r\nPoint 1 2\r\n");

    EXPECT_EQ(header.dataOffset, 30U);
    EXPECT_EQ(header.dataLine, 4U);
}

TEST(ScanHeader, FindsNoDataInAnEmptyFile) {
    EXPECT_FALSE(Scan("").hasData);
}

TEST(ScanHeader, FindsNoDataBehindColumnsThatTheFileDoesNotHave) {
    const MifHeader header = Scan("Version 300\nColumns 1000000000\n  A Char(1)\n");

    EXPECT_EQ(header.columns.size(), 1U);
    EXPECT_FALSE(header.hasData);
}

TEST(ScanHeader, ReadsBoundsOnALineOfTheirOwn) {
    const MifHeader header = Scan("Version 300\nBounds (-1.5, 2) (3e2, - 4)\nData\n");

    ASSERT_TRUE(header.bounds);
    EXPECT_EQ(header.bounds->minX, -1.5);
    EXPECT_EQ(header.bounds->minY, 2.0);
    EXPECT_EQ(header.bounds->maxX, 300.0);
    EXPECT_EQ(header.bounds->maxY, -4.0);
}

TEST(ScanHeader, TellsBoundsOnALineOfTheirOwnFromThoseOfTheCoordSysClause) {
    EXPECT_FALSE(Scan("Version 300\nCoordSys NonEarth Units \"m\" Bounds (1, 2) (3, 4)\nData\n")
                     .ownBounds.has_value());
    const MifHeader both = Scan("Version 300\nBounds (1, 2) (3, 4)\n"
                                "CoordSys NonEarth Units \"m\" Bounds (5, 6) (7, 8)\nData\n");

    ASSERT_TRUE(both.ownBounds.has_value());
    EXPECT_EQ(both.ownBounds->minX, 1.0);
    EXPECT_EQ(both.bounds->minX, 5.0);
}

TEST(ScanHeader, ReadsTheBoundsOfTheCoordSysClause) {
    const MifHeader header =
        Scan("Version 300\nCoordSys NonEarth Units \"ft\" Bounds (1, 2) (3, 4)\nData\n");

    EXPECT_EQ(header.coordSysText, "CoordSys NonEarth Units \"ft\" Bounds (1, 2) (3, 4)");
    ASSERT_TRUE(header.bounds);
    EXPECT_EQ(header.bounds->maxY, 4.0);
}

TEST(ScanHeader, OfAMissingFileNamesItAndTheReason) {
    try {
        app::ScanHeader("no-such-folder/a.mif");
        FAIL();
    } catch (const app::Failure& failure) {
        EXPECT_STREQ(failure.what(), "no-such-folder/a.mif: can't open: No such file or directory");
    }
}

struct TypeRow {
    std::string name;  // letters and digits
    std::string text;  // behind the column's name
    ColumnKind kind;
    int width = 0;
    int decimals = 0;
};

class AColumn : public testing::TestWithParam<TypeRow> {};

TEST_P(AColumn, HasThisType) {
    const MifHeader header = Scan("Version 300\nColumns 1\n  NAME " + GetParam().text + "\nData\n");

    ASSERT_EQ(header.columns.size(), 1U);
    EXPECT_EQ(header.columns[0].name, "NAME");
    EXPECT_EQ(header.columns[0].kind, GetParam().kind);
    EXPECT_EQ(header.columns[0].width, GetParam().width);
    EXPECT_EQ(header.columns[0].decimals, GetParam().decimals);
}

const TypeRow kTypes[] = {
    {"Char", "Char(10)", ColumnKind::Char, 10},
    {"CharWithABlank", "char (10)", ColumnKind::Char, 10},
    {"Integer", "Integer", ColumnKind::Integer},
    {"SmallInt", "SMALLINT", ColumnKind::SmallInt},
    {"LargeInt", "LargeInt", ColumnKind::LargeInt},
    {"Decimal", "Decimal(12,3)", ColumnKind::Decimal, 12, 3},
    {"DecimalWithBlanks", "Decimal ( 12 , 3 )", ColumnKind::Decimal, 12, 3},
    {"Float", "Float", ColumnKind::Float},
    {"Date", "Date", ColumnKind::Date},
    {"Time", "Time", ColumnKind::Time},
    {"DateTime", "DateTime", ColumnKind::DateTime},
    {"Logical", "Logical", ColumnKind::Logical},
    {"ATypeThatThereIsNot", "Blob(3)", ColumnKind::Other, 3},
    {"NoType", "", ColumnKind::Other},
};
INSTANTIATE_TEST_SUITE_P(, AColumn, testing::ValuesIn(kTypes),
                         [](const auto& row) { return row.param.name; });

struct CareRow {
    std::string name;  // letters and digits
    std::string clause;
    std::size_t emptyLines;  // that the module needs behind the clause
    std::size_t columns = 0;
};

class AHeader : public testing::TestWithParam<CareRow> {};

TEST_P(AHeader, NeedsAnEmptyLineForEachPartThatTheModuleWouldTakeFromTheNextLine) {
    const app::CoordSysClause clause =
        Scan("Version 300\n" + GetParam().clause + "Data\n").coordSys;

    EXPECT_EQ(clause.lackingParts - clause.emptyLinesBehind, GetParam().emptyLines);
}

TEST_P(AHeader, KeepsItsColumnsBehindAnyClause) {
    EXPECT_TRUE(Scan("Version 300\n" + GetParam().clause + "Data\n").hasData);
    EXPECT_EQ(
        Scan("Version 300\n" + GetParam().clause + "Columns 1\n A Char(1)\nData\n").columns.size(),
        GetParam().columns + 1);
}

const CareRow kCare[] = {
    {"DatumThenColumns", "CoordSys Earth Projection 1, 104\nColumns 1\n A Char(1)\n", 1, 1},
    {"DatumThenData", "CoordSys Earth Projection 1, 104\n", 1},
    {"CrLf", "CoordSys Earth Projection 1, 104\r\nColumns 1\r\n A Char(1)\r\n", 1, 1},
    {"BrokenBehindEarth", "CoordSys Earth\n  Projection 1, 104\nColumns 0\n", 1},
    {"CustomDatum", "CoordSys Earth Projection 1, 999, 0, 1, 2, 3\nColumns 0\n", 1},
    {"SevenParameters", "CoordSys Earth Projection 1, 9999, 0, 1, 2, 3, 4, 5, 6, 7, 8\nColumns 0\n",
     1},
    {"CustomDatumLackingAShift", "CoordSys Earth Projection 1, 999, 0, 1, 2\n", 2},
    {"NoDatum", "CoordSys Earth Projection 1,\n", 2},
    {"TrailingComma", "CoordSys Earth Projection 1, 104,\nColumns 0\n", 1},
    {"EmptyLine", "CoordSys Earth Projection 1, 104\n\nColumns 0\n", 0},
    {"LineOfBlanks", "CoordSys Earth Projection 1, 104\n  \t\nColumns 0\n", 0},
    {"BoundsOnTheSameLine", "CoordSys Earth Projection 1, 104 Bounds (1,2) (3,4)\n", 0},
    {"BoundsWithoutNumbers", "CoordSys Earth Projection 8, 104, \"m\", 20, 0 Bounds\n", 2},
    {"Unit", "CoordSys Earth Projection 1, 104, \"m\"\nColumns 0\n", 0},
    {"Projected", "CoordSys Earth Projection 8, 104, \"m\", 9, 0, 1, 0, 0\nColumns 0\n", 0},
    {"ProjectedWithBounds", "CoordSys Earth Projection 8, 104, \"m\", 9 Bounds (1,2) (3,4)\n", 0},
    {"ProjectedWithoutTheLastTwo", "CoordSys Earth Projection 8, 104, \"m\", 9, 0, 1\n", 2},
    {"ProjectedWithTheDatumAlone", "CoordSys Earth Projection 8, 104\n", 6},
    {"ProjectedOverTwoLines", "CoordSys Earth Projection 8, 104, \"m\",\n9, 0, 1, 0, 0\n", 0},
    {"AlbersWithoutAzimuth",
     "CoordSys Earth Projection 9, 62, \"m\", -96, 23, 20, 60, 0, 0\nColumns 0\n", 1},
    {"AlbersWithAzimuth",
     "CoordSys Earth Projection 9, 62, \"m\", -96, 23, 20, 60, 0, 0, 0\nColumns 0\n", 0},
    {"UnknownProjection", "CoordSys Earth Projection 24, 62, \"m\"\n", 0},
    {"EarthAlone", "CoordSys Earth\nColumns 0\n", 1},
    {"EarthAloneThenAnEmptyLine", "CoordSys Earth\n\nColumns 0\n", 0},
    {"EarthWithBounds", "CoordSys Earth Bounds (1,2) (3,4)\nColumns 0\n", 0},
    {"Plane", "CoordSys NonEarth Units \"m\"\nColumns 0\n", 0},
    {"NoClause", "Columns 0\n", 0},
};
INSTANTIATE_TEST_SUITE_P(, AHeader, testing::ValuesIn(kCare),
                         [](const auto& row) { return row.param.name; });

}  // namespace
