// Rows, and the types that their columns get.
#include "app/formats/mif/RowWriter.h"

#include "app/formats/mif/RowRecoder.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

namespace {

using app::ColumnKind;
using app::Value;

constexpr std::int64_t kBeyondInt = 3'000'000'000;
const Value kNull;

app::PairCharset Latin1() {
    return {"WindowsLatin1", "CP1252"};
}

std::string TypeText(const app::LayerColumn& column) {
    std::string text = app::ColumnKindName(column.kind);
    if (column.kind == ColumnKind::Char || column.kind == ColumnKind::Decimal) {
        text += " " + std::to_string(column.width);
    }
    return text;
}

struct ValuesRow {
    std::string name;
    app::LayerColumn column;
    std::vector<Value> values;  // a row each
    std::string rows;
    std::string type;
    bool keepsTypes = false;
};
void PrintTo(const ValuesRow& row, std::ostream* out) {
    *out << row.name;
}
class ColumnOfRows : public testing::TestWithParam<ValuesRow> {};

TEST_P(ColumnOfRows, IsWrittenAs) {
    app::PairCharset charset = Latin1();
    app::RowWriter writer({GetParam().column}, {.keepsTypes = GetParam().keepsTypes}, charset);
    std::string rows;

    for (const Value& value : GetParam().values) {
        writer.Append(rows, {&value, 1});
    }

    EXPECT_EQ(rows, GetParam().rows);
    EXPECT_EQ(TypeText(writer.Outcomes().front().column), GetParam().type);
}

app::LayerColumn Typed(ColumnKind kind, int width = 0, int decimals = 0) {
    return {"", kind, width, decimals};
}

const app::LayerColumn kText = Typed(ColumnKind::Char);
const app::LayerColumn kShort = Typed(ColumnKind::SmallInt);
const app::LayerColumn kInt = Typed(ColumnKind::Integer);
const app::LayerColumn kLong = Typed(ColumnKind::LargeInt);
const app::LayerColumn kFloat = Typed(ColumnKind::Float);
const app::LayerColumn kLogical = Typed(ColumnKind::Logical);
const app::LayerColumn kDate = Typed(ColumnKind::Date);
const app::LayerColumn kTime = Typed(ColumnKind::Time);
const app::LayerColumn kMoment = Typed(ColumnKind::DateTime);

INSTANTIATE_TEST_SUITE_P(
    Texts, ColumnOfRows,
    testing::Values(
        ValuesRow{"InQuotes", kText, {"plain", "a,b", ""}, "\"plain\"\n\"a,b\"\n\"\"\n", "Char 5"},
        ValuesRow{"WithDoubledQuotes", kText, {"say \"x\""}, "\"say \"\"x\"\"\"\n", "Char 7"},
        ValuesRow{"WithTheirLineEnds", kText, {"a\nb\r\nc\td"}, "\"a\nb\r\nc\td\"\n", "Char 8"},
        ValuesRow{"InTheCharset", kText, {"caf\u00E9"}, "\"caf\xE9\"\n", "Char 4"},
        ValuesRow{"AtLeastAsWideAsDeclared",
                  Typed(ColumnKind::Char, 20),
                  {"abc"},
                  "\"abc\"\n",
                  "Char 20"},
        ValuesRow{"WiderThanDeclaredWhenNeeded",
                  Typed(ColumnKind::Char, 2),
                  {"abc"},
                  "\"abc\"\n",
                  "Char 3",
                  true},
        ValuesRow{
            "OfNoMoreThanTheMost", Typed(ColumnKind::Char, 2000), {"abc"}, "\"abc\"\n", "Char 254"},
        ValuesRow{"CutAtTheMost",
                  kText,
                  {std::string(300, 'x')},
                  "\"" + std::string(254, 'x') + "\"\n",
                  "Char 254"},
        ValuesRow{"AsLongAsTheMost",
                  kText,
                  {std::string(254, 'x')},
                  "\"" + std::string(254, 'x') + "\"\n",
                  "Char 254"},
        ValuesRow{"OfUnknownTypes", Typed(ColumnKind::Other), {"abc"}, "\"abc\"\n", "Char 3", true},
        ValuesRow{"OfNumbersAndTruths",
                  kText,
                  {std::int64_t{5}, 0.5, true},
                  "\"5\"\n\"0.5\"\n\"true\"\n",
                  "Char 4"},
        ValuesRow{"WithoutANul", kText, {std::string("a\0b", 3)}, "\"a?b\"\n", "Char 3"},
        ValuesRow{"OneByteWideWhenEmpty", kText, {kNull}, "\"\"\n", "Char 1"}),
    [](const auto& row) { return row.param.name; });

INSTANTIATE_TEST_SUITE_P(
    Numbers, ColumnOfRows,
    testing::Values(
        ValuesRow{"Integer", kInt, {std::int64_t{-5}}, "-5\n", "Integer"},
        ValuesRow{"IntegerForSmallNumbersOf64Bits", kLong, {std::int64_t{5}}, "5\n", "Integer"},
        ValuesRow{"LargeIntForLargeOnes", kLong, {kBeyondInt}, "3000000000\n", "LargeInt"},
        ValuesRow{"SmallInt", kShort, {std::int64_t{-32768}}, "-32768\n", "SmallInt"},
        ValuesRow{
            "IntegerForLargeNumbersOf16Bits", kShort, {std::int64_t{40000}}, "40000\n", "Integer"},
        ValuesRow{"LargeIntWhenItWasOne", kLong, {std::int64_t{5}}, "5\n", "LargeInt", true},
        ValuesRow{
            "FloatForFractionsAmongWholes", kLong, {std::int64_t{5}, 0.5}, "5\n0.5\n", "Float"},
        ValuesRow{"Float", kFloat, {0.1, 500000.0, 1e300}, "0.1\n500000\n1e+300\n", "Float"},
        ValuesRow{"Decimal",
                  Typed(ColumnKind::Decimal, 10, 2),
                  {6.7, std::int64_t{3}},
                  "6.7\n3\n",
                  "Decimal 10",
                  true},
        ValuesRow{"FloatForADecimalWithoutDigits",
                  Typed(ColumnKind::Decimal),
                  {6.7},
                  "6.7\n",
                  "Float",
                  true},
        ValuesRow{"TruthsAsOneAndZero", kInt, {true, false}, "1\n0\n", "Integer"},
        ValuesRow{"CharForTextsAmongNumbers",
                  kLong,
                  {std::int64_t{12345}, "n/a"},
                  "12345\n\"n/a\"\n",
                  "Char 5"},
        ValuesRow{"CharForWhatIsNoNumber",
                  kFloat,
                  {std::numeric_limits<double>::infinity()},
                  "\"inf\"\n",
                  "Char 3"},
        ValuesRow{"TheirTypeWithTextsWhenItIsKept",
                  kInt,
                  {"12a", "n a"},
                  "12a\n\"n a\"\n",
                  "Integer",
                  true}),
    [](const auto& row) { return row.param.name; });

INSTANTIATE_TEST_SUITE_P(
    TruthsAndTimes, ColumnOfRows,
    testing::Values(
        ValuesRow{"Logical", kLogical, {true, false, std::int64_t{1}}, "T\nF\nT\n", "Logical"},
        ValuesRow{"CharForOtherThanTruths", kLogical, {true, "maybe"}, "T\n\"maybe\"\n", "Char 5"},
        ValuesRow{"Date", kDate, {"2026-01-31"}, "20260131\n", "Date"},
        ValuesRow{"CharForOtherThanDates",
                  kDate,
                  {"2026-01-31", "soon"},
                  "20260131\n\"soon\"\n",
                  "Char 8"},
        ValuesRow{"Time", kTime, {"10:11:12", "10:11:12.5"}, "101112000\n101112500\n", "Time"},
        ValuesRow{
            "DateTime",
            kMoment,
            {"2026-01-31T10:11:12.345", "2026-01-31 10:11:12Z", "2026-01-31T10:11:12.345000Z"},
            "20260131101112345\n20260131101112000\n20260131101112345\n",
            "DateTime"},
        ValuesRow{"CharForOtherZones",
                  kMoment,
                  {"2026-01-31T10:11:12+02:00"},
                  "\"2026-01-31T10:11:12+02:00\"\n",
                  "Char 25"},
        ValuesRow{"CharForPartsOfMilliseconds",
                  kMoment,
                  {"2026-01-31T10:11:12.3456"},
                  "\"2026-01-31T10:11:12.3456\"\n",
                  "Char 24"}),
    [](const auto& row) { return row.param.name; });

TEST(ARow, HasNothingForNulls) {
    app::PairCharset charset = Latin1();
    app::RowWriter writer({kText, kInt, kDate}, {.delimiter = ';'}, charset);
    std::string rows;

    writer.Append(rows, std::vector<Value>{"a", kNull, kNull});
    writer.Append(rows, std::vector<Value>{kNull, std::int64_t{5}});

    EXPECT_EQ(rows, "\"a\";;\n;5;\n");
}

TEST(ARow, IsNotEmptyWhenItsOnlyValueIsNull) {
    app::PairCharset charset = Latin1();
    app::RowWriter writer({kInt}, {}, charset);
    std::string rows;

    writer.Append(rows, std::vector<Value>{kNull});

    EXPECT_EQ(rows, "\"\"\n");
}

TEST(ARowWriter, CountsWhatItCuts) {
    app::PairCharset charset = Latin1();
    app::RowWriter writer({kText}, {}, charset);
    std::string rows;

    writer.Append(rows, std::vector<Value>{"short"});
    writer.Append(rows, std::vector<Value>{std::string(255, 'x')});
    writer.Append(rows, std::vector<Value>{std::string(999, 'x')});

    EXPECT_EQ(writer.Outcomes().front().cutCount, 2U);
    EXPECT_EQ(writer.Outcomes().front().firstCut, 2U);
}

TEST(ARowWriter, CountsValuesOfAnotherKind) {
    app::PairCharset charset = Latin1();
    app::RowWriter writer({kInt}, {}, charset);
    std::string rows;

    writer.Append(rows, std::vector<Value>{std::int64_t{1}});
    writer.Append(rows, std::vector<Value>{"one"});
    writer.Append(rows, std::vector<Value>{"two"});

    EXPECT_EQ(writer.Outcomes().front().otherCount, 2U);
    EXPECT_EQ(writer.Outcomes().front().firstOther, "one");
}

TEST(ARowWriter, CutsNothingWhileTheCharsetIsOpen) {
    app::PairCharset charset;
    app::RowWriter writer({kText}, {}, charset);
    std::string rows;

    writer.Append(rows, std::vector<Value>{std::string(300, 'x')});

    EXPECT_EQ(rows.size(), 303U);
    EXPECT_TRUE(writer.HasTooLongText());
    EXPECT_EQ(writer.Outcomes().front().cutCount, 0U);
}

// Rows of the values in the charset that they need, given to the recoder in pieces of that size.
struct Recoded {
    std::string rows;
    std::vector<app::ColumnOutcome> columns;
};
Recoded Recode(const std::vector<std::vector<Value>>& rows, std::size_t pieceSize) {
    app::PairCharset charset;
    app::RowWriter writer({kText, kInt, kText}, {}, charset);
    std::string written;
    for (const std::vector<Value>& values : rows) {
        writer.Append(written, values);
    }
    static_cast<void>(charset.Settle());
    writer.ForgetTexts();
    app::RowRecoder recoder(writer, ',');
    std::string out;
    for (std::size_t at = 0; at < written.size(); at += pieceSize) {
        recoder.Recode(std::string_view(written).substr(at, pieceSize), out);
    }
    return {out, writer.Outcomes()};
}

class Recoding : public testing::TestWithParam<std::size_t> {};

TEST_P(Recoding, WritesTheRowsInTheirCharset) {
    const Recoded recoded = Recode({{"\u0416\"\u0443\"\u043A", std::int64_t{7}, "a,\n\u0416"},
                                    {kNull, kNull, "\"\""},
                                    {"", std::int64_t{8}, kNull}},
                                   GetParam());

    EXPECT_EQ(recoded.rows, "\"\xC6\"\"\xF3\"\"\xEA\",7,\"a,\n\xC6\"\n,,\"\"\"\"\"\"\n\"\",8,\n");
    EXPECT_EQ(recoded.columns[0].column.width, 5);
    EXPECT_EQ(recoded.columns[2].column.width, 4);
}

TEST_P(Recoding, CutsWhatIsTooLong) {
    std::string text;
    for (int i = 0; i < 255; ++i) {
        text += "\u0416";
    }

    const Recoded recoded = Recode({{"a", kNull, kNull}, {text, kNull, text}}, GetParam());

    EXPECT_EQ(recoded.columns[0].column.width, 254);
    EXPECT_EQ(recoded.columns[0].cutCount, 1U);
    EXPECT_EQ(recoded.columns[0].firstCut, 2U);
    EXPECT_EQ(recoded.columns[2].cutCount, 1U);
}

INSTANTIATE_TEST_SUITE_P(InPiecesOf, Recoding, testing::Values(1, 2, 3, 7, 1000));

}  // namespace
