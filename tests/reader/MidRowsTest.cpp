// The rows of a .mid file and their fields.
#include "tests/reader/Sources.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using namespace std::string_literals;
using readertest::FilePair;

std::string HeaderWith(const std::string& delimiter) {
    return "Version 300\nDelimiter \"" + delimiter + "\"\nData\n\n";
}

// Each row, with the result of reading it, until the .mid file is exhausted.
std::vector<std::string> RowsOf(const char* mid) {
    FilePair pair(HeaderWith(","), mid);
    std::vector<std::string> rows;
    if (!pair.Open()) {
        return {"not opened: " + std::string(mid)};
    }
    while (!pair.reader().IsMidEOF()) {
        const bool result = pair.reader().ReadMidRow();
        rows.push_back((result ? "true " : "false ") + std::string(pair.reader().MidRowText()));
    }
    return rows;
}

using Rows = std::vector<std::string>;

TEST(ReadMidRow, ReadsLineByLine) {
    EXPECT_EQ(RowsOf("1,a\n2,b\n"), (Rows{"true 1,a", "true 2,b", "false "}));
}

TEST(ReadMidRow, DropsCarriageReturns) {
    EXPECT_EQ(RowsOf("1\r,a\r\n2\r\n"), (Rows{"true 1,a", "true 2", "false "}));
}

TEST(ReadMidRow, OfAnEmptyLineIsFalse) {
    EXPECT_EQ(RowsOf("1\n\n2\n"), (Rows{"true 1", "false ", "true 2", "false "}));
}

TEST(ReadMidRow, ReadsALastLineWithoutLineEnd) {
    EXPECT_EQ(RowsOf("1\n2"), (Rows{"true 1", "true 2"}));
}

TEST(ReadMidRow, OfAnEmptyFileIsFalse) {
    EXPECT_EQ(RowsOf(""), (Rows{"false "}));
}

TEST(ReadMidRow, TakesTheByte255ForNoEnd) {
    EXPECT_EQ(RowsOf("a\xFF"
                     "b\nc\n"),
              (Rows{"true a\xFF"
                    "b",
                    "true c", "false "}));
}

TEST(ReadMidRow, EndsARowAtANul) {
    FilePair pair(HeaderWith(","));
    static_cast<void>(pair.folder().Write("pair.mid", "ab\0cd\n"s));
    ASSERT_TRUE(pair.Open());

    EXPECT_TRUE(pair.reader().ReadMidRow());
    EXPECT_STREQ(pair.reader().MidRowText(), "ab");
    EXPECT_TRUE(pair.reader().ReadMidRow());
    EXPECT_STREQ(pair.reader().MidRowText(), "cd");
}

TEST(ReadMidRow, ReadsRowsLongerThanAnyBuffer) {
    const std::string row(100'000, 'x');

    EXPECT_EQ(RowsOf((row + "\nb").c_str()), (Rows{"true " + row, "true b"}));
}

struct FieldRow {
    std::string name;
    std::string delimiter;
    std::string row;
    std::vector<std::string> fields;  // "-" is a false result
};
void PrintTo(const FieldRow& row, std::ostream* out) {
    *out << row.name;
}

std::string FieldOf(mif::CMifReader& reader, std::size_t index) {
    std::string field = "before";
    const bool result = reader.GetMidField(index, field);
    if (result != !field.empty()) {
        return "the result does not tell whether the field is empty";
    }
    return result ? field : "-";
}

class GetMidField : public testing::TestWithParam<FieldRow> {
protected:
    void SetUp() override {
        ASSERT_TRUE(pair_.Open());
        static_cast<void>(pair_.reader().ReadMidRow());
    }

    FilePair pair_{HeaderWith(GetParam().delimiter), GetParam().row.c_str()};
};

TEST_P(GetMidField, InOrderGivesTheseFields) {
    std::vector<std::string> fields;
    for (std::size_t index = 0; index < GetParam().fields.size(); ++index) {
        fields.push_back(FieldOf(pair_.reader(), index));
    }

    EXPECT_EQ(fields, GetParam().fields);
}

TEST_P(GetMidField, InReverseOrderGivesTheSame) {
    std::vector<std::string> fields(GetParam().fields.size());
    for (std::size_t index = fields.size(); index-- > 0;) {
        fields[index] = FieldOf(pair_.reader(), index);
    }

    EXPECT_EQ(fields, GetParam().fields);
}

INSTANTIATE_TEST_SUITE_P(
    , GetMidField,
    testing::Values(
        FieldRow{"QuotedWithADelimiter",
                 ",",
                 "1,\"Main St, North\",  5",
                 {"1", "Main St, North", "5", "-", "-"}},
        FieldRow{"Empty", ",", "1,,3,", {"1", "-", "3", "-", "-"}},
        FieldRow{"OnlyBlanks", ",", "1,  \t,3", {"1", "-", "3"}},
        FieldRow{"BlankAtTheEnd", ",", "1,  ", {"1", "-"}},
        FieldRow{"ADoubledQuoteEndsIt", ",", "\"a \"\"b\"\" c\",2", {"a ", "2"}},
        FieldRow{"EmptyInQuotes", ",", "\"\",2", {"-", "2"}},
        FieldRow{"BlanksInQuotesStay", ",", "\"  a \",2", {"  a ", "2"}},
        FieldRow{"AQuoteThatIsNotClosed", ",", "1,\"a,b", {"1", "a,b", "-"}},
        FieldRow{"AQuoteInsideHidesDelimiters", ",", "a\"b,c\"d,2", {"a\"b", "2"}},
        FieldRow{"TrailingBlanksStay", ",", "a  ,b", {"a  ", "b"}},
        FieldRow{"BlanksBeforeAQuote", ",", "  \"a,b\" ,c", {"a,b", "c"}},
        FieldRow{"KeptATabRunsOverAnEmptyField", "\t", "1\t\t3", {"1", "3", "3", "-"}},
        FieldRow{"KeptAnEmptyDelimiterMakesOneField", "", " a,b;c", {"a,b;c", "-"}},
        FieldRow{"OnlyTheDelimitersFirstCharacterCounts", ";|", "a|;b;c", {"a|", "b", "c"}},
        FieldRow{"ADelimiterAboveTheByte127", "\xA7", "a\xA7 b\xA7", {"a", "b", "-"}},
        FieldRow{"ALongRow", ",", std::string(600, 'x') + ",b", {std::string(600, 'x'), "b"}}),
    [](const auto& row) { return row.param.name; });

TEST(GetMidFieldFrom, TheNextRowStartsAnew) {
    FilePair pair(HeaderWith(","), "a,b,c\nd,e,f\n");
    ASSERT_TRUE(pair.Open());
    static_cast<void>(pair.reader().ReadMidRow());
    static_cast<void>(FieldOf(pair.reader(), 2));
    static_cast<void>(pair.reader().ReadMidRow());

    EXPECT_EQ(FieldOf(pair.reader(), 1), "e");
}

TEST(GetMidFieldFrom, AQuoteAsDelimiterFindsNoSecondField) {
    FilePair pair("Version 300\nCharset \"X\"\nData\n\n", "a\"b\"c\n");
    ASSERT_TRUE(pair.Open());
    static_cast<void>(pair.reader().ReadMidRow());

    EXPECT_EQ(FieldOf(pair.reader(), 0), "a\"b\"c");
}

TEST(GetMidFieldFrom, ARowThatWasNeverReadIsFalse) {
    FilePair pair(HeaderWith(","), "a\n");
    ASSERT_TRUE(pair.Open());

    EXPECT_EQ(FieldOf(pair.reader(), 0), "-");
}

}  // namespace
