// The tokenizer, over a stream and over a block of memory.
#include "tests/reader/Sources.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

namespace {

using namespace std::string_literals;
using readertest::OpenText;
using readertest::Source;

struct TokenRow {
    std::string name;  // what the row shows: letters and digits, it ends the test's name
    std::string text;
    std::vector<std::string> tokens;
};

void PrintTo(const TokenRow& row, std::ostream* out) {
    *out << row.name;
}

class NextTokenCuts : public testing::TestWithParam<std::tuple<Source, TokenRow>> {};

TEST_P(NextTokenCuts, TheTextIntoTheseTokens) {
    OpenText text(std::get<Source>(GetParam()), std::get<TokenRow>(GetParam()).text);

    EXPECT_EQ(text.Tokens(), std::get<TokenRow>(GetParam()).tokens);
}

const TokenRow kTokenRows[] = {
    {"WordsAndALineFeed", "pline 3\n", {"pline", "3", "\n"}},
    {"CarriageReturnLineFeedAlike", "pline 3\r\n", {"pline", "3", "\n"}},
    {"NoCarriageReturnInAWord", "pl\rine\r\r 3", {"pline", "3"}},
    {"NoCarriageReturnInAString", "\"a\r\rb\"", {"ab"}},
    {"NothingOfALoneCarriageReturn", "\r", {}},
    {"AQuotedStringWithAComma", "\"Arial,Bold\"", {"Arial,Bold"}},
    {"AQuotedStringWithBlanksAndParentheses", "\" (a)\t\" b", {" (a)\t", "b"}},
    {"ADoubledQuoteIsNoEscape", "\"a \"\" b\"", {"a ", " b"}},
    {"AnUnterminatedQuoteEndsWithItsLine", "\"abc d\nnext", {"abc d", "\n", "next"}},
    {"AnUnterminatedQuoteEndsWithTheInput", "\"abc", {"abc"}},
    {"AQuoteEndsAWord", "ab\"cd\"ef", {"ab", "cd", "ef"}},
    {"ACoordinatePair", "(1.5,-2)", {"(", "1.5", ",", "-2", ")"}},
    {"ANumberWithAnExponentIsOneWord", "-1.5e+03", {"-1.5e+03"}},
    {"OtherPunctuationBelongsToWords", "a;b=c'd/e\\f", {"a;b=c'd/e\\f"}},
    {"BlanksBeforeALineEndAreSkipped", "a \t \nb", {"a", "\n", "b"}},
    {"ALineOfBlanksIsALineFeed", "  \t \n", {"\n"}},
    {"EmptyLinesAreALineFeedEach", "\n\n\n", {"\n", "\n", "\n"}},
    {"BytesAbove127BelongToWords", "\x80\xE4\xFF \xFF", {"\x80\xE4\xFF", "\xFF"}},
    {"ANulBelongsToAWord", "a\0b c"s, {"a\0b"s, "c"}},
    {"OtherControlCharactersBelongToWords", "a\x01\v\f b", {"a\x01\v\f", "b"}},
    {"AWordLongerThanAnyBuffer", std::string(5000, 'x') + " y", {std::string(5000, 'x'), "y"}},
    {"AStringLongerThanAnyBuffer", "\"" + std::string(5000, ' ') + "\"", {std::string(5000, ' ')}},
    {"NothingOfAnEmptyText", "", {}},
    {"NothingOfBlanks", " \t ", {}},
};

std::string TokenRowName(const testing::TestParamInfo<std::tuple<Source, TokenRow>>& row) {
    return std::get<TokenRow>(row.param).name + readertest::NameOf(std::get<Source>(row.param));
}

INSTANTIATE_TEST_SUITE_P(, NextTokenCuts,
                         testing::Combine(testing::ValuesIn(readertest::kBothSources),
                                          testing::ValuesIn(kTokenRows)),
                         TokenRowName);

class InputFile : public testing::TestWithParam<Source> {};
INSTANTIATE_TEST_SUITE_P(, InputFile, testing::ValuesIn(readertest::kBothSources),
                         [](const auto& row) { return readertest::NameOf(row.param); });

TEST_P(InputFile, TokenIsNeverNull) {
    OpenText text(GetParam(), "");

    EXPECT_STREQ(text.input().Token(), "");
}

TEST_P(InputFile, AnEmptyStringReadsAsFalseAndIsConsumed) {
    OpenText text(GetParam(), "a \"\" b");

    EXPECT_FALSE(text.input().NextToken());
    EXPECT_EQ(text.token(), "");
    EXPECT_TRUE(text.input().NextToken());
    EXPECT_EQ(text.token(), "b");
}

TEST_P(InputFile, AtTheEndEveryReadIsFalseAndTheTokenEmpty) {
    OpenText text(GetParam(), "a");

    EXPECT_FALSE(text.input().NextToken());
    EXPECT_EQ(text.token(), "");
    EXPECT_FALSE(text.input().ReadChar(nullptr));
    EXPECT_FALSE(text.input().NextLine());
    EXPECT_TRUE(text.input().IsEOF());
}

TEST_P(InputFile, TheByte255IsNotTheEnd) {
    OpenText text(GetParam(), "\xFF\xFF b c");
    char character = 0;

    EXPECT_TRUE(text.input().ReadChar(&character));
    EXPECT_EQ(character, ' ');
    EXPECT_FALSE(text.input().IsEOF());
}

TEST_P(InputFile, NextLineDropsTheRestAndLoadsTheNextLinesFirstToken) {
    OpenText text(GetParam(), "a b (c\nd e\n");

    EXPECT_TRUE(text.input().NextLine());
    EXPECT_EQ(text.token(), "d");
}

TEST_P(InputFile, NextLineFromALineEndTokenStaysOnTheFollowingLine) {
    OpenText text(GetParam(), "a\nb\nc\n");
    text.input().NextToken();

    EXPECT_TRUE(text.input().NextLine());
    EXPECT_EQ(text.token(), "b");
}

TEST_P(InputFile, NextLineOntoAnEmptyLineLoadsItsLineEnd) {
    OpenText text(GetParam(), "a\n\nb\n");

    EXPECT_TRUE(text.input().NextLine());
    EXPECT_TRUE(text.input().TokenIsLineEnd());
}

TEST_P(InputFile, KeptNextLineOntoALastLineWithoutLineEndLoadsTheTokenAndReturnsFalse) {
    OpenText text(GetParam(), "a 1\nlast");

    EXPECT_FALSE(text.input().NextLine());
    EXPECT_EQ(text.token(), "last");
}

TEST_P(InputFile, NextLineRunsOverAnEmptyString) {
    OpenText text(GetParam(), "a \"\" b\nc d\n");

    EXPECT_TRUE(text.input().NextLine());
    EXPECT_EQ(text.token(), "c");
}

TEST_P(InputFile, ReadCharHandsOutTheLookAheadAndKeepsTheToken) {
    OpenText text(GetParam(), "ab cd");
    char character = 0;

    EXPECT_TRUE(text.input().ReadChar(&character));
    EXPECT_EQ(character, ' ');
    EXPECT_TRUE(text.input().ReadChar(nullptr));
    EXPECT_EQ(text.token(), "ab");
    EXPECT_TRUE(text.input().NextToken());
    EXPECT_EQ(text.token(), "d");
}

TEST_P(InputFile, ReadCharDropsCarriageReturns) {
    OpenText text(GetParam(), "a,\r\rb");
    char character = 0;

    EXPECT_TRUE(text.input().ReadChar(&character));
    EXPECT_TRUE(text.input().ReadChar(&character));
    EXPECT_EQ(character, 'b');
}

TEST_P(InputFile, SkipCommaReadsOnBehindAComma) {
    OpenText text(GetParam(), ", b");

    EXPECT_TRUE(text.input().SkipComma());
    EXPECT_EQ(text.token(), "b");
}

TEST_P(InputFile, SkipCommaLeavesAnyOtherToken) {
    OpenText text(GetParam(), "a , b");

    EXPECT_FALSE(text.input().SkipComma());
    EXPECT_EQ(text.token(), "a");
}

TEST_P(InputFile, SkipCommaReturnsWhatTheReadBehindTheCommaReturned) {
    OpenText text(GetParam(), ", \"\" b");

    EXPECT_FALSE(text.input().SkipComma());
    EXPECT_EQ(text.token(), "");
}

TEST_P(InputFile, AQuotedCommaIsSkippedLikeABareOne) {
    OpenText text(GetParam(), "\",\" b");

    EXPECT_TRUE(text.input().SkipComma());
    EXPECT_EQ(text.token(), "b");
}

TEST_P(InputFile, ACommaEndsAtANulAsEveryComparedTokenDoes) {
    OpenText text(GetParam(), "\",\0x\" b"s);

    EXPECT_TRUE(text.input().SkipComma());
    EXPECT_EQ(text.token(), "b");
}

TEST_P(InputFile, KeywordsCompareWithoutCase) {
    OpenText text(GetParam(), "pLiNe");

    EXPECT_TRUE(text.input().TokenIs("PLINE"));
    EXPECT_FALSE(text.input().TokenIs("plin"));
    EXPECT_FALSE(text.input().TokenIs("plines"));
}

TEST_P(InputFile, ATokenConvertsItsLeadingNumber) {
    OpenText text(GetParam(), "-12.5km");

    EXPECT_EQ(text.input().TokenAsDouble(), -12.5);
    EXPECT_EQ(text.input().TokenAsInt(), -12);
}

TEST_P(InputFile, ATokenWithoutANumberConvertsToZero) {
    OpenText text(GetParam(), "pline");

    EXPECT_EQ(text.input().TokenAsDouble(), 0.0);
    EXPECT_EQ(text.input().TokenAsInt(), 0);
}

TEST_P(InputFile, RewindStartsOver) {
    OpenText text(GetParam(), "a b c");
    static_cast<void>(text.Tokens());

    text.input().Rewind();

    EXPECT_FALSE(text.input().IsEOF());
    EXPECT_EQ(text.Tokens(), (std::vector<std::string>{"a", "b", "c"}));
}

TEST_P(InputFile, TheSizeIsTheLengthInBytes) {
    OpenText text(GetParam(), "abc\r\ndef\r\n");

    EXPECT_EQ(text.input().size(), 10U);
}

TEST_P(InputFile, ProgressIsThePartOfTheBytesFetched) {
    OpenText text(GetParam(), "abc\ndefg");

    EXPECT_EQ(text.input().GetProgress(), 0.5);
    static_cast<void>(text.Tokens());
    EXPECT_EQ(text.input().GetProgress(), 1.0);
}

TEST_P(InputFile, PositionAndBytesLeftAddUpToTheSize) {
    OpenText text(GetParam(), "abc\ndefg");

    EXPECT_EQ(text.input().Position(), 4U);
    EXPECT_EQ(text.input().BytesLeft(), 4U);
}

TEST_P(InputFile, CloseForgetsEverything) {
    OpenText text(GetParam(), "abc def");

    text.input().Close();

    EXPECT_FALSE(text.input().IsOpen());
    EXPECT_TRUE(text.input().IsEOF());
    EXPECT_EQ(text.token(), "");
    EXPECT_EQ(text.input().path(), L"");
    EXPECT_EQ(text.input().size(), 0U);
    EXPECT_EQ(text.input().GetProgress(), 0.0);
    EXPECT_EQ(text.input().BytesLeft(), 0U);
}

TEST_P(InputFile, CloseTwiceIsHarmless) {
    OpenText text(GetParam(), "abc def");

    text.input().Close();
    text.input().Close();

    EXPECT_FALSE(text.input().IsOpen());
}

TEST(StreamSource, IsExhaustedOnlyAfterAFetchFailed) {
    OpenText text(Source::Stream, "ab\n");

    EXPECT_FALSE(text.input().IsEOF());
    EXPECT_TRUE(text.input().NextToken());
    EXPECT_TRUE(text.input().IsEOF());
}

TEST(StreamSource, NextLineOntoNothingReturnsFalseWithTheLineEndLoaded) {
    OpenText text(Source::Stream, "ab\n");

    EXPECT_FALSE(text.input().NextLine());
    EXPECT_TRUE(text.input().TokenIsLineEnd());
}

TEST(StreamSource, AReadErrorIsTheEndOfTheInput) {
    mif::CMifInputFile input;
    if (!input.OpenFile(L"/proc/self/mem")) {
        GTEST_SKIP() << "needs a file whose first byte can't be read";
    }

    input.Rewind();

    EXPECT_TRUE(input.IsEOF());
    EXPECT_FALSE(input.NextToken());
}

TEST(StreamSource, AFileThatIsNotThereIsNotOpened) {
    const support::TemporaryFolder folder;
    mif::CMifInputFile input;

    EXPECT_FALSE(input.OpenFile(folder.PathOf("none.mif")));
    EXPECT_FALSE(input.IsOpen());
    EXPECT_EQ(input.path(), L"");
}

TEST(StreamSource, OpeningAnotherFileClosesTheFirst) {
    const support::TemporaryFolder folder;
    mif::CMifInputFile input;
    ASSERT_TRUE(input.OpenFile(folder.Write("first.mif", "first")));

    ASSERT_TRUE(input.OpenFile(folder.Write("second.mif", "second file")));
    input.Rewind();

    EXPECT_EQ(input.token(), "second");
    EXPECT_EQ(input.path(), folder.PathOf("second.mif"));
}

TEST(StreamSource, AStreamIsUsedBeforeABlock) {
    const support::TemporaryFolder folder;
    mif::CMifInputFile input;
    input.OpenMemory(readertest::BlockOf("block"));

    ASSERT_TRUE(input.OpenFile(folder.Write("file.mif", "file")));
    input.Rewind();

    EXPECT_EQ(input.token(), "file");
}

TEST(MemorySource, IsExhaustedWhenItsLastByteIsTheLookAhead) {
    OpenText text(Source::Memory, "ab\n");

    EXPECT_TRUE(text.input().IsEOF());
    EXPECT_TRUE(text.input().NextToken());
    EXPECT_TRUE(text.input().TokenIsLineEnd());
}

TEST(MemorySource, NextLineStopsBeforeALastLineEnd) {
    OpenText text(Source::Memory, "a b\n");

    EXPECT_FALSE(text.input().NextLine());
    EXPECT_EQ(text.token(), "b");
}

TEST(MemorySource, AnEmptyBlockIsNothingOpen) {
    mif::CMifInputFile input;
    input.OpenMemory({});

    input.Rewind();

    EXPECT_FALSE(input.IsOpen());
    EXPECT_TRUE(input.IsEOF());
    EXPECT_FALSE(input.NextToken());
    EXPECT_EQ(input.GetProgress(), 0.0);
}

TEST(MemorySource, TakesTheStreamsPlace) {
    const support::TemporaryFolder folder;
    mif::CMifInputFile input;
    ASSERT_TRUE(input.OpenFile(folder.Write("file.mif", "file")));

    input.OpenMemory(readertest::BlockOf("block"));
    input.Rewind();

    EXPECT_EQ(input.token(), "block");
    EXPECT_EQ(input.path(), L"");
}

TEST(ClosedInput, HasNothingToRead) {
    mif::CMifInputFile input;

    EXPECT_FALSE(input.IsOpen());
    EXPECT_TRUE(input.IsEOF());
    EXPECT_STREQ(input.Token(), "");
    EXPECT_FALSE(input.SkipComma());
    EXPECT_EQ(input.GetProgress(), 0.0);
    EXPECT_EQ(input.Position(), 0U);
}

}  // namespace
