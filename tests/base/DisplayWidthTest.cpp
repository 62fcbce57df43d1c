#include "app/base/DisplayWidth.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>

namespace {

struct WidthRow {
    std::string name;
    std::string text;
    std::size_t cells;
};
class DisplayWidth : public testing::TestWithParam<WidthRow> {};

TEST_P(DisplayWidth, IsCountedInCells) {
    EXPECT_EQ(app::DisplayWidth(GetParam().text), GetParam().cells);
}

INSTANTIATE_TEST_SUITE_P(
    , DisplayWidth,
    testing::Values(WidthRow{"Nothing", "", 0}, WidthRow{"Ascii", "Name 1", 6},
                    WidthRow{"AnAccentedLetter", "caf\xC3\xA9", 4},
                    WidthRow{"AnAccentOfItsOwn", "cafe\xCC\x81", 4},
                    WidthRow{"CyrillicLetters", "\xD0\x9C\xD0\xB8\xD1\x80", 3},
                    WidthRow{"HanCharacters", "\xE6\x9D\xB1\xE4\xBA\xAC", 4},
                    WidthRow{"HangulSyllables", "\xEC\x84\x9C\xEC\x9A\xB8", 4},
                    WidthRow{"KatakanaOfHalfTheWidth", "\xEF\xBD\xB1\xEF\xBD\xB2", 2},
                    WidthRow{"LettersOfFullWidth", "\xEF\xBC\xA1\xEF\xBC\xA2", 4},
                    WidthRow{"AnEmoji", "\xF0\x9F\x98\x80", 2},
                    WidthRow{"AThaiVowelAboveItsLetter", "\xE0\xB8\x81\xE0\xB8\xB4", 1},
                    WidthRow{"AByteThatIsNoCharacter", "a\x80z", 3}),
    [](const auto& row) { return row.param.name; });

}  // namespace
