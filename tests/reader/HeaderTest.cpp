// The header of a .mif file: what each clause gives, and how a header is refused.
#include "tests/reader/Sources.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using namespace std::string_literals;
using readertest::FilePair;

using Names = std::vector<std::string>;

constexpr const wchar_t* kOutOfOrder =
    L"Internal Error:  Member functions called in improper order.";

TEST(Header, OfOnlyVersionAndDataIsIncomplete) {
    FilePair pair("Version 300\nData\n\n");

    EXPECT_FALSE(pair.Open());
    EXPECT_EQ(pair.Error(), L"CMifReader(962): Corrupt or incomplete file header.");
}

TEST(Header, WithACharsetIsComplete) {
    FilePair pair("Version 300\nCharset \"WindowsLatin1\"\nData\n\n");

    EXPECT_TRUE(pair.Open());
    EXPECT_EQ(pair.Error(), L"");
    EXPECT_EQ(pair.warnings(), L"");
    EXPECT_EQ(pair.reader().version(), 300);
    EXPECT_EQ(pair.reader().charset(), "WindowsLatin1");
}

struct ClauseRow {
    std::string name;
    std::string clause;
};
void PrintTo(const ClauseRow& row, std::ostream* out) {
    *out << row.name;
}

class HeaderWithOnly : public testing::TestWithParam<ClauseRow> {};

TEST_P(HeaderWithOnly, ThisClauseIsComplete) {
    FilePair pair("Version 300\n" + GetParam().clause + "\nData\n\n");

    EXPECT_TRUE(pair.Open());
}

INSTANTIATE_TEST_SUITE_P(, HeaderWithOnly,
                         testing::Values(ClauseRow{"Charset", "Charset \"Neutral\""},
                                         ClauseRow{"Delimiter", "Delimiter \",\""},
                                         ClauseRow{"CoordSys", "CoordSys Nonearth Units \"m\""},
                                         ClauseRow{"Columns", "Columns 0"},
                                         ClauseRow{"Bounds", "Bounds (0,0) (1,1)"}),
                         [](const auto& row) { return row.param.name; });

class HeaderWithNothingBut : public testing::TestWithParam<ClauseRow> {};

TEST_P(HeaderWithNothingBut, ThisClauseIsIncomplete) {
    FilePair pair("Version 300\n" + GetParam().clause + "\nData\n\n");

    EXPECT_FALSE(pair.Open());
    EXPECT_EQ(pair.Error(), L"CMifReader(962): Corrupt or incomplete file header.");
}

INSTANTIATE_TEST_SUITE_P(, HeaderWithNothingBut,
                         testing::Values(ClauseRow{"Transform", "Transform 1 1 0 0"},
                                         ClauseRow{"Index", "Index 1"},
                                         ClauseRow{"Unique", "Unique 1"},
                                         ClauseRow{"AnUnknownWord", "Something"}),
                         [](const auto& row) { return row.param.name; });

TEST(Header, WithoutVersionIsRefused) {
    FilePair pair("Charset \"Neutral\"\nData\n\n");

    EXPECT_FALSE(pair.Open());
    EXPECT_EQ(pair.Error(), L"CMifReader(962): VERSION section missing from file header.");
}

TEST(Header, KeywordsAreRecognisedInAnyCase) {
    FilePair pair("vErSiOn 450\nCHARSET \"Neutral\"\ndelimiter \";\"\nDATA\n\n");

    EXPECT_TRUE(pair.Open());
    EXPECT_EQ(pair.reader().version(), 450);
    EXPECT_EQ(pair.reader().delimiter(), ";");
}

TEST(Header, ClausesComeInAnyOrderAndTheLastOneWins) {
    FilePair pair("Charset \"A\"\nDelimiter \",\"\nVersion 1\nDelimiter \";\"\nCharset \"B\"\n"
                  "Version 650\nData\n\n");

    EXPECT_TRUE(pair.Open());
    EXPECT_EQ(pair.reader().version(), 650);
    EXPECT_EQ(pair.reader().charset(), "B");
    EXPECT_EQ(pair.reader().delimiter(), ";");
}

TEST(Header, LeavesTheFirstTokenOfTheFirstObjectLoaded) {
    FilePair pair("Version 300\nCharset \"Neutral\"\nData\nPoint 1 2\n");

    ASSERT_TRUE(pair.Open());

    EXPECT_EQ(pair.Tokens(), (Names{"Point", "1", "2", "\n"}));
}

TEST(Header, WithCarriageReturnsReadsAlike) {
    FilePair pair(
        "Version 300\r\nDelimiter \",\"\r\nColumns 1\r\n  A Integer\r\nData\r\nPoint 1 2\r\n");

    ASSERT_TRUE(pair.Open());

    EXPECT_EQ(pair.reader().columnNames(), (Names{"A"}));
    EXPECT_EQ(pair.Tokens(), (Names{"Point", "1", "2", "\n"}));
}

TEST(Header, UnknownAndEmptyLinesAreSkipped) {
    FilePair pair("\n  \nremark one two\nVersion 300\n\nCharset \"Neutral\"\n\nData\n\n");

    EXPECT_TRUE(pair.Open());
}

struct FailureRow {
    std::string name;
    std::string text;
    std::wstring error;
};
void PrintTo(const FailureRow& row, std::ostream* out) {
    *out << row.name;
}

class RefusedHeader : public testing::TestWithParam<FailureRow> {};

TEST_P(RefusedHeader, SaysWhy) {
    FilePair pair(GetParam().text);

    EXPECT_FALSE(pair.Open());
    EXPECT_EQ(pair.Error(), GetParam().error);
}

INSTANTIATE_TEST_SUITE_P(
    , RefusedHeader,
    testing::Values(
        FailureRow{"WhenTheFileIsEmpty", "",
                   L"CMifReader(962): End of file encountered while reading file header."},
        FailureRow{"WhenTheFileIsOneWord", "Version",
                   L"CMifReader(962): End of file encountered while reading file header."},
        FailureRow{"WhenTheHeaderDoesNotEnd", "Version 300\nCharset \"Neutral\"\n",
                   L"CMifReader(962): End of file encountered while reading file header."},
        FailureRow{"WhenDataIsTheLastWordOfTheFile", "Version 300\nCharset \"Neutral\"\nData",
                   L"CMifReader(962): End of file encountered while reading file header."},
        FailureRow{"WithoutATextWhenItEndsWithAnUnknownLine", "Version 300\nsomething\n",
                   L"CMifReader(962): "},
        FailureRow{"WhenNothingStandsInTheVersionsQuotes", "Version \"\"\nData\n\n",
                   L"CMifReader(962): Premature end of file after version keyword."},
        FailureRow{"WhenBlanksEndTheFileAfterVersion", "Version ",
                   L"CMifReader(962): Premature end of file after version keyword."},
        FailureRow{"WhenTheCoordSysClauseIsInvalid",
                   "Version 300\nCoordSys Earth Projection 2, 104\nData\n\n",
                   L"CMifReader(962): Unrecognized/invalid parameters while parsing COORDSYS "
                   L"section of file header."},
        FailureRow{"WhenTheVersionIsMissing", "Version\nCharset \"Neutral\"\nData\n\n",
                   L"CMifReader(986): Invalid version number 0 found in file header."}),
    [](const auto& row) { return row.param.name; });

struct VersionRow {
    std::string version;
    bool isAccepted;
    std::wstring text;  // the warning's middle, or the error
};
void PrintTo(const VersionRow& row, std::ostream* out) {
    *out << row.version;
}

class Version : public testing::TestWithParam<VersionRow> {};

TEST_P(Version, IsJudgedSo) {
    FilePair pair("Version " + GetParam().version + "\nCharset \"Neutral\"\nData\n\n");

    EXPECT_EQ(pair.Open(), GetParam().isAccepted);
    EXPECT_EQ(pair.warnings() + pair.Error(), GetParam().text);
}

std::wstring UnsupportedVersion(const std::wstring& version) {
    return L"WARNING:\nMIF version " + version +
           L" is not supported.\nImport will continue but portions of the file might be missing "
           L"or incorrect.\n";
}

std::wstring InvalidVersion(const std::wstring& version) {
    return L"CMifReader(986): Invalid version number " + version + L" found in file header.";
}

INSTANTIATE_TEST_SUITE_P(, Version,
                         testing::Values(VersionRow{"1", true, L""}, VersionRow{"2", true, L""},
                                         VersionRow{"300", true, L""}, VersionRow{"450", true, L""},
                                         VersionRow{"1100", true, L""},
                                         VersionRow{"1101", true, UnsupportedVersion(L"1101")},
                                         VersionRow{"2999", true, UnsupportedVersion(L"2999")},
                                         VersionRow{"3", false, InvalidVersion(L"3")},
                                         VersionRow{"299", false, InvalidVersion(L"299")},
                                         VersionRow{"3000", false, InvalidVersion(L"3000")},
                                         VersionRow{"-1", false, InvalidVersion(L"-1")},
                                         VersionRow{"0", false, InvalidVersion(L"0")},
                                         VersionRow{"none", false, InvalidVersion(L"0")},
                                         VersionRow{"99999999999", false,
                                                    InvalidVersion(L"2147483647")}),
                         [](const auto& row) {
                             return (row.param.version.front() == '-'
                                         ? "Minus" + row.param.version.substr(1)
                                         : "Version" + row.param.version);
                         });

TEST(Header, ThatBeginsBehind64KiBIsNone) {
    const std::string line = std::string(69, 'x') + "\n";
    std::string text;
    for (int count = 0; count < 1000; ++count) {
        text += line;
    }
    FilePair pair(text + "Version 300\nCharset \"Neutral\"\nData\n\n");

    EXPECT_FALSE(pair.Open());
    EXPECT_EQ(pair.Error(), L"CMifReader(962): No MIF header found in file.");
}

TEST(Header, ThatBeginsWithin64KiBIsFound) {
    FilePair pair(std::string(65000, 'x') + "\nVersion 300\nCharset \"Neutral\"\nData\n\n");

    EXPECT_TRUE(pair.Open());
}

TEST(Header, ThatGoesOnBeyond64KiBIsStopped) {
    std::string text = "Version 300\nCharset \"Neutral\"\nColumns 5000\n";
    for (int column = 0; column < 5000; ++column) {
        text += "  Column" + std::to_string(column) + " Char(10)\n";
    }
    FilePair pair(text + "Data\n\n");

    EXPECT_FALSE(pair.Open());
    EXPECT_EQ(pair.Error(), L"CMifReader(962): No MIF header found in file.");
}

TEST(Charset, WithoutAValueTakesTheLineEnd) {
    FilePair pair("Version 300\nCharset\nData\n\n");

    EXPECT_TRUE(pair.Open());
    EXPECT_EQ(pair.reader().charset(), "\n");
}

struct DelimiterRow {
    std::string name;
    std::string clause;
    std::string delimiter;
};
void PrintTo(const DelimiterRow& row, std::ostream* out) {
    *out << row.name;
}

class Delimiter : public testing::TestWithParam<DelimiterRow> {};

TEST_P(Delimiter, OfThisHeaderIs) {
    FilePair pair("Version 300\nCharset \"Neutral\"\n" + GetParam().clause + "Data\n\n");

    ASSERT_TRUE(pair.Open());

    EXPECT_EQ(pair.reader().delimiter(), GetParam().delimiter);
}

INSTANTIATE_TEST_SUITE_P(
    , Delimiter,
    testing::Values(DelimiterRow{"TabWhenAbsent", "", "\t"},
                    DelimiterRow{"Semicolon", "Delimiter \";\"\n", ";"},
                    DelimiterRow{"Comma", "Delimiter \",\"\n", ","},
                    DelimiterRow{"TabInQuotes", "Delimiter \"\t\"\n", "\t"},
                    DelimiterRow{"TwoCharacters", "Delimiter \"||\"\n", "||"},
                    DelimiterRow{"TabWhenThreeCharactersAreGiven", "Delimiter \"abc\"\n", "\t"},
                    DelimiterRow{"TheOneBeforeWhenThreeCharactersAreGiven",
                                 "Delimiter \";\"\nDelimiter \"abc\"\n", ";"},
                    DelimiterRow{"EmptyInQuotes", "Delimiter \"\"\n", ""},
                    DelimiterRow{"AboveTheByte127", "Delimiter \"\xA7\"\n", "\xA7"}),
    [](const auto& row) { return row.param.name; });

TEST(Columns, GiveTheFirstTokenOfEachLine) {
    FilePair pair("Version 300\nColumns 3\n  ID Integer\n  NAME Char(20)\n  \"A B\" Float\n"
                  "Data\n\n");

    ASSERT_TRUE(pair.Open());

    EXPECT_EQ(pair.reader().columnNames(), (Names{"ID", "NAME", "A B"}));
}

TEST(Columns, ASecondClauseAddsItsNames) {
    FilePair pair("Version 300\nColumns 1\n  A Integer\nColumns 1\n  B Integer\nData\n\n");

    ASSERT_TRUE(pair.Open());

    EXPECT_EQ(pair.reader().columnNames(), (Names{"A", "B"}));
}

TEST(Columns, ACountOfZeroOrBelowReadsNoLines) {
    FilePair pair("Version 300\nColumns -2\nColumns 0\nData\n\n");

    ASSERT_TRUE(pair.Open());

    EXPECT_EQ(pair.reader().columnNames(), Names{});
}

TEST(Columns, ACountThatRunsPastTheFileStopsThere) {
    FilePair pair("Version 300\nColumns 2000000000\n  A Integer\n  B Integer\n");

    EXPECT_FALSE(pair.Open());
    EXPECT_EQ(pair.Error(), L"CMifReader(962): End of file encountered while reading file header.");
    EXPECT_EQ(pair.reader().columnNames(), (Names{"A", "B"}));
}

TEST(Columns, BehindAClauseThatEndsAtItsDatumAreLost) {
    FilePair pair("Version 300\nDelimiter \",\"\nCoordSys Earth Projection 1, 104\nColumns 2\n"
                  "  A Integer\n  B Integer\nData\nPoint 1 2\n",
                  "1,2\n");

    ASSERT_TRUE(pair.Open());

    EXPECT_EQ(pair.reader().columnNames(), Names{});
    EXPECT_TRUE(pair.reader().TokenIs("Point"));
}

TEST(Unique, WarnsEachTimeAndGoesOn) {
    const std::wstring warning =
        L"MIF file header contains unsupported UNIQUE keyword.  Relational "
        L"attributes are not supported.\n";
    FilePair pair("Version 300\nUnique 1\nCharset \"Neutral\"\nUnique 2\nData\n\n");

    EXPECT_TRUE(pair.Open());
    EXPECT_EQ(pair.warnings(), L"WARNING:\n" + warning + warning +
                                   L"Import will continue but portions of the file might be "
                                   L"missing or incorrect.\n");
}

TEST(Unique, ItsWarningComesBeforeTheVersions) {
    FilePair pair("Version 2000\nUnique 1\nCharset \"Neutral\"\nData\n\n");

    EXPECT_TRUE(pair.Open());
    EXPECT_EQ(pair.warnings(),
              L"WARNING:\nMIF file header contains unsupported UNIQUE keyword.  Relational "
              L"attributes are not supported.\nMIF version 2000 is not supported.\nImport will "
              L"continue but portions of the file might be missing or incorrect.\n");
}

TEST(Index, IsSkipped) {
    FilePair pair("Version 300\nIndex 1,2\nCharset \"Neutral\"\nData\n\n");

    EXPECT_TRUE(pair.Open());
}

TEST(Transform, IsFourNumbers) {
    FilePair pair("Version 300\nCharset \"Neutral\"\nTransform 2 -3 0.5 1e2\nData\n\n");

    ASSERT_TRUE(pair.Open());

    EXPECT_EQ(pair.reader().transform().scaleX, 2.0);
    EXPECT_EQ(pair.reader().transform().scaleY, -3.0);
    EXPECT_EQ(pair.reader().transform().offsetX, 0.5);
    EXPECT_EQ(pair.reader().transform().offsetY, 100.0);
}

TEST(Transform, KeptCommasAreTakenForNumbers) {
    FilePair pair("Version 300\nCharset \"Neutral\"\nTransform 2,3,4,5\nData\n\n");

    ASSERT_TRUE(pair.Open());

    EXPECT_EQ(pair.reader().transform().scaleX, 2.0);
    EXPECT_EQ(pair.reader().transform().scaleY, 0.0);
    EXPECT_EQ(pair.reader().transform().offsetX, 3.0);
    EXPECT_EQ(pair.reader().transform().offsetY, 0.0);
}

TEST(Transform, IsNeutralWhenAbsent) {
    FilePair pair("Version 300\nCharset \"Neutral\"\nData\n\n");

    ASSERT_TRUE(pair.Open());

    EXPECT_EQ(pair.reader().transform().scaleX, 1.0);
    EXPECT_EQ(pair.reader().transform().scaleY, 1.0);
    EXPECT_EQ(pair.reader().transform().offsetX, 0.0);
    EXPECT_EQ(pair.reader().transform().offsetY, 0.0);
}

struct BoundsRow {
    std::string name;
    std::string clause;
    std::vector<double> corners;
    double diagonal;
};
void PrintTo(const BoundsRow& row, std::ostream* out) {
    *out << row.name;
}

class Bounds : public testing::TestWithParam<BoundsRow> {};

TEST_P(Bounds, AreReadSo) {
    FilePair pair("Version 300\n" + GetParam().clause + "\nCharset \"X\"\nData\n\n");

    ASSERT_TRUE(pair.Open());

    const mif::MifBounds& bounds = pair.reader().bounds();
    EXPECT_EQ((std::vector<double>{bounds.x1, bounds.y1, bounds.x2, bounds.y2}),
              GetParam().corners);
    EXPECT_EQ(pair.reader().BoundsDiagonal(), GetParam().diagonal);
    EXPECT_EQ(pair.reader().charset(), "X");
}

INSTANTIATE_TEST_SUITE_P(
    , Bounds,
    testing::Values(
        BoundsRow{"Whole", "Bounds (1,2) (4,6)", {1, 2, 4, 6}, 5.0},
        BoundsRow{"OverBlanks", "Bounds ( -1.5 , 2 )( 1.5 ,6 )", {-1.5, 2, 1.5, 6}, 5.0},
        BoundsRow{"WithNoNumbers", "Bounds", {0, 0, 0, 0}, 0.0},
        BoundsRow{"WithoutParentheses", "Bounds 1,2 4,6", {0, 0, 0, 0}, 0.0},
        BoundsRow{"UpToAMissingComma", "Bounds (3 4) (5,6)", {3, 0, 0, 0}, 3.0},
        BoundsRow{"UpToAMissingParenthesis", "Bounds (3,4 5,6", {3, 4, 0, 0}, 5.0},
        BoundsRow{"UpToASecondPairThatIsMissing", "Bounds (3,4)", {3, 4, 0, 0}, 5.0},
        BoundsRow{"WithoutTheLastParenthesis", "Bounds (1,2) (4,6 x", {1, 2, 4, 6}, 5.0},
        BoundsRow{"WithNulsBehindTheirSigns", "Bounds \"(\0x\" 1,2) (4,6)"s, {1, 2, 4, 6}, 5.0},
        BoundsRow{"OfAlmostNoSize", "Bounds (0,0) (1e-8,1e-8)", {0, 0, 1e-8, 1e-8}, 0.0},
        BoundsRow{"AbsentAsZeros", "Charset \"Y\"", {0, 0, 0, 0}, 0.0}),
    [](const auto& row) { return row.param.name; });

TEST(ReadHeader, WithNothingOpenIsOutOfOrder) {
    mif::CMifReader reader;
    std::wstring message = L"before";

    EXPECT_FALSE(reader.ReadHeader(message));
    EXPECT_EQ(message, L"");
    EXPECT_EQ(reader.errorSource(), L"CMifReader");
    EXPECT_EQ(reader.errorLine(), 105);
    EXPECT_EQ(reader.errorMessage(), kOutOfOrder);
}

TEST(ParseBounds, WithNothingOpenIsOutOfOrder) {
    mif::CMifReader reader;

    EXPECT_FALSE(reader.ParseBounds());
    EXPECT_EQ(reader.errorSource(), L"CMifReader");
    EXPECT_EQ(reader.errorLine(), 810);
    EXPECT_EQ(reader.errorMessage(), kOutOfOrder);
}

TEST(ParseCoordSys, WithNothingOpenFails) {
    mif::CMifReader reader;

    EXPECT_FALSE(reader.ParseCoordSys());
}

TEST(ReadHeader, ReadsABlockOfMemoryToo) {
    mif::CMifReader reader;
    reader.OpenMemory(
        readertest::BlockOf("Version 450\nColumns 1\n  A Integer\nUnique 1\nData\nPoint 1 2\n"));
    std::wstring message;

    EXPECT_TRUE(reader.ReadHeader(message));
    EXPECT_EQ(reader.version(), 450);
    EXPECT_EQ(reader.columnNames(), (Names{"A"}));
    EXPECT_TRUE(reader.TokenIs("Point"));
    EXPECT_EQ(message, L"MIF file header contains unsupported UNIQUE keyword.  Relational "
                       L"attributes are not supported.\n");
}

TEST(ReadHeader, OfABlockThatEndsWithDatasLineEndMeetsTheEnd) {
    mif::CMifReader reader;
    reader.OpenMemory(readertest::BlockOf("Version 450\nCharset \"X\"\nData\n"));
    std::wstring message;

    EXPECT_FALSE(reader.ReadHeader(message));
    EXPECT_EQ(message, L"End of file encountered while reading file header.");
}

TEST(ReadHeader, OfAFileThatEndsWithDatasLineEndSucceeds) {
    FilePair pair("Version 450\nCharset \"X\"\nData\n");

    EXPECT_TRUE(pair.Open());
}

TEST(ReadHeader, AgainStartsOver) {
    FilePair pair("Version 300\nCharset \"X\"\nDelimiter \",\"\nData\nPoint 1 2\n");
    ASSERT_TRUE(pair.Open());
    static_cast<void>(pair.Tokens());
    std::wstring message;

    EXPECT_TRUE(pair.reader().ReadHeader(message));
    EXPECT_TRUE(pair.reader().TokenIs("Point"));
}

}  // namespace
