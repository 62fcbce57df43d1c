#include "app/base/Utf8.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace {

std::u32string CodePoints(std::string_view utf8) {
    std::u32string codePoints;
    while (!utf8.empty()) {
        codePoints += app::TakeCodePoint(utf8);
    }
    return codePoints;
}

struct Utf8Row {
    std::string name;
    std::string bytes;
    std::u32string codePoints;
};
class TakeCodePoint : public testing::TestWithParam<Utf8Row> {};

TEST_P(TakeCodePoint, Takes) {
    EXPECT_EQ(CodePoints(GetParam().bytes), GetParam().codePoints);
}

INSTANTIATE_TEST_SUITE_P(
    , TakeCodePoint,
    testing::Values(
        Utf8Row{"EveryLength", "a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80", U"a\u00E9\u20AC\U0001F600"},
        Utf8Row{"AByteThatBeginsNothing", "a\x80z", U"a\uFFFDz"},
        Utf8Row{"ACutCharacter", "\xE2\x82", U"\uFFFD\uFFFD"},
        Utf8Row{"ACharacterCutByALetter", "\xE2\x82z", U"\uFFFD\uFFFDz"},
        Utf8Row{"MoreBytesThanNeeded", "\xC0\xAF\xE0\x80\xAF", U"\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD"},
        Utf8Row{"ASurrogate", "\xED\xA0\x80", U"\uFFFD\uFFFD\uFFFD"},
        Utf8Row{"ACodePointBeyondTheLast", "\xF4\x90\x80\x80", U"\uFFFD\uFFFD\uFFFD\uFFFD"}),
    [](const auto& row) { return row.param.name; });

TEST(FoldedCase, MakesCapitalsOfThreeAlphabetsSmall) {
    EXPECT_EQ(app::FoldedCase("NAME"), U"name");
    EXPECT_EQ(app::FoldedCase("\u00C4\u00D5 \u0160\u017D\u0141 \u00D7\u00DF"),
              U"\u00E4\u00F5 \u0161\u017E\u0142 \u00D7\u00DF");
    EXPECT_EQ(app::FoldedCase("\u0391\u03A9 \u0410\u042F\u0401"),
              U"\u03B1\u03C9 \u0430\u044F\u0451");
}

TEST(FoldedCase, LeavesSmallLettersAndTheRestAlone) {
    EXPECT_EQ(app::FoldedCase("a_1 \u00E4\u0161\u044F\u20AC"), U"a_1 \u00E4\u0161\u044F\u20AC");
}

}  // namespace
