// Texts as bytes of a character set, and the choice of the set.
#include "app/mif/CharsetEncoder.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

std::string Encoded(const std::string& codePage, const std::string& utf8) {
    app::CharsetEncoder encoder(codePage);
    std::string bytes;
    encoder.Append(bytes, utf8);
    return bytes;
}

struct TextRow {
    std::string name;
    std::string codePage;
    std::string utf8;
    std::string bytes;
};
class CharsetEncoder : public testing::TestWithParam<TextRow> {};

TEST_P(CharsetEncoder, Writes) {
    EXPECT_EQ(Encoded(GetParam().codePage, GetParam().utf8), GetParam().bytes);
}

INSTANTIATE_TEST_SUITE_P(
    , CharsetEncoder,
    testing::Values(TextRow{"Latin", "CP1252", "caf\u00E9", "caf\xE9"},
                    TextRow{"Cyrillic", "CP1251", "\u0416\u0443\u043A", "\xC6\xF3\xEA"},
                    TextRow{"TwoBytesACharacter", "CP932", "a\u65E5b",
                            "a\x93\xFA"
                            "b"},
                    TextRow{"ThreeBytesACharacter", "EUC-JP", "\u4E02", "\x8F\xB0\xA1"},
                    TextRow{"ALetterAndItsTone", "CP1258", "\u1EBF", "\xEA\xEC"},
                    TextRow{"Utf8AsItIs", "UTF-8", "\u65E5\U0001F600", "\u65E5\U0001F600"},
                    TextRow{"AQuestionMarkForWhatIsMissing", "CP1252", "a\u0416\U0001F600z",
                            "a??z"}),
    [](const auto& row) { return row.param.name; });

TEST(ACharsetEncoder, CountsWhatIsMissing) {
    app::CharsetEncoder encoder("CP1252");
    std::string bytes;

    encoder.Append(bytes, "a\u0416?");
    encoder.Append(bytes, "\u0416");

    EXPECT_EQ(encoder.LostCount(), 2U);
}

TEST(ACharsetEncoder, KnowsWhichCharactersItHolds) {
    app::CharsetEncoder encoder("CP1252");

    EXPECT_TRUE(encoder.Holds(U'a'));
    EXPECT_TRUE(encoder.Holds(U'\u20AC'));
    EXPECT_FALSE(encoder.Holds(U'\u0416'));
    EXPECT_FALSE(encoder.Holds(U'\U0001F600'));
}

struct LengthRow {
    std::string name;
    std::string codePage;
    std::string utf8;
    std::size_t bytes;
    std::string beginning;
};
class LengthThatFits : public testing::TestWithParam<LengthRow> {};

TEST_P(LengthThatFits, IsThatOf) {
    app::CharsetEncoder encoder(GetParam().codePage);

    EXPECT_EQ(GetParam().utf8.substr(0, encoder.LengthThatFits(GetParam().utf8, GetParam().bytes)),
              GetParam().beginning);
}

INSTANTIATE_TEST_SUITE_P(
    , LengthThatFits,
    testing::Values(LengthRow{"AllWhenThereIsRoom", "CP1252", "caf\u00E9", 4, "caf\u00E9"},
                    LengthRow{"WhatFits", "CP1252", "caf\u00E9!", 4, "caf\u00E9"},
                    LengthRow{"NoHalfCharacterOfUtf8", "UTF-8", "caf\u00E9!", 4, "caf"},
                    LengthRow{"NoHalfCharacterOfTwoBytes", "CP932", "\u65E5\u672C", 3, "\u65E5"},
                    LengthRow{"AQuestionMarkAsOneByte", "CP1252", "\u0416\u0416", 1, "\u0416"}),
    [](const auto& row) { return row.param.name; });

struct ChoiceRow {
    std::string name;
    std::vector<std::string> texts;
    std::string charset;
};
class CharsetChoice : public testing::TestWithParam<ChoiceRow> {};

TEST_P(CharsetChoice, Is) {
    app::CharsetChoice choice;

    for (const std::string& text : GetParam().texts) {
        choice.See(text);
    }

    EXPECT_EQ(choice.Best().mifName, GetParam().charset);
}

INSTANTIATE_TEST_SUITE_P(
    , CharsetChoice,
    testing::Values(
        ChoiceRow{"Latin1ForAscii", {"plain", ""}, "WindowsLatin1"},
        ChoiceRow{"Latin1", {"caf\u00E9", "\u20AC 5"}, "WindowsLatin1"},
        ChoiceRow{"Latin2", {"\u0141\u00F3d\u017A"}, "WindowsLatin2"},
        ChoiceRow{"Cyrillic", {"\u041C\u043E\u0441\u043A\u0432\u0430"}, "WindowsCyrillic"},
        ChoiceRow{"Greek", {"\u0391\u03B8\u03AE\u03BD\u03B1"}, "WindowsGreek"},
        ChoiceRow{"Turkish", {"I\u011Fd\u0131r"}, "WindowsTurkish"},
        ChoiceRow{"Baltic", {"R\u012Bga"}, "WindowsBalticRim"},
        ChoiceRow{"Hebrew", {"\u05E9\u05DC\u05D5\u05DD"}, "WindowsHebrew"},
        ChoiceRow{"Arabic", {"\u0645\u0631\u062D\u0628\u0627"}, "WindowsArabic"},
        ChoiceRow{"Vietnamese", {"Hu\u1EBF"}, "WindowsVietnamese"},
        ChoiceRow{"Utf8ForTonesByThemselves", {"Hu\u00EA\u0301"}, "UTF-8"},
        ChoiceRow{"Thai", {"\u0E44\u0E17\u0E22"}, "WindowsThai"},
        ChoiceRow{"Japanese", {"\u65E5\u672C", "\u306E"}, "WindowsJapanese"},
        ChoiceRow{"Korean", {"\uC11C\uC6B8"}, "WindowsKorean"},
        ChoiceRow{"TraditionalChinese", {"\u81FA\u7063"}, "WindowsTradChinese"},
        ChoiceRow{"SimplifiedChinese", {"\u4EEC"}, "WindowsSimpChinese"},
        ChoiceRow{"Utf8ForScriptsThatNoneHasTogether", {"\u0416", "caf\u00E9"}, "UTF-8"},
        ChoiceRow{"NoChineseForGreekBesideCyrillic", {"\u0416", "\u0391"}, "UTF-8"},
        ChoiceRow{"Utf8ForTheRest", {"\U0001F600"}, "UTF-8"}),
    [](const auto& row) { return row.param.name; });

}  // namespace
