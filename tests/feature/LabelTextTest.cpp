// What becomes of a text before it is drawn.
#include "app/feature/LabelText.h"

#include <gtest/gtest.h>

namespace {

using Lines = std::vector<std::string>;

struct TextRow {
    std::string name;
    std::string text;
    Lines lines;
};
class LinesOf : public testing::TestWithParam<TextRow> {};

TEST_P(LinesOf, TheText) {
    EXPECT_EQ(app::LinesOf(GetParam().text), GetParam().lines);
}

INSTANTIATE_TEST_SUITE_P(
    , LinesOf,
    testing::Values(
        TextRow{"OneLine", "Main Street", {"Main Street"}}, TextRow{"Nothing", "", {""}},
        TextRow{"ALineFeed", "a\nb", {"a", "b"}}, TextRow{"ABackslashAndN", "a\\nb", {"a", "b"}},
        TextRow{"ACarriageReturnGoes", "a\r\nb", {"a", "b"}},
        TextRow{"ATabIsABlank", "a\tb", {"a b"}},
        TextRow{"ControlCharactersGo",
                std::string("a\0b\x01\x1B\x7F\xC2\x85"
                            "c",
                            9),
                {"abc"}},
        TextRow{"NoncharactersGo", "a\uFFFE\uFFFF\uFDD0b", {"ab"}},
        TextRow{"BytesThatAreNoCharacterGo",
                "a\xED\xA0\x80\xFF"
                "b",
                {"ab"}},
        TextRow{"MarksOfTheDirectionGo", "a\u202Eb\u2066\u200Fc", {"abc"}},
        TextRow{"LettersOfAllLengths", "\u00E9\u20AC\U0001F600", {"\u00E9\u20AC\U0001F600"}}),
    [](const auto& row) { return row.param.name; });

TEST(LinesOfAText, HaveAtMostAThousandCharacters) {
    EXPECT_EQ(app::LinesOf(std::string(5000, 'x')), (Lines{std::string(1000, 'x')}));
}

TEST(LinesOfAText, AreAtMostAHundred) {
    EXPECT_EQ(app::LinesOf(std::string(5000, '\n')).size(), 100U);
}

TEST(CleanName, DropsControlCharactersAndJoinsLines) {
    EXPECT_EQ(app::CleanName(std::string("Map\0 Sym\nbols", 13)), "Map Sym bols");
}

TEST(CleanCharacter, IsEmptyForABlankAndForControls) {
    EXPECT_EQ(app::CleanCharacter('A'), "A");
    EXPECT_EQ(app::CleanCharacter(32), "");
    EXPECT_EQ(app::CleanCharacter(0), "");
    EXPECT_EQ(app::CleanCharacter(-5), "");
    EXPECT_EQ(app::CleanCharacter(0xD800), "");
}

}  // namespace
