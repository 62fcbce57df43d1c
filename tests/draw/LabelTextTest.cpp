// What becomes of a text before it is drawn.
#include "app/draw/LabelText.h"

#include <gtest/gtest.h>

namespace {

using Lines = std::vector<std::string>;

struct TextRow {
    std::string name;
    std::wstring text;
    Lines lines;
};
class LinesOf : public testing::TestWithParam<TextRow> {};

TEST_P(LinesOf, TheText) {
    EXPECT_EQ(app::LinesOf(GetParam().text), GetParam().lines);
}

INSTANTIATE_TEST_SUITE_P(, LinesOf,
                         testing::Values(TextRow{"OneLine", L"Main Street", {"Main Street"}},
                                         TextRow{"Nothing", L"", {""}},
                                         TextRow{"ALineFeed", L"a\nb", {"a", "b"}},
                                         TextRow{"ABackslashAndN", L"a\\nb", {"a", "b"}},
                                         TextRow{"ACarriageReturnGoes", L"a\r\nb", {"a", "b"}},
                                         TextRow{"ATabIsABlank", L"a\tb", {"a b"}},
                                         TextRow{"ControlCharactersGo",
                                                 std::wstring(L"a\0b\x01\x1B\x7F\x85"
                                                              L"c",
                                                              8),
                                                 {"abc"}},
                                         TextRow{"NoncharactersGo",
                                                 L"a\xFFFE\xFFFF\xFDD0"
                                                 L"b",
                                                 {"ab"}},
                                         TextRow{"ALoneSurrogateGoes",
                                                 L"a\xD800"
                                                 L"b\xDC00",
                                                 {"ab"}},
                                         TextRow{"APairOfSurrogatesIsOneCharacter",
                                                 L"\xD83D\xDE00",
                                                 {"\xF0\x9F\x98\x80"}},
                                         TextRow{"LettersOfAllLengths",
                                                 L"\u00E9\u20AC\U0001F600",
                                                 {"\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80"}}),
                         [](const auto& row) { return row.param.name; });

TEST(LinesOfAText, HaveAtMostAThousandCharacters) {
    EXPECT_EQ(app::LinesOf(std::wstring(5000, L'x')), (Lines{std::string(1000, 'x')}));
}

TEST(LinesOfAText, AreAtMostAHundred) {
    EXPECT_EQ(app::LinesOf(std::wstring(5000, L'\n')).size(), 100U);
}

TEST(LinesOfAText, DropANumberThatIsNoCharacter) {
    const std::wstring text{L'a', static_cast<wchar_t>(0x7FFFFFFF), L'b'};

    EXPECT_EQ(app::LinesOf(text), (Lines{"ab"}));
}

TEST(CleanName, DropsControlCharacters) {
    EXPECT_EQ(app::CleanName(std::wstring(L"Map\0 Sy\nmbols", 13)), "Map Symbols");
}

TEST(CleanCharacter, IsEmptyForABlankAndForControls) {
    EXPECT_EQ(app::CleanCharacter('A'), "A");
    EXPECT_EQ(app::CleanCharacter(32), "");
    EXPECT_EQ(app::CleanCharacter(0), "");
    EXPECT_EQ(app::CleanCharacter(-5), "");
    EXPECT_EQ(app::CleanCharacter(0xD800), "");
}

}  // namespace
