// Control characters out of files can't drive the terminal.
#include "app/base/Reporter.h"
#include "app/json/JsonText.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <ostream>
#include <string>

namespace fault_test {

namespace {

struct TextRow {
    std::string name;
    std::string text;
    std::string terminal;
    std::string json;
};
std::ostream& operator<<(std::ostream& out, const TextRow& row) {
    return out << row.name;
}
class ATextOfAFile : public testing::TestWithParam<TextRow> {};

std::string JsonOf(const std::string& text) {
    std::string json;
    app::AppendJsonString(json, text);
    return json;
}

}  // namespace

TEST_P(ATextOfAFile, IsShownWithItsControlsVisible) {
    EXPECT_EQ(app::TerminalText(GetParam().text), GetParam().terminal);
}

TEST_P(ATextOfAFile, IsJsonWithItsControlsEscaped) {
    EXPECT_EQ(JsonOf(GetParam().text), GetParam().json);
}

INSTANTIATE_TEST_SUITE_P(, ATextOfAFile,
                         testing::Values(TextRow{"Plain", "A road", "A road", "\"A road\""},
                                         TextRow{"OtherScripts", "дорога 地図 äß", "дорога 地図 äß",
                                                 "\"дорога 地図 äß\""},
                                         TextRow{"AnEscapeSequence", "\033[31mred", "\\x1b[31mred",
                                                 "\"\\u001b[31mred\""},
                                         TextRow{"ATitleSequence", "\033]0;title\a",
                                                 "\\x1b]0;title\\x07",
                                                 "\"\\u001b]0;title\\u0007\""},
                                         TextRow{"ACarriageReturn", "a\rb", "a\\x0db", "\"a\\rb\""},
                                         TextRow{"ABackspace", "a\bb", "a\\x08b", "\"a\\u0008b\""},
                                         TextRow{"ADelete",
                                                 "a\x7F"
                                                 "b",
                                                 "a\\x7f"
                                                 "b",
                                                 "\"a\\u007f"
                                                 "b\""},
                                         TextRow{"AOneCharacterSequence",
                                                 "\xC2\x9B"
                                                 "31m",
                                                 "\\x9b"
                                                 "31m",
                                                 "\"\\u009b"
                                                 "31m\""},
                                         TextRow{"AnEightBitControl",
                                                 "\x9B"
                                                 "31m",
                                                 "\\x9b"
                                                 "31m",
                                                 "\"\xEF\xBF\xBD"
                                                 "31m\""},
                                         TextRow{"ATab", "a\tb", "a\tb", "\"a\\tb\""}),
                         [](const auto& row) { return row.param.name; });

TEST(AMessage, ShowsTheControlsOfAFilesText) {
    std::FILE* const stream = std::tmpfile();
    app::Reporter reporter(stream, /*isTerminal=*/false, /*useColor=*/false);
    char text[80] = {};

    reporter.Warning("bad \033[2J type\nof object");
    std::rewind(stream);
    const std::size_t length = std::fread(text, 1, sizeof text, stream);
    std::fclose(stream);

    EXPECT_EQ(std::string(text, length),
              "qolf: warning: bad \\x1b[2J type\nqolf: warning: of object\n");
}

}  // namespace fault_test
