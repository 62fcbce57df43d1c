// Lines of numbers: against a slow and plain way to look at them.
#include "app/mif/NumberLines.h"
#include "app/mif/MifTokens.h"
#include "app/mif/Numbers.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

namespace {

// The same by tokens, line by line.
app::NumberLineRun CountedByTokens(std::string_view text, std::uint64_t most, unsigned words) {
    app::NumberLineRun run;
    while (run.lines < most) {
        const std::string_view rest = text.substr(run.bytes);
        const std::size_t feed = rest.find('\n');
        if (feed == std::string_view::npos) {
            break;
        }
        const std::string_view line = rest.substr(0, feed + 1);
        const std::string_view inner = line.substr(0, line.ends_with("\r\n") ? feed - 1 : feed);
        const std::vector<app::MifToken> tokens = app::TokensOf(inner);
        const bool isPlain =
            tokens.size() == words && inner.find('\r') == std::string_view::npos &&
            std::ranges::all_of(tokens, [](const app::MifToken& token) {
                return token.kind == app::TokenKind::Word &&
                       token.text.find_first_not_of("0123456789+-.eE") == std::string_view::npos;
            });
        if (!isPlain) {
            break;
        }
        run.bytes += line.size();
        ++run.lines;
    }
    return run;
}

struct RunRow {
    std::string name;  // letters and digits
    std::string text;
    unsigned words;
    std::uint64_t lines;
};
void PrintTo(const RunRow& row, std::ostream* out) {
    *out << row.name;
}

class NumberLines : public testing::TestWithParam<RunRow> {};

TEST_P(NumberLines, BeginsWithSoManyPlainLines) {
    const RunRow& row = GetParam();

    EXPECT_EQ(app::CountNumberLines(row.text, 1000, row.words).lines, row.lines);
    EXPECT_EQ(CountedByTokens(row.text, 1000, row.words).lines, row.lines);
}

const RunRow kRows[] = {
    {"Empty", "", 2, 0},
    {"OnePair", "1.5 -2e3\n", 2, 1},
    {"PairsWithBlanksAndTabs", "  1 2\n3\t4  \n", 2, 2},
    {"CrLf", "1 2\r\n3 4\r\n", 2, 2},
    {"AReturnAlone", "1 2\r3 4\n", 2, 0},
    {"AReturnInALine", "1\r2\n", 2, 0},
    {"WithoutALineEnd", "1 2\n3 4", 2, 1},
    {"TooFewWords", "1 2\n3\n", 2, 1},
    {"TooManyWords", "1 2\n3 4 5\n", 2, 1},
    {"AnEmptyLine", "1 2\n\n3 4\n", 2, 1},
    {"ADecimalComma", "1 2\n1,5 2,5\n", 2, 1},
    {"AKeyword", "1 2\n    Pen (1,2,0)\n", 2, 1},
    {"AWordOfTheLetterE", "e E\n", 2, 1},
    {"OneWord", "5\n6\n", 1, 2},
    {"FourWords", "1 2 3 4\n", 4, 1},
};
INSTANTIATE_TEST_SUITE_P(, NumberLines, testing::ValuesIn(kRows),
                         [](const auto& row) { return row.param.name; });

TEST(CountNumberLines, StopsAtTheMostThatIsAskedFor) {
    const std::string text = "1 2\n3 4\n5 6\n";

    EXPECT_EQ(app::CountNumberLines(text, 2, 2).lines, 2U);
    EXPECT_EQ(app::CountNumberLines(text, 2, 2).bytes, 8U);
    EXPECT_EQ(app::CountNumberLines(text, 0, 2).lines, 0U);
}

TEST(CountNumberLines, CountsAsTheTokensDoInRandomTexts) {
    constexpr std::string_view kPieces[] = {
        "1",  "23.5", "-7", " ",   "  ", "\t", "\n",    "\n",
        "\n", "\r\n", "\r", "1e5", ",",  "x",  "4 5\n", "123456.789 987654.321\n"};
    std::mt19937 random(99);
    for (int i = 0; i < 200'000; ++i) {
        std::string text;
        // Mostly good lines, so that runs cross the blocks.
        for (auto piece = random() % 40; piece-- > 0;) {
            text += random() % 4 == 0 ? kPieces[random() % std::size(kPieces)]
                                      : std::string_view("123456.789 98765.4321\n");
        }
        const auto words = static_cast<unsigned>(1 + random() % 3);
        const app::NumberLineRun run = app::CountNumberLines(text, 1000, words);
        const app::NumberLineRun expected = CountedByTokens(text, 1000, words);
        ASSERT_EQ(run.lines, expected.lines) << text;
        ASSERT_EQ(run.bytes, expected.bytes) << text;
    }
}

TEST(HoldsNumbers, CountsTheWords) {
    EXPECT_TRUE(app::HoldsNumbers(" 1 2 \r", 2));
    EXPECT_FALSE(app::HoldsNumbers("1 2 3", 2));
    EXPECT_FALSE(app::HoldsNumbers("1 2,5", 2));
    EXPECT_FALSE(app::HoldsNumbers("", 1));
}

TEST(ReadNumberLines, AppendsThePairs) {
    std::vector<shr::Vec2d> points{{9, 9}};

    app::ReadNumberLines(" 1.5 -2\r\n3e2\t4\n", points);

    EXPECT_EQ(points, (std::vector<shr::Vec2d>{{9, 9}, {1.5, -2}, {300, 4}}));
}

}  // namespace
