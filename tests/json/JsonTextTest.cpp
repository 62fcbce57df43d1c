// JSON text: strings are always valid UTF-8, numbers read back to the same double.
#include "app/json/JsonText.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace {

std::string StringOf(const std::string& text) {
    std::string out;
    app::AppendJsonString(out, text);
    return out;
}

std::string NumberOf(double value) {
    std::string out;
    app::AppendJsonNumber(out, value);
    return out;
}

struct StringRow {
    std::string name;  // letters and digits
    std::string bytes;
    std::string json;
};

class AJsonString : public testing::TestWithParam<StringRow> {};

TEST_P(AJsonString, IsWrittenLikeThis) {
    EXPECT_EQ(StringOf(GetParam().bytes), GetParam().json);
}

const StringRow kStrings[] = {
    {"Empty", "", "\"\""},
    {"Plain", "Main St", "\"Main St\""},
    {"QuoteAndBackslash", "a\"b\\c", R"("a\"b\\c")"},
    {"LineEndsAndTab", "a\r\n\tb", R"("a\r\n\tb")"},
    {"Nul", std::string("a\0b", 3), R"("a\u0000b")"},
    {"Control", "\x1b[31m\x7f", R"("\u001b[31m\u007f")"},
    {"HighControl", "\xC2\x9B", R"("\u009b")"},
    {"TwoBytes", "\xC3\xA9", "\"\xC3\xA9\""},
    {"ThreeBytes", "\xE2\x82\xAC", "\"\xE2\x82\xAC\""},
    {"FourBytes", "\xF0\x9F\x97\xBA", "\"\xF0\x9F\x97\xBA\""},
    {"LoneContinuation", "a\x80z", "\"a\xEF\xBF\xBDz\""},
    {"Truncated", "a\xE2\x82", "\"a\xEF\xBF\xBD\xEF\xBF\xBD\""},
    {"Overlong", "\xC0\xAF", "\"\xEF\xBF\xBD\xEF\xBF\xBD\""},
    {"Surrogate", "\xED\xA0\x80", "\"\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD\""},
    {"BeyondUnicode", "\xF5\x80\x80\x80", "\"\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD\""},
};
INSTANTIATE_TEST_SUITE_P(, AJsonString, testing::ValuesIn(kStrings),
                         [](const auto& row) { return row.param.name; });

TEST(AJsonNumber, IsTheShortestThatReadsBack) {
    EXPECT_EQ(NumberOf(0.1), "0.1");
    EXPECT_EQ(NumberOf(1.0), "1");
    EXPECT_EQ(NumberOf(1.0 / 3.0), "0.3333333333333333");
}

TEST(AJsonNumber, KeepsTheSignOfZeroForReadersThatTakeMinusZeroForAnInteger) {
    EXPECT_EQ(NumberOf(-0.0), "-0.0");
}

TEST(AJsonNumber, IsATextForWhatJsonHasNoNumberFor) {
    EXPECT_EQ(NumberOf(std::numeric_limits<double>::quiet_NaN()), "\"nan\"");
    EXPECT_EQ(NumberOf(std::numeric_limits<double>::infinity()), "\"inf\"");
    EXPECT_EQ(NumberOf(-std::numeric_limits<double>::infinity()), "\"-inf\"");
}

TEST(APlainJsonNumber, HasNoExponentWherePeopleExpectNone) {
    std::string text;
    app::AppendPlainJsonNumber(text, 500000.0);
    EXPECT_EQ(text, "500000");

    text.clear();
    app::AppendPlainJsonNumber(text, -0.0);
    EXPECT_EQ(text, "-0.0");
}

}  // namespace
