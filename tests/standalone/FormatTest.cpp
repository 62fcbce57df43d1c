#include "host/shr/Text.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <string>
#include <vector>

namespace {

TEST(FormatString, TakesAWideTextForSAndANarrowOneForHs) {
    EXPECT_EQ(shr::FormatString(L"%s and %hs and %ls", L"w\u0436", "n\xE9", L"l"),
              L"w\u0436 and n\u00E9 and l");
}

TEST(FormatString, FormatsNumbersAsC) {
    EXPECT_EQ(
        shr::FormatString(L"%d|%5d|%-5d|%05d|%+d|%u|%x|%X|%o", -1, 2, 3, 4, 5, 6U, 255U, 255U, 8U),
        L"-1|    2|3    |00004|+5|6|ff|FF|10");
}

TEST(FormatString, TakesEveryLengthOfAnInteger) {
    EXPECT_EQ(shr::FormatString(L"%hhd %hd %ld %lld %I64d %zu %llu", 257, 65537, -3L, -4LL, -5LL,
                                std::size_t(6), std::numeric_limits<unsigned long long>::max()),
              L"1 1 -3 -4 -5 6 18446744073709551615");
}

TEST(FormatString, FormatsFloatingNumbersAsC) {
    EXPECT_EQ(shr::FormatString(L"%.2f %g %.18G %e %Lg", 1.005, 0.5, 0.1, 12345.678, 2.5L),
              L"1.00 0.5 0.100000000000000006 1.234568e+04 2.5");
}

TEST(FormatString, TakesWidthAndPrecisionFromArguments) {
    EXPECT_EQ(
        shr::FormatString(L"[%*d][%-*d][%*d][%.*f][%.*f]", 4, 1, 4, 2, -4, 3, 1, 0.25, -1, 0.5),
        L"[   1][2   ][3   ][0.2][0.500000]");
}

TEST(FormatString, PadsAndCutsText) {
    EXPECT_EQ(shr::FormatString(L"[%5s][%-5s][%.2s][%5.1hs]", L"ab", L"cd", L"efg", "hij"),
              L"[   ab][cd   ][ef][    h]");
}

TEST(FormatString, FormatsCharacters) {
    EXPECT_EQ(shr::FormatString(L"%c%hc%3c", L'\u0436', 'n', L'r'), L"\u0436n  r");
}

TEST(FormatString, WritesAPercentSignForTwo) {
    EXPECT_EQ(shr::FormatString(L"100%%"), L"100%");
}

TEST(FormatString, LeavesWhatIsNoConversion) {
    EXPECT_EQ(shr::FormatString(L"5 %y 6 %"), L"5 %y 6 %");
}

TEST(FormatString, WritesNullText) {
    EXPECT_EQ(shr::FormatString(L"%s", static_cast<const wchar_t*>(nullptr)), L"(null)");
}

TEST(FormatString, GrowsToAnyLength) {
    const std::wstring text(100'000, L'x');

    EXPECT_EQ(shr::FormatString(L"<%s>%1000d", text.c_str(), 7),
              L"<" + text + L">" + std::wstring(999, L' ') + L"7");
}

TEST(FormatString, TakesATextWithoutEndUpToThePrecision) {
    const wchar_t text[] = {L'a', L'b'};

    EXPECT_EQ(shr::FormatString(L"%.2s", text), L"ab");
}

TEST(AppendFormatString, AddsToTheText) {
    std::wstring text = L"a";

    shr::AppendFormatString(text, L"-%d", 1);

    EXPECT_EQ(text, L"a-1");
}

TEST(AppendFormatString, TakesTheTextItselfAsAnArgument) {
    std::wstring text = L"ab";

    shr::AppendFormatString(text, L"%s", text.c_str());

    EXPECT_EQ(text, L"abab");
}

TEST(ToString, FormatsByTheGivenFormat) {
    EXPECT_EQ(shr::ToString(0.1, "%.16G"), "0.1");
    EXPECT_EQ(shr::ToString(1e300, "%f").size(), 308U);
    EXPECT_EQ(shr::ToString(-7, "%d"), "-7");
}

// Decimal commas: in a locale of the system, or in one that is made for the test.
class InALocaleWithADecimalComma : public testing::Test {
protected:
    void SetUp() override {
        previous_ = std::setlocale(LC_ALL, nullptr);
        if (!SetAnyLocale({"de_DE.UTF-8", "fr_FR.UTF-8", "German_Germany"}) && !MakeLocale()) {
            GTEST_SKIP() << "no locale with a decimal comma can be had";
        }
    }
    void TearDown() override { std::setlocale(LC_ALL, previous_.c_str()); }

private:
    static bool SetAnyLocale(const std::vector<const char*>& names) {
        return std::any_of(names.begin(), names.end(), [](const char* name) {
            return std::setlocale(LC_ALL, name) != nullptr;
        });
    }

    // Compiles a locale into the test's folder.
    bool MakeLocale() const {
#if defined(_WIN32)
        return false;
#else
        const std::string path = (folder_.path() / "comma.utf8").string();
        const std::string command = "localedef -i de_DE -f UTF-8 '" + path + "' >/dev/null 2>&1";
        static_cast<void>(std::system(command.c_str()));  // the next line sees if it failed
        setenv("LOCPATH", folder_.path().c_str(), /*overwrite=*/1);
        const bool isSet = std::setlocale(LC_ALL, "comma.utf8") != nullptr;
        unsetenv("LOCPATH");
        return isSet;
#endif
    }

    support::TemporaryFolder folder_;
    std::string previous_;
};

TEST_F(InALocaleWithADecimalComma, TheSystemsOwnFormatsHaveTheComma) {
    char text[8];
    std::snprintf(text, sizeof text, "%.1f", 0.5);

    EXPECT_STREQ(text, "0,5");
}

TEST_F(InALocaleWithADecimalComma, NumbersKeepTheirFullStop) {
    EXPECT_EQ(shr::ToString(0.5, "%.16G"), "0.5");
    EXPECT_EQ(shr::FormatString(L"%.1f", 0.5), L"0.5");
}

}  // namespace
