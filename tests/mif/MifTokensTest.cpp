// Cutting MIF text, with the place of each token.
#include "app/mif/MifTokens.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using app::MifToken;
using app::TokenKind;

// "kind:text@begin-end", one per token.
std::vector<std::string> Shown(std::string_view text, std::uint64_t offset = 0) {
    std::vector<std::string> shown;
    for (const MifToken& token : app::TokensOf(text, offset)) {
        const char* const kind = token.kind == TokenKind::LineEnd  ? "end"
                                 : token.kind == TokenKind::Mark   ? "mark"
                                 : token.kind == TokenKind::Quoted ? "quoted"
                                                                   : "word";
        shown.push_back(std::string(kind) + ":" +
                        (token.IsLineEnd() ? "" : app::WithoutReturns(token.text)) + "@" +
                        std::to_string(token.begin) + "-" + std::to_string(token.end) +
                        (token.isClosed ? "" : " open"));
    }
    return shown;
}

struct TokenRow {
    std::string name;  // letters and digits
    std::string text;
    std::vector<std::string> tokens;
};
void PrintTo(const TokenRow& row, std::ostream* out) {
    *out << row.name;
}

class Text : public testing::TestWithParam<TokenRow> {};

TEST_P(Text, IsCutIntoTheseTokens) {
    EXPECT_EQ(Shown(GetParam().text), GetParam().tokens);
}

const TokenRow kRows[] = {
    {"Nothing", "", {}},
    {"BlanksAndTabs", " \t ", {}},
    {"AKeywordAndACount", "pline 3\n", {"word:pline@0-5", "word:3@6-7", "end:@7-8"}},
    {"ACoordinatePair",
     "(1.5,-2)",
     {"mark:(@0-1", "word:1.5@1-4", "mark:,@4-5", "word:-2@5-7", "mark:)@7-8"}},
    {"AQuotedText", "\"a, (b)\" c", {"quoted:a, (b)@0-8", "word:c@9-10"}},
    {"AnEmptyQuotedText", "\"\" c", {"quoted:@0-2", "word:c@3-4"}},
    {"ADoubledQuoteAsTwoTexts", "\"a \"\" b\"", {"quoted:a @0-4", "quoted: b@4-8"}},
    {"AQuoteThatTheLineEnds", "\"a b\r\nc", {"quoted:a b@0-4 open", "end:@4-6", "word:c@6-7"}},
    {"AQuoteThatTheTextEnds", "x \"a", {"word:x@0-1", "quoted:a@2-4 open"}},
    {"AWordUpToAQuote", "ab\"c\"", {"word:ab@0-2", "quoted:c@2-5"}},
    {"SeveralReturnsBeforeALineFeed", "a\r\r\nb", {"word:a@0-1", "end:@1-4", "word:b@4-5"}},
    {"AReturnAloneAsALineEnd", "a\rb", {"word:a@0-1", "end:@1-2", "word:b@2-3"}},
    {"AReturnInQuotesAsNothing", "\"a\rb\"", {"quoted:ab@0-5"}},
    {"BytesAbove127AsLetters", "\xE4\xF6 x", {"word:\xE4\xF6@0-2", "word:x@3-4"}},
};
INSTANTIATE_TEST_SUITE_P(, Text, testing::ValuesIn(kRows),
                         [](const auto& row) { return row.param.name; });

TEST(MifTokens, CountOffsetsFromThePlaceOfTheText) {
    EXPECT_EQ(Shown("a b", 100), (std::vector<std::string>{"word:a@100-101", "word:b@102-103"}));
}

TEST(MifTokens, GiveTheEndAgainAndAgain) {
    app::MifTokens tokens("a");
    tokens.Next();

    EXPECT_EQ(tokens.Next().kind, TokenKind::End);
    EXPECT_EQ(tokens.Next().kind, TokenKind::End);
}

TEST(TokensOf, StopsAtTheMostThatIsAskedFor) {
    EXPECT_EQ(app::TokensOf("a b c d", 0, 2).size(), 2U);
}

TEST(MifToken, IsAKeywordInAnyCase) {
    EXPECT_TRUE(app::TokensOf("PLine")[0].Is("pline"));
    EXPECT_FALSE(app::TokensOf("PLines")[0].Is("pline"));
}

}  // namespace
