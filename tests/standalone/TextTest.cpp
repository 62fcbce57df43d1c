#include "host/shr/Text.h"
#include "standalone/Text.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>

namespace {

// The text as an exact-size block, so that the sanitizer sees a read beyond its NUL.
std::wstring FromBlock(const std::string& text) {
    const std::unique_ptr<char[]> block(new char[text.size() + 1]);
    text.copy(block.get(), text.size());
    block[text.size()] = '\0';
    return shr::AtoW(block.get());
}

std::string EveryByte() {
    std::string bytes;
    for (int value = 0; value < 256; ++value) {
        bytes += static_cast<char>(value);
    }
    return bytes;
}

TEST(CodePage1252, GivesEachOfThe256BytesBack) {
    EXPECT_EQ(shr::WtoAN(shr::AtoW(EveryByte())), EveryByte());
}

TEST(CodePage1252, DecodesEachByteToAnotherCharacter) {
    const std::wstring text = shr::AtoW(EveryByte());

    EXPECT_EQ(text.size(), 256U);
    EXPECT_EQ(text.substr(0x80, 0x20),
              L"\u20AC\x81\u201A\u0192\u201E\u2026\u2020\u2021\u02C6\u2030\u0160\u2039\u0152\x8D"
              L"\u017D\x8F\x90\u2018\u2019\u201C\u201D\u2022\u2013\u2014\u02DC\u2122\u0161\u203A"
              L"\u0153\x9D\u017E\u0178");
}

TEST(CodePage1252, IsLatin1AboveTheControls) {
    EXPECT_EQ(shr::AtoW("\xA0\xE9\xFF"), L"\u00A0\u00E9\u00FF");
}

struct UndefinedByteRow {
    std::string name;
    char byte;
    wchar_t control;
};
class UndefinedByte : public testing::TestWithParam<UndefinedByteRow> {};

TEST_P(UndefinedByte, IsTheControlOfItsNumber) {
    EXPECT_EQ(shr::AtoW(std::string(1, GetParam().byte)), std::wstring(1, GetParam().control));
    EXPECT_EQ(shr::WtoAN(std::wstring(1, GetParam().control)), std::string(1, GetParam().byte));
}
INSTANTIATE_TEST_SUITE_P(, UndefinedByte,
                         testing::Values(UndefinedByteRow{"Hex81", '\x81', L'\x81'},
                                         UndefinedByteRow{"Hex8D", '\x8D', L'\x8D'},
                                         UndefinedByteRow{"Hex8F", '\x8F', L'\x8F'},
                                         UndefinedByteRow{"Hex90", '\x90', L'\x90'},
                                         UndefinedByteRow{"Hex9D", '\x9D', L'\x9D'}),
                         [](const auto& row) { return row.param.name; });

struct UnencodableRow {
    std::string name;
    std::wstring text;
    std::string bytes;
};
class Unencodable : public testing::TestWithParam<UnencodableRow> {};

TEST_P(Unencodable, BecomesOneQuestionMark) {
    EXPECT_EQ(shr::WtoAN(GetParam().text), GetParam().bytes);
}
INSTANTIATE_TEST_SUITE_P(
    , Unencodable,
    testing::Values(UnencodableRow{"ALetterOfAnotherScript", L"a\u0436b", "a?b"},
                    UnencodableRow{"ACharacterBeyond16Bits", L"a\U0001F600b", "a?b"},
                    UnencodableRow{"ASurrogatePair",
                                   L"a\xD83D\xDE00"
                                   L"b",
                                   "a?b"},
                    UnencodableRow{"ALoneSurrogate", std::wstring(1, wchar_t(0xDC80)), "?"},
                    UnencodableRow{"TheControlThatTheEuroSignReplaced", L"\x80", "?"}),
    [](const auto& row) { return row.param.name; });

TEST(AtoW, OfNullIsEmpty) {
    EXPECT_EQ(shr::AtoW(static_cast<const char*>(nullptr)), L"");
}

TEST(AtoW, ReadsUpToTheNul) {
    EXPECT_EQ(FromBlock("caf\xE9"), L"caf\u00E9");
}

TEST(AtoW, OfAStringKeepsANul) {
    EXPECT_EQ(shr::AtoW(std::string("a\0b", 3)), std::wstring(L"a\0b", 3));
}

TEST(Widen, ReadsUtf8) {
    EXPECT_EQ(standalone::Widen("\xC3\xA9\xE2\x82\xAC"), L"\u00E9\u20AC");
}

struct InvalidUtf8Row {
    std::string name;
    std::string bytes;
    std::wstring text;
};
class InvalidUtf8 : public testing::TestWithParam<InvalidUtf8Row> {};

TEST_P(InvalidUtf8, BecomesReplacementCharacters) {
    EXPECT_EQ(standalone::Widen(GetParam().bytes), GetParam().text);
}
INSTANTIATE_TEST_SUITE_P(
    , InvalidUtf8,
    testing::Values(InvalidUtf8Row{"AByteThatStartsNothing", "a\x80z", L"a\uFFFDz"},
                    InvalidUtf8Row{"ACutSequence", "\xE2\x82", L"\uFFFD\uFFFD"},
                    InvalidUtf8Row{"AnOverlongForm", "\xC0\xAF", L"\uFFFD\uFFFD"},
                    InvalidUtf8Row{"AnEncodedSurrogate", "\xED\xA0\x80", L"\uFFFD\uFFFD\uFFFD"},
                    InvalidUtf8Row{"ACodePointBeyondTheLast", "\xF4\x90\x80\x80",
                                   L"\uFFFD\uFFFD\uFFFD\uFFFD"},
                    InvalidUtf8Row{"AByteThatIsNeverUsed", "\xFF", L"\uFFFD"}),
    [](const auto& row) { return row.param.name; });

TEST(Narrow, WritesUtf8OfEveryLength) {
    EXPECT_EQ(standalone::Narrow(L"a\u00E9\u20AC\U0001F600"),
              "a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80");
}

TEST(Narrow, JoinsASurrogatePair) {
    const std::wstring pair = {wchar_t(0xD83D), wchar_t(0xDE00)};

    EXPECT_EQ(standalone::Narrow(pair), "\xF0\x9F\x98\x80");
}

TEST(Narrow, WritesALoneSurrogateAsAQuestionMark) {
    EXPECT_EQ(standalone::Narrow(std::wstring(1, wchar_t(0xD83D))), "?");
}

struct EncodedRow {
    std::string name;
    std::string codePage;
    std::string utf8;
    std::optional<std::string> bytes;
};
class Encode : public testing::TestWithParam<EncodedRow> {};

TEST_P(Encode, Gives) {
    EXPECT_EQ(standalone::Encode(GetParam().codePage, GetParam().utf8), GetParam().bytes);
}
INSTANTIATE_TEST_SUITE_P(
    , Encode,
    testing::Values(
        EncodedRow{"TheBytesOfWindows1252", "CP1252", "caf\u00E9 \u20AC", "caf\xE9 \x80"},
        EncodedRow{"AnUndefinedByteOfWindows1252", "CP1252", "\u0081", "\x81"},
        EncodedRow{"AQuestionMarkForItself", "CP1252", "?", "?"},
        EncodedRow{"NothingForALetterOfAnotherScript", "CP1252", "a\u0436", std::nullopt},
        EncodedRow{"NothingForTheReplacementCharacter", "CP1252", "\uFFFD", std::nullopt},
        EncodedRow{"NothingForAnUnknownCodePage", "no-such", "\u00E9", std::nullopt}),
    [](const auto& row) { return row.param.name; });

}  // namespace
