#include "export/AttributeColumns.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace mif::test {

namespace {

AttributeColumns ColumnsOf(const std::vector<std::wstring>& names) {
    AttributeColumns columns;
    columns.Replace(names);
    return columns;
}

std::string BlockOf(const AttributeColumns& columns) {
    std::string block;
    columns.AppendBlock(block);
    return block;
}

std::string Row(AttributeColumns& columns,
                const std::vector<std::pair<std::wstring, std::wstring>>& values) {
    shr::CParamList attributes;
    for (const auto& [name, value] : values) {
        attributes.Set(name, value);
    }
    std::string row;
    columns.AppendRow(row, attributes);
    return row;
}

// Columns A to that many, each with a value of the width.
AttributeColumns ColumnsOfWidth(std::size_t count, std::size_t width) {
    AttributeColumns columns;
    columns.Replace(std::vector<std::wstring>(count, L"A"));
    Row(columns, {{L"A", std::wstring(width, L'x')}});
    return columns;
}

// Columns A0, A1, ..., of which each row fills another one.
AttributeColumns ColumnsOfOneValueARow(int count, std::size_t width) {
    std::vector<std::wstring> names(static_cast<std::size_t>(count));
    std::generate(names.begin(), names.end(),
                  [number = 0]() mutable { return L"A" + std::to_wstring(number++); });
    AttributeColumns columns = ColumnsOf(names);
    for (const std::wstring& name : names) {
        Row(columns, {{name, std::wstring(width, L'x')}});
    }
    return columns;
}

constexpr const wchar_t* kColumnsWarning =
    L"Exported file contains more than 250 attribute columns.  MapInfo might not be able to read "
    L"it.  Try reducing the number of attributes before exporting.";
constexpr const wchar_t* kWidthWarning =
    L"Exported file contains one or more attributes with more than 254 characters.  MapInfo might "
    L"not be able to read it.  Try reducing the number of characters before exporting.";
constexpr const wchar_t* kRowWarning =
    L"One or more of the exported objects has more than 4000 characters of attribute information. "
    L" MapInfo might not be able to read the exported file.  Try reducing the number of attributes "
    L"and/or the number of characters used in each attribute before exporting.";

}  // namespace

struct ColumnNameRow {
    std::string name;
    std::wstring column;
    std::string text;
};
class ColumnName : public testing::TestWithParam<ColumnNameRow> {};

TEST_P(ColumnName, IsMadeSafe) {
    EXPECT_EQ(BlockOf(ColumnsOf({GetParam().column})),
              "COLUMNS 1\n  " + GetParam().text + " char (1)    \n");
}
INSTANTIATE_TEST_SUITE_P(
    , ColumnName,
    testing::Values(ColumnNameRow{"AsItStands", L"Name_1z", "Name_1z"},
                    ColumnNameRow{"ADigitInFront", L"2nd", "_2nd"},
                    ColumnNameRow{"ABlank", L"a b", "a_b"},
                    ColumnNameRow{"ALetterBeyondAscii", L"Stra\u00DFe", "Stra_e"},
                    ColumnNameRow{"ACharacterBeyondTheCodePage", L"\u4E2D", "_"},
                    ColumnNameRow{"ANul", std::wstring(L"a\0b", 3), "a_b"},
                    ColumnNameRow{"Punctuation", L"a-b.c\"d", "a_b_c_d"},
                    ColumnNameRow{"ADigitAloneInFrontOfABlank", L"1 ", "_1_"},
                    ColumnNameRow{"Nothing", L"", ""}),
    [](const auto& row) { return row.param.name; });

TEST(ColumnBlock, PadsEachWidthToSevenCharacters) {
    AttributeColumns columns = ColumnsOf({L"A", L"B"});
    Row(columns, {{L"A", L"twelve chars"}, {L"B", L"x"}});

    EXPECT_EQ(BlockOf(columns), "COLUMNS 2\n  A char (12)   \n  B char (1)    \n");
}

TEST(ColumnBlock, KeptGrowsWhenAWidthNeedsSixDigits) {
    AttributeColumns columns = ColumnsOfWidth(1, 100000);

    EXPECT_EQ(BlockOf(columns), "COLUMNS 1\n  A char (100000)\n");
}

TEST(ColumnBlock, KeepsItsLengthUpToFiveDigits) {
    EXPECT_EQ(BlockOf(ColumnsOfWidth(1, 99999)).size(), BlockOf(ColumnsOf({L"A"})).size());
}

TEST(MidRow, KeptSeparatesValuesByABlankAndAComma) {
    AttributeColumns columns = ColumnsOf({L"A", L"B", L"C"});

    EXPECT_EQ(Row(columns, {{L"A", L"1"}, {L"B", L"two"}, {L"C", L"3"}}),
              "\"1\" ,\"two\" ,\"3\"\n");
}

TEST(MidRow, HasAnEmptyValueForAMissingAttribute) {
    AttributeColumns columns = ColumnsOf({L"A", L"B"});

    EXPECT_EQ(Row(columns, {{L"B", L"b"}, {L"Z", L"z"}}), "\"\" ,\"b\"\n");
}

TEST(MidRow, IsALineEndAloneWithoutColumns) {
    AttributeColumns columns;

    EXPECT_EQ(Row(columns, {{L"A", L"1"}}), "\n");
}

TEST(MidRow, ReplacesUnsafeCharacters) {
    AttributeColumns columns = ColumnsOf({L"A"});

    EXPECT_EQ(Row(columns, {{L"A", std::wstring(L"a\"b\rc\nd\te\0f,g", 13)}}),
              "\"a_b_c_d_e_f,g\"\n");
}

TEST(MidRow, IsOfCodePageZeroWithAQuestionMarkForWhatItCannotHold) {
    AttributeColumns columns = ColumnsOf({L"A"});

    EXPECT_EQ(Row(columns, {{L"A", L"\u00E4\u20AC\u4E2D"}}), "\"\xE4\x80?\"\n");
}

TEST(MidRow, RepeatsTheValueOfAColumnThatStandsTwice) {
    AttributeColumns columns = ColumnsOf({L"A", L"A"});

    EXPECT_EQ(Row(columns, {{L"A", L"x"}}), "\"x\" ,\"x\"\n");
}

TEST(ColumnWidth, CountsWideCharactersAfterTheReplacement) {
    AttributeColumns columns = ColumnsOf({L"A"});
    Row(columns, {{L"A", L"\u00E4\"\u4E2D"}});

    EXPECT_EQ(BlockOf(columns), "COLUMNS 1\n  A char (3)    \n");
}

TEST(ColumnWidth, IsThatOfTheLongestValue) {
    AttributeColumns columns = ColumnsOf({L"A"});
    Row(columns, {{L"A", L"long value"}});
    Row(columns, {{L"A", L"short"}});

    EXPECT_EQ(BlockOf(columns), "COLUMNS 1\n  A char (10)   \n");
}

TEST(ColumnWidth, StartsAgainAtOneWhenTheColumnsAreReplaced) {
    AttributeColumns columns = ColumnsOfWidth(1, 10);
    columns.Replace({L"A"});

    EXPECT_EQ(BlockOf(columns), "COLUMNS 1\n  A char (1)    \n");
}

struct LimitRow {
    std::string name;
    std::size_t columns;
    std::size_t width;
    const wchar_t* warning;  // null: none
};
class LimitWarning : public testing::TestWithParam<LimitRow> {};

TEST_P(LimitWarning, IsTheFirstThatApplies) {
    const AttributeColumns columns = ColumnsOfWidth(GetParam().columns, GetParam().width);
    const wchar_t* warning = columns.LimitWarning();

    EXPECT_EQ(warning == nullptr ? L"none" : std::wstring(warning),
              GetParam().warning == nullptr ? L"none" : std::wstring(GetParam().warning));
}
INSTANTIATE_TEST_SUITE_P(
    , LimitWarning,
    testing::Values(
        LimitRow{"NoColumns", 0, 0, nullptr}, LimitRow{"TwoHundredFiftyColumns", 250, 1, nullptr},
        LimitRow{"TwoHundredFiftyOneColumns", 251, 1, kColumnsWarning},
        LimitRow{"TooManyColumnsThatAreTooWide", 251, 300, kColumnsWarning},
        LimitRow{"AWidthOf254", 1, 254, nullptr}, LimitRow{"AWidthOf255", 1, 255, kWidthWarning},
        LimitRow{"TooWideColumnsOfATooWideRow", 20, 255, kWidthWarning},
        LimitRow{"ARowOf4000", 16, 250, nullptr}, LimitRow{"ARowOf4016", 16, 251, kRowWarning}),
    [](const auto& row) { return row.param.name; });

TEST(LimitWarningOfARow, KeptAddsUpTheWidestValuesOfDifferentRows) {
    AttributeColumns columns = ColumnsOfOneValueARow(17, 250);

    EXPECT_EQ(std::wstring(columns.LimitWarning()), kRowWarning);
}

}  // namespace mif::test
