// Character sets by their names in MIF headers, and the code page of a file.
#include "app/mif/Charsets.h"
#include "standalone/Text.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <string>

namespace {

struct CharsetRow {
    std::string name;
    std::string mifName;
    std::string codePage;
    std::string warning;
};
void PrintTo(const CharsetRow& row, std::ostream* out) {
    *out << row.name;
}

class ACharset : public testing::TestWithParam<CharsetRow> {};

TEST_P(ACharset, GivesACodePage) {
    const app::CodePageChoice choice = app::CodePageOfCharset(GetParam().mifName);

    EXPECT_EQ(choice.codePage, GetParam().codePage);
    EXPECT_EQ(choice.charset, GetParam().mifName);
    EXPECT_EQ(choice.warning, GetParam().warning);
}

INSTANTIATE_TEST_SUITE_P(
    , ACharset,
    testing::Values(CharsetRow{"WindowsLatin1", "WindowsLatin1", "CP1252", ""},
                    CharsetRow{"WindowsLatin2", "WindowsLatin2", "CP1250", ""},
                    CharsetRow{"WindowsCyrillic", "WindowsCyrillic", "CP1251", ""},
                    CharsetRow{"WindowsJapanese", "WindowsJapanese", "CP932", ""},
                    CharsetRow{"AnyCase", "windowsCYRILLIC", "CP1251", ""},
                    CharsetRow{"Utf8", "UTF-8", "UTF-8", ""},
                    CharsetRow{"IsoLatin2", "ISO8859_2", "ISO-8859-2", ""},
                    CharsetRow{"DosCyrillic", "CodePage855", "IBM855", ""},
                    CharsetRow{"MacRoman", "MacRoman", "MACINTOSH", ""},
                    CharsetRow{"JapaneseAsItIsSpelt", "PackedEUCJapaese", "EUC-JP", ""},
                    CharsetRow{"JapaneseAsOneWouldSpellIt", "PackedEUCJapanese", "EUC-JP", ""},
                    CharsetRow{"Neutral", "Neutral", "CP1252", ""},
                    CharsetRow{"NoName", "", "CP1252", ""},
                    CharsetRow{"AnUnknownName", "Klingon", "CP1252",
                               "character set \"Klingon\" is not known; Windows-1252 is used"},
                    CharsetRow{
                        "OneWithoutConversion", "MacGreek", "CP1252",
                        "character set \"MacGreek\" has no conversion here; Windows-1252 is used"},
                    CharsetRow{"Utf16", "UTF-16", "CP1252",
                               "files in UTF-16 can't be read; convert it to UTF-8 first"}),
    [](const auto& row) { return row.param.name; });

struct EncodingRow {
    std::string name;
    std::string encoding;
    std::string mifName;  // "" for none
};
class AnEncoding : public testing::TestWithParam<EncodingRow> {};

TEST_P(AnEncoding, IsTheCharset) {
    const app::Charset* const charset = app::FindCharsetOfEncoding(GetParam().encoding);

    EXPECT_EQ(charset == nullptr ? "" : charset->mifName, GetParam().mifName);
}

INSTANTIATE_TEST_SUITE_P(
    , AnEncoding,
    testing::Values(EncodingRow{"OfTheHeadersName", "windowscyrillic", "WindowsCyrillic"},
                    EncodingRow{"OfTheConversionsName", "cp1251", "WindowsCyrillic"},
                    EncodingRow{"OfTheNameOnTheWeb", "windows-1251", "WindowsCyrillic"},
                    EncodingRow{"OfUtf8", "utf-8", "UTF-8"}, EncodingRow{"OfNothing", "", ""},
                    EncodingRow{"OfAnother", "KOI8-R", ""}),
    [](const auto& row) { return row.param.name; });

TEST(Charsets, WithAConversionAreKnownToTheSystem) {
    const std::string before = standalone::CodePage0();

    EXPECT_TRUE(standalone::SetCodePage0(std::string(app::FindCharset("WindowsThai")->iconvName)));
    EXPECT_TRUE(standalone::SetCodePage0(std::string(app::FindCharset("MacCyrillic")->iconvName)));
    EXPECT_TRUE(standalone::SetCodePage0(std::string(app::FindCharset("CodePage437")->iconvName)));
    EXPECT_TRUE(
        standalone::SetCodePage0(std::string(app::FindCharset("WindowsKorean")->iconvName)));

    EXPECT_TRUE(standalone::SetCodePage0(before));
}

TEST(Charsets, CarryTheNumberOfTheirWindowsCodePage) {
    EXPECT_EQ(app::FindCharset("WindowsCyrillic")->windowsCodePage, 1251);
    EXPECT_EQ(app::FindCharset("Neutral"), nullptr);
}

struct FileRow {
    std::string name;
    std::string bytes;
    std::string codePage;
};
void PrintTo(const FileRow& row, std::ostream* out) {
    *out << row.name;
}

class AFile : public testing::TestWithParam<FileRow> {};

TEST_P(AFile, IsReadInTheCodePageOfItsHeader) {
    const support::TemporaryFolder folder;
    folder.Write("names.mif", GetParam().bytes);

    EXPECT_EQ(app::CodePageOf(app::ScanHeader(folder.path() / "names.mif")).codePage,
              GetParam().codePage);
}

INSTANTIATE_TEST_SUITE_P(
    , AFile,
    testing::Values(
        FileRow{"WithACharset", "Version 300\nCharset \"WindowsCyrillic\"\nData\n", "CP1251"},
        FileRow{"WithBlanksAndCase", "VERSION 300\r\n \tCHARSET\t\"windowslatin2\"\r\n", "CP1250"},
        FileRow{"WithOldLineEnds", "Version 300\rCharset \"WindowsGreek\"\rData\r", "CP1253"},
        FileRow{"WithoutQuotes", "Charset UTF-8\n", "UTF-8"},
        FileRow{"WithQuotesAtOnce", "Charset\"UTF-8\"\n", "UTF-8"},
        FileRow{"WithoutACharset", "Version 300\nDelimiter \",\"\nData\n", "CP1252"},
        FileRow{"ThatIsEmpty", "", "CP1252"},
        FileRow{"WithTheWordInItsData", "Version 300\nData\nCharset \"UTF-8\"\n", "CP1252"},
        FileRow{"WithAByteOrderMark", "\xEF\xBB\xBFVersion 300\nData\n", "UTF-8"},
        FileRow{"WhoseByteOrderMarkWins",
                "\xEF\xBB\xBF"
                "Charset \"WindowsLatin1\"\n",
                "UTF-8"}),
    [](const auto& row) { return row.param.name; });

TEST(AWideFile, IsRefusedByAWarning) {
    const support::TemporaryFolder folder;
    folder.Write("wide.mif", std::string_view("\xFF\xFEV\0e\0", 6));

    EXPECT_EQ(app::CodePageOf(app::ScanHeader(folder.path() / "wide.mif")).warning,
              "files in UTF-16 can't be read; convert it to UTF-8 first");
}

}  // namespace
