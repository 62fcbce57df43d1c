// Code pages other than the initial one.
#include "host/shr/Text.h"
#include "standalone/Text.h"

#include <gtest/gtest.h>

#include <string>

namespace {

class CodePage0 : public testing::Test {
protected:
    ~CodePage0() override { EXPECT_TRUE(standalone::SetCodePage0("CP1252")); }
};

TEST_F(CodePage0, IsWindows1252AtFirst) {
    EXPECT_EQ(standalone::CodePage0(), "CP1252");
}

TEST_F(CodePage0, IsReplacedByAnother) {
    ASSERT_TRUE(standalone::SetCodePage0("CP1251"));

    EXPECT_EQ(standalone::CodePage0(), "CP1251");
    EXPECT_EQ(shr::AtoW("\xE6"), L"\u0436");
    EXPECT_EQ(shr::WtoAN(L"\u0436"), "\xE6");
}

TEST_F(CodePage0, StaysWhenTheNewOneIsUnknown) {
    EXPECT_FALSE(standalone::SetCodePage0("no such code page"));
    EXPECT_FALSE(standalone::SetCodePage0(""));

    EXPECT_EQ(standalone::CodePage0(), "CP1252");
    EXPECT_EQ(shr::AtoW("\xE9"), L"\u00E9");
}

TEST_F(CodePage0, UnderAnotherNameFor1252StillKeepsEveryByte) {
    ASSERT_TRUE(standalone::SetCodePage0("windows-1252"));

    EXPECT_EQ(shr::AtoW("\x81"), L"\x81");
}

TEST_F(CodePage0, OfUtf8ReadsAndWritesEveryCharacter) {
    ASSERT_TRUE(standalone::SetCodePage0("UTF-8"));

    EXPECT_EQ(shr::AtoW("z\xC3\xA9\xF0\x9F\x98\x80"), L"z\u00E9\U0001F600");
    EXPECT_EQ(shr::WtoAN(L"z\u00E9\U0001F600"), "z\xC3\xA9\xF0\x9F\x98\x80");
}

TEST_F(CodePage0, TurnsAnUndecodableByteIntoTheReplacementCharacter) {
    ASSERT_TRUE(standalone::SetCodePage0("UTF-8"));

    EXPECT_EQ(shr::AtoW("a\xFFz"), L"a\uFFFDz");
}

TEST_F(CodePage0, TurnsACutSequenceAtTheEndIntoReplacementCharacters) {
    ASSERT_TRUE(standalone::SetCodePage0("UTF-8"));

    EXPECT_EQ(shr::AtoW("a\xE2\x82"), L"a\uFFFD\uFFFD");
}

TEST_F(CodePage0, TurnsAnUnencodableCharacterIntoAQuestionMark) {
    ASSERT_TRUE(standalone::SetCodePage0("CP1251"));

    EXPECT_EQ(shr::WtoAN(L"a\u00E9z"), "a?z");
}

TEST_F(CodePage0, ThatIsNoSupersetOfAsciiIsConvertedThroughout) {
    ASSERT_TRUE(standalone::SetCodePage0("UTF-16LE"));

    EXPECT_EQ(shr::WtoAN(L"ab"), std::string("a\0b\0", 4));
    EXPECT_EQ(shr::AtoW(std::string("a\0b\0", 4)), L"ab");
}

TEST_F(CodePage0, WithShiftStatesEndsInTheInitialOne) {
    ASSERT_TRUE(standalone::SetCodePage0("ISO-2022-JP"));

    EXPECT_EQ(shr::WtoAN(L"\u3042"), "\x1B$B$\"\x1B(B");
    EXPECT_EQ(shr::AtoW("\x1B$B$\"\x1B(B"), L"\u3042");
}

TEST_F(CodePage0, ConvertsTextLongerThanTheConvertersBuffer) {
    ASSERT_TRUE(standalone::SetCodePage0("CP1251"));
    const std::string bytes(100'000, '\xE6');

    EXPECT_EQ(shr::AtoW(bytes), std::wstring(100'000, L'\u0436'));
    EXPECT_EQ(shr::WtoAN(shr::AtoW(bytes)), bytes);
}

TEST(ANumberedCodePage, IsTheSystemsOfThatNumber) {
    EXPECT_EQ(shr::AtoW("\xE6", 1251), L"\u0436");
    EXPECT_EQ(shr::AtoW("\xC3\xA9", 65001), L"\u00E9");
    EXPECT_EQ(shr::WtoAN(L"\u0151", 28592), "\xF5");
    EXPECT_EQ(shr::AtoW("\x81\x80", 1252), L"\x81\u20AC");
}

TEST(ANumberedCodePage, ThatDoesNotExistKeepsAscii) {
    EXPECT_EQ(shr::AtoW("a\xE9", 99999), L"a\uFFFD");
    EXPECT_EQ(shr::WtoAN(L"a\u00E9", 99999), "a?");
}

TEST(EncodeInACodePage, GivesItsBytesWithoutTouchingCodePage0) {
    EXPECT_EQ(standalone::Encode("CP1251", "\u0436"), "\xE6");
    EXPECT_EQ(standalone::Encode("CP932", "\u65E5"), "\x93\xFA");
    EXPECT_EQ(standalone::CodePage0(), "CP1252");
}

TEST(EncodeInACodePage, GivesNothingForWhatItLacks) {
    EXPECT_EQ(standalone::Encode("CP1251", "\u00E9"), std::nullopt);
}

TEST(Decode, GivesTheTextOfBytesThatAreCharacters) {
    EXPECT_EQ(standalone::Decode("CP1251", "\xE6"), L"\u0436");
    EXPECT_EQ(standalone::Decode("CP932", "\x93\xFA"), L"\u65E5");
    EXPECT_EQ(standalone::Decode("ISO-8859-1", "\x81"), L"\u0081");
    EXPECT_EQ(standalone::Decode("IBM850", "\x81"), L"\u00FC");
    EXPECT_EQ(standalone::Decode("MACINTOSH", "\x8E"), L"\u00E9");
}

TEST(Decode, GivesNothingForBytesWithoutACharacterAndForAnUnknownCodePage) {
    EXPECT_EQ(standalone::Decode("CP1252", "\x81"), std::nullopt);
    EXPECT_EQ(standalone::Decode("CP1257", "\xA1"), std::nullopt);
    EXPECT_EQ(standalone::Decode("CP932", "\x93"), std::nullopt);
    EXPECT_EQ(standalone::Decode("no-such-page", "a"), std::nullopt);
}

}  // namespace
