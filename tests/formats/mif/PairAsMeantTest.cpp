// What pairs mean that the module reads wrongly, or not at all: from the text of the files to
// features.
#include "app/base/Errors.h"
#include "app/formats/mif/MifSource.h"
#include "tests/support/FeatureText.h"
#include "tests/support/KeptMessages.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

namespace {

class APairAsMeant : public testing::Test {
protected:
    APairAsMeant() {
        options_.noStore = true;
        options_.modulePath = QOLF_MODULE;
    }

    std::vector<app::Feature> FeaturesOf(const std::string& mif, const std::string& mid) {
        folder_.Write("a.mif", mif);
        folder_.Write("a.mid", mid);
        app::MifSource source(folder_.path() / "a.mif", options_);
        layer_ = source.Begin(0, messages_.Reporter());
        std::vector<app::Feature> features;
        source.Read(messages_.Reporter(), [&](app::Feature& feature) {
            features.push_back(feature);
            return true;
        });
        return features;
    }

    // What was said, without the name of the file.
    std::string Said() const {
        std::string text = messages_.Text();
        const std::string name = (folder_.path() / "a.mif").string() + ": ";
        for (std::size_t at = text.find(name); at != std::string::npos; at = text.find(name)) {
            text.erase(at, name.size());
        }
        return text;
    }

    support::TemporaryFolder folder_;
    support::KeptMessages messages_;
    app::SourceOptions options_;
    app::LayerFacts layer_;
};

constexpr const char* kHeader = "Version 450\nCharset \"WindowsLatin1\"\nDelimiter \",\"\n"
                                "CoordSys NonEarth Units \"m\" Bounds (-100, -100) (100, 100)\n"
                                "Columns 1\n  name Char(20)\nData\n\n";

struct ObjectRow {
    std::string name;      // letters and digits
    std::string objects;   // behind the Data line
    std::string features;  // TextOf; the rows of the .mid file are a, b, c, ...
    std::string said = {};
    std::size_t rows = 0;  // of the .mid file; 0: one for each feature
};

std::string RowsFor(const ObjectRow& row) {
    std::size_t count = row.rows;
    for (std::size_t at = row.features.find("]\n"); row.rows == 0 && at != std::string::npos;
         at = row.features.find("]\n", at + 1)) {
        ++count;
    }
    std::string rows;
    for (std::size_t i = 0; i < count; ++i) {
        rows += {static_cast<char>('a' + i), '\n'};
    }
    return rows;
}

class ObjectsOfAPair : public APairAsMeant, public testing::WithParamInterface<ObjectRow> {};

TEST_P(ObjectsOfAPair, AreReadAsTheyWereMeant) {
    EXPECT_EQ(support::TextOf(FeaturesOf(kHeader + GetParam().objects, RowsFor(GetParam()))),
              GetParam().features);
    EXPECT_EQ(Said(), GetParam().said);
}

const ObjectRow kObjects[] = {
    // Shapes that the module turns into others.
    {"Arc", "Arc 0 0 10 20\n30 90.5\n  Pen (1, 2, 255)\n",
     "Arc 0 0, 10 20 from 30 to 90.5 pen 1 2 255 [a]\n"},
    {"ArcOnOneLine", "Arc 0 0 10 20 30 90\n", "Arc 0 0, 10 20 from 30 to 90 [a]\n"},
    {"ArcOfTurnedCorners", "Arc 10 20 0 0\n30 90\n", "Arc 0 0, 10 20 from 30 to 90 [a]\n"},
    {"PointWithAShape", "Pen (3, 4, 5)\nPoint 1 2\n  Symbol (36, 65280, 18)\n",
     "Points 1 2 symbol 36 65280 18 [a]\n",
     "qolf: warning: 1 line that is no object skipped (in line 9)\n"},
    {"PointBehindALineWithAPen", "Line 0 0 1 1\n  Pen (3, 4, 5)\nPoint 1 2\n",
     "Line 0 0, 1 1 pen 3 4 5 [a]\nPoints 1 2 [b]\n"},
    {"PointWithALetter", "Point 1 2\n  Symbol (65, 255, 24, \"Map Symbols\", 17, 45.5)\n",
     "Points 1 2 symbol 65 255 24 'Map Symbols' 17 45.5 [a]\n"},
    {"PointWithAPicture", "Point 1 2\n  Symbol (\"PIN1-32.BMP\", 255, 24, 1)\n",
     "Points 1 2 symbol 0 255 24 'PIN1-32.BMP' 1 0 [a]\n"},
    {"PolylineOfSections", "Pline Multiple 2\n2\n0 0\n1 1\n3\n2 2\n3 3\n4 4\n  Pen (1, 2, 3)\n",
     "MultiLine 0 0, 1 1 | 2 2, 3 3, 4 4 pen 1 2 3 [a]\n"},
    {"PolylineOfOneSection", "Pline Multiple 1\n2\n0 0\n1 1\nPoint 5 5\n",
     "MultiLine 0 0, 1 1 [a]\nPoints 5 5 [b]\n"},
    {"Collection",
     "Collection 3\nRegion 1\n4\n0 0\n1 0\n1 1\n0 0\n  Brush (2, 255)\nPline 2\n0 0\n5 5\n"
     "  Pen (1, 2, 3)\nMultipoint 2\n1 1\n2 2\n  Symbol (35, 0, 12)\nPoint 9 9\n",
     "Collection {Region 0 0, 1 0, 1 1, 0 0 brush 2 255; Line 0 0, 5 5 pen 1 2 3; "
     "MultiPoints 1 1, 2 2 symbol 35 0 12} [a]\nPoints 9 9 [b]\n"},
    {"CollectionInACollection", "Collection 2\nCollection 1\nPoint 1 1\nPoint 2 2\nPoint 3 3\n",
     "Collection {Points 1 1; Points 2 2} [a]\nPoints 3 3 [b]\n",
     "qolf: note: 1 collection inside a collection; its parts were taken for parts of the "
     "outer one (in line 10)\n"},
    {"CollectionOfTwoInACollection",
     "Collection 2\nCollection 2\nPoint 1 1\nPoint 2 2\nPoint 3 3\nPoint 4 4\n",
     "Collection {Points 1 1; Points 2 2; Points 3 3} [a]\nPoints 4 4 [b]\n",
     "qolf: note: 1 collection inside a collection; its parts were taken for parts of the "
     "outer one (in line 10)\n"},
    {"UnknownObjectInACollection", "Collection 2\nPoint 1 1\nBlob 2 2\nPoint 3 3\n",
     "Collection {Points 1 1} [a]\nPoints 3 3 [b]\n",
     "qolf: warning: 1 line that is no object skipped (in line 11)\n"},
    {"MultipointOfOne", "Multipoint 1\n1 2\n", "MultiPoints 1 2 [a]\n"},
    {"RoundRectangle", "RoundRect 0 0 10 20\n  4\n", "Rectangle 0 0, 10 20 round 4 4 [a]\n"},
    {"TextOfTurnedLetters",
     "Text \"Ma\"\n0 0 10 20\n  Font (\"Arial\", 1, 0, 255)\n  Angle 90.5\nPoint 1 1\n",
     "Text 'Ma' 19.9992384613 20.17453071 font 'Arial' 1 0 255 [a]\nPoints 1 1 [b]\n"},
    {"QuoteInAText", "Text \"say \"\"hi\"\"\"\n0 0 10 20\n", "Text 'say \"hi\"' 0 0 [a]\n"},
    {"LineFeedInAText", "Text \"one\\ntwo\"\n0 0 10 20\n", "Text 'one\ntwo' 0 0 [a]\n"},

    // Features without a place.
    {"None", "None\nPoint 1 1\nNone\n", "None [a]\nPoints 1 1 [b]\nNone [c]\n"},
    {"NoneBeforeALoneReturn", "None\rNone\rPoint 1 1\n", "None [a]\nNone [b]\nPoints 1 1 [c]\n"},
    {"NothingButNone", "None\nNone\nNone\n", "None [a]\nNone [b]\nNone [c]\n"},

    // Counts.
    {"CountOfAPolylineOnTheNextLine", "Pline\n3\n0 0\n1 1\n2 2\nPoint 9 9\n",
     "Line 0 0, 1 1, 2 2 [a]\nPoints 9 9 [b]\n",
     "qolf: note: 1 vertex count taken from the line after the keyword (in line 9)\n"},
    {"CountsOfThreeObjectsOnTheNextLine",
     "Pline\n2\n0 0\n1 1\nRegion\n1\n3\n0 0\n1 0\n1 1\nPline Multiple\n2\n2\n0 0\n1 1\n2\n3 3\n4 "
     "4\n",
     "Line 0 0, 1 1 [a]\nRegion 0 0, 1 0, 1 1 [b]\nMultiLine 0 0, 1 1 | 3 3, 4 4 [c]\n",
     "qolf: note: 3 vertex counts taken from the line after the keyword (first in line 9)\n"},
    {"CountThatIsTooSmall", "Pline 2\n0 0\n1 1\n2 2\nPoint 9 9\n",
     "Line 0 0, 1 1, 2 2 [a]\nPoints 9 9 [b]\n",
     "qolf: note: 1 count that differs from what follows; what follows was taken (in line 9)\n"},
    {"CountThatIsTooLarge", "Pline 4\n0 0\n1 1\n  Pen (1, 2, 3)\nPoint 9 9\n",
     "Line 0 0, 1 1 pen 1 2 3 [a]\nPoints 9 9 [b]\n",
     "qolf: note: 1 count that differs from what follows; what follows was taken (in line 9)\n"},

    // Lines that are no object.
    {"LineThatIsNoObject", "Point 1 1\nCOLOR #FF0000\nPoint 2 2\nPoint 3 3\n",
     "Points 1 1 [a]\nPoints 2 2 [b]\nPoints 3 3 [c]\n",
     "qolf: warning: 1 line that is no object skipped (in line 10)\n"},
    {"LineThatIsNoObjectBeforeAStyle", "Point 1 1\nCOLOR #FF0000\n  Symbol (36, 0, 9)\nPoint 2 2\n",
     "Points 1 1 symbol 36 0 9 [a]\nPoints 2 2 [b]\n",
     "qolf: warning: 1 line that is no object skipped (in line 10)\n"},
    {"MisspeltObject", "Point 1 1\nPiont 2 2\n  Symbol (36, 0, 9)\nPoint 3 3\n",
     "Points 1 1 [a]\nPoints 3 3 [c]\n",
     "qolf: warning: 1 line that is no object skipped (in line 10)\n", 3},

    // Numbers.
    {"DecimalCommas", "Point 34,7403 31,9776\nPline 2\n1,5 2,5\n3,5 4,5\n",
     "Points 34.7403 31.9776 [a]\nLine 1.5 2.5, 3.5 4.5 [b]\n",
     "qolf: note: 6 coordinates with decimal commas read as they were meant (first in line 9)\n"},
    {"CommaBetweenTheNumbers", "Point 5, 6\nLine 1, 2, 3, 4\nPline 2\n1,2\n3 , 4\n",
     "Points 5 6 [a]\nLine 1 2, 3 4 [b]\nLine 1 2, 3 4 [c]\n",
     "qolf: note: 4 lines with commas between their numbers read (first in line 9)\n"},

    // Styles on the line of their object.
    {"StylesOnTheLineOfTheirObject",
     "Point 1 1 Symbol (36, 0, 9)\nPline 2 Pen (1, 2, 3)\n0 0\n1 1\nRegion 1 Brush (2, 255)\n3\n"
     "0 0\n1 0\n1 1\n  Pen (4, 5, 6)\n",
     "Points 1 1 symbol 36 0 9 [a]\nLine 0 0, 1 1 pen 1 2 3 [b]\n"
     "Region 0 0, 1 0, 1 1 pen 4 5 6 brush 2 255 [c]\n",
     "qolf: note: 3 style clauses read from the lines of their objects (first in line 9)\n"},

    // Line ends.
    {"NoLastLineEnd", "Point 1 1\nPline 2\n0 0\n1 1", "Points 1 1 [a]\nLine 0 0, 1 1 [b]\n"},
    {"NoLastLineEndBehindNone", "Point 1 1\nNone", "Points 1 1 [a]\nNone [b]\n"},
    {"NoLastLineEndBehindAStyle", "Point 1 1\n  Symbol (36, 0, 9)",
     "Points 1 1 symbol 36 0 9 [a]\n"},
    {"MixedLineEnds", "Point 1 1\r\nPline 2\n0 0\r\n1 1\n\r\nPoint 3 3\r\n",
     "Points 1 1 [a]\nLine 0 0, 1 1 [b]\nPoints 3 3 [c]\n"},
    {"LoneReturns", "Point 1 1\rPline 2\r0 0\r1 1\rPoint 3 3\r",
     "Points 1 1 [a]\nLine 0 0, 1 1 [b]\nPoints 3 3 [c]\n"},
};
INSTANTIATE_TEST_SUITE_P(, ObjectsOfAPair, testing::ValuesIn(kObjects),
                         [](const auto& row) { return row.param.name; });

struct RowRow {
    std::string name;  // letters and digits
    std::string mid;   // of two points and one column
    std::string first;
    std::string second;
    std::string said = {};
};

class RowsOfAPair : public APairAsMeant, public testing::WithParamInterface<RowRow> {};

TEST_P(RowsOfAPair, AreReadAsTheyWereMeant) {
    const std::vector<app::Feature> features =
        FeaturesOf(std::string(kHeader) + "Point 1 1\nPoint 2 2\n", GetParam().mid);

    ASSERT_EQ(features.size(), 2U);
    EXPECT_EQ(features[0].values.front(), app::Value(GetParam().first));
    EXPECT_EQ(features[1].values.front(), app::Value(GetParam().second));
    EXPECT_EQ(Said(), GetParam().said);
}

const RowRow kRows[] = {
    {"DoubledQuote", "\"say \"\"hi\"\" now\"\n\"b\"\n", "say \"hi\" now", "b"},
    {"NothingButQuotes", "\"\"\"\"\n\"\"\n", "\"", ""},
    {"LineBreak", "\"one\ntwo\"\n\"b\"\n", "one\ntwo", "b"},
    {"LineBreakOfTwoBytes", "\"one\r\ntwo\"\r\n\"b\"\r\n", "one\ntwo", "b"},
    {"Delimiter", "\"one,two\"\n\"b\"\n", "one,two", "b"},
    {"Tab", "\"one\ttwo\"\n\"b\"\n", "one\ttwo", "b"},
    {"ByteOrderMark", "\xEF\xBB\xBF\"\xC3\xA9\"\n\"b\"\n", "\xC3\xA9", "b",
     "qolf: note: the letters beyond ASCII are UTF-8, not WindowsLatin1; read so (--encoding names "
     "another)\n"},
    {"Utf8", "\"gr\xC3\xBC\xC3\x9F\"\n\"\xE2\x82\xAC\"\n", "gr\xC3\xBC\xC3\x9F", "\xE2\x82\xAC",
     "qolf: note: the letters beyond ASCII are UTF-8, not WindowsLatin1; read so (--encoding names "
     "another)\n"},
    {"LettersThatAreNotAllUtf8", "\"\xC3\xBC\"\n\"\xFC\"\n", "\xC3\x83\xC2\xBC", "\xC3\xBC"},
    {"NoLastLineEnd", "\"a\"\n\"b\"", "a", "b"},
    {"LoneReturns", "\"a\"\r\"b\"\r", "a", "b"},
    {"QuoteThatNothingCloses", "\"a\"\n\"b\n", "a", "b",
     "qolf: warning: 1 row of the .mid file with a quote that nothing closes (in line 2)\n"},
};
INSTANTIATE_TEST_SUITE_P(, RowsOfAPair, testing::ValuesIn(kRows),
                         [](const auto& row) { return row.param.name; });

struct ColumnRow {
    std::string name;  // letters and digits
    std::string line;
    std::string column;
    app::ColumnKind kind;
    int width = 0;
    int decimals = 0;
    std::string said = {};
};

class AColumnOfAPair : public APairAsMeant, public testing::WithParamInterface<ColumnRow> {};

TEST_P(AColumnOfAPair, IsReadAsItWasMeant) {
    FeaturesOf(
        "Version 450\nDelimiter \",\"\nCoordSys NonEarth Units \"m\"\nColumns 2\n  id Integer\n  " +
            GetParam().line + "\nData\n\nPoint 1 1\n",
        "1,2\n");

    ASSERT_EQ(layer_.columns.size(), 2U);
    EXPECT_EQ(layer_.columns[1].name, GetParam().column);
    EXPECT_EQ(layer_.columns[1].kind, GetParam().kind);
    EXPECT_EQ(layer_.columns[1].width, GetParam().width);
    EXPECT_EQ(layer_.columns[1].decimals, GetParam().decimals);
    EXPECT_EQ(Said(), GetParam().said);
}

const ColumnRow kColumns[] = {
    {"NameWithBlanks", "street name Char(10)", "street name", app::ColumnKind::Char, 10, 0,
     "qolf: note: 1 column name with blanks taken whole (in line 6)\n"},
    {"QuotedNameWithBlanks", "\"street name\" Char(10)", "street name", app::ColumnKind::Char, 10},
    {"NameThatIsAType", "Date Date", "Date", app::ColumnKind::Date},
    {"BlankBeforeTheWidth", "a Char (10)", "a", app::ColumnKind::Char, 10},
    {"BlanksInTheWidths", "a Decimal (6, 2)", "a", app::ColumnKind::Decimal, 6, 2},
    {"TypeThatThereIsNot", "a Foo", "a", app::ColumnKind::Other, 0, 0,
     "qolf: note: 1 column without a known type read as text (in line 6)\n"},
    {"NoType", "a", "a", app::ColumnKind::Other, 0, 0,
     "qolf: note: 1 column without a known type read as text (in line 6)\n"},
    {"NameOfTheFirstColumn", "id Char(10)", "id_2", app::ColumnKind::Char, 10},
};
INSTANTIATE_TEST_SUITE_P(, AColumnOfAPair, testing::ValuesIn(kColumns),
                         [](const auto& row) { return row.param.name; });

struct LetterRow {
    std::string name;     // letters and digits
    std::string charset;  // the clause, or nothing
    std::string encoding;
    std::string value;  // in UTF-8, of the bytes C3 A9
};

class LettersOfAPair : public APairAsMeant, public testing::WithParamInterface<LetterRow> {};

TEST_P(LettersOfAPair, AreUtf8WhenAllOfThemAreUnlessMoreIsKnown) {
    options_.encoding = GetParam().encoding;

    const std::vector<app::Feature> features =
        FeaturesOf("Version 450\n" + GetParam().charset +
                       "Delimiter \",\"\nCoordSys NonEarth Units \"m\"\nColumns 1\n  a Char(9)\n"
                       "Data\n\nPoint 1 1\n",
                   "\"\xC3\xA9\"\n");

    EXPECT_EQ(features.front().values.front(), app::Value(GetParam().value));
}

const LetterRow kLetters[] = {
    {"Latin1", "Charset \"WindowsLatin1\"\n", "", "\xC3\xA9"},
    {"Cyrillic", "Charset \"WindowsCyrillic\"\n", "", "\xC3\xA9"},
    {"Neutral", "Charset \"Neutral\"\n", "", "\xC3\xA9"},
    {"NoCharset", "", "", "\xC3\xA9"},
    {"Utf8", "Charset \"UTF-8\"\n", "", "\xC3\xA9"},
    {"EncodingWins", "Charset \"WindowsLatin1\"\n", "CP1252", "\xC3\x83\xC2\xA9"},
    {"TwoBytesAreBelieved", "Charset \"WindowsJapanese\"\n", "", "\xEF\xBE\x83\xEF\xBD\xA9"},
};
INSTANTIATE_TEST_SUITE_P(, LettersOfAPair, testing::ValuesIn(kLetters),
                         [](const auto& row) { return row.param.name; });

TEST_F(APairAsMeant, IsReadBehindAByteOrderMark) {
    const std::vector<app::Feature> features =
        FeaturesOf(std::string("\xEF\xBB\xBF") + kHeader + "Point 1 1\n", "\"\xC3\xA9\"\n");

    EXPECT_EQ(support::TextOf(features), "Points 1 1 [\xC3\xA9]\n");
}

TEST_F(APairAsMeant, NeedsNoVersion) {
    EXPECT_EQ(support::TextOf(FeaturesOf("Columns 1\n  a Char(9)\nData\n\nPoint 1 1\n", "x\n")),
              "Points 1 1 [x]\n");
}

// The module takes the next line for the numbers that are missing.
TEST_F(APairAsMeant, NeedsNoWholeTransform) {
    EXPECT_EQ(
        support::TextOf(FeaturesOf(
            "Version 450\nTransform \",\"\nCoordSys NonEarth Units \"m\"\nData\n\nPoint 1 1\n",
            "")),
        "Points 1 1 []\n");
}

// The module does not find the Data line there.
TEST_F(APairAsMeant, MayEndWithItsDataLine) {
    EXPECT_TRUE(
        FeaturesOf("Version 450\nDelimiter \",\"\nColumns 1\n  a Char(9)\nSomething\nData", "")
            .empty());
}

TEST_F(APairAsMeant, KeepsEachRowWithItsObjectWhenCollectionsHaveOneEach) {
    EXPECT_EQ(
        support::TextOf(FeaturesOf(
            std::string(kHeader) + "Collection 2\nPoint 1 1\nLine 0 0 1 1\nPoint 5 5\n", "a\nb\n")),
        "Collection {Points 1 1; Line 0 0, 1 1} [a]\nPoints 5 5 [b]\n");
}

TEST_F(APairAsMeant, SkipsTheRowsOfMembersWhenEachHasOne) {
    EXPECT_EQ(support::TextOf(FeaturesOf(std::string(kHeader) +
                                             "Collection 2\nPoint 1 1\nLine 0 0 1 1\nPoint 5 5\n",
                                         "a\nb\nc\n")),
              "Collection {Points 1 1; Line 0 0, 1 1} [a]\nPoints 5 5 [c]\n");
}

TEST_F(APairAsMeant, SaysWhichObjectsHaveNoRow) {
    EXPECT_EQ(support::TextOf(FeaturesOf(std::string(kHeader) + "Point 1 1\nPoint 5 5\n", "a\n")),
              "Points 1 1 [a]\nPoints 5 5 [null]\n");
    EXPECT_EQ(Said(), "qolf: warning: 1 object has no row in the .mid file\n");
}

TEST_F(APairAsMeant, IsMovedByItsTransform) {
    EXPECT_EQ(
        support::TextOf(FeaturesOf("Version 450\nDelimiter \",\"\nTransform 10, 0, 1, 2\n"
                                   "Columns 1\n  a Char(9)\nData\n\nPoint 1 1\nRect 0 0 2 2\n",
                                   "a\nb\n")),
        "Points 11 3 [a]\nRectangle 1 2, 21 4 [b]\n");
}

struct SampleRow {
    const char* name;
    std::size_t features;
    std::string first;  // TextOf, as far as it is compared
};

class ARealSample : public testing::TestWithParam<SampleRow> {};

TEST_P(ARealSample, HasAFeatureForEachObjectAndForEachRow) {
    support::KeptMessages messages;
    app::SourceOptions options;
    options.noStore = true;
    options.modulePath = QOLF_MODULE;
    app::MifSource source(std::filesystem::path(QOLF_SAMPLES) / "real" /
                              (std::string(GetParam().name) + ".mif"),
                          options);
    static_cast<void>(source.Begin(0, messages.Reporter()));
    std::size_t count = 0;
    std::string first;
    source.Read(messages.Reporter(), [&](app::Feature& feature) {
        first = count++ == 0 ? support::TextOf(feature) : first;
        return true;
    });

    EXPECT_EQ(count, GetParam().features);
    EXPECT_EQ(first.substr(0, GetParam().first.size()), GetParam().first);
    EXPECT_EQ(messages.Text().find("row"), std::string::npos) << messages.Text();
}

const SampleRow kSamples[] = {
    {"cyrillic", 3, ""},      {"field_types_v900", 2, "None ["},
    {"finnish_kkj", 2, ""},   {"lambert_ntf", 2, ""},
    {"nonearth_mix", 20, ""}, {"osm_places", 118, "Points 1."},
    {"osm_water", 222, ""},   {"utm_ridge", 70, ""},
};
INSTANTIATE_TEST_SUITE_P(, ARealSample, testing::ValuesIn(kSamples),
                         [](const auto& row) { return std::string(row.param.name); });

struct NoMifRow {
    std::string name;  // letters and digits
    std::string bytes;
    std::string reason;
};

class AFileThatIsNoMif : public APairAsMeant, public testing::WithParamInterface<NoMifRow> {};

TEST_P(AFileThatIsNoMif, IsRefusedWithWhatItLooksLike) {
    try {
        FeaturesOf(GetParam().bytes, "");
        FAIL() << "read";
    } catch (const app::Failure& failure) {
        EXPECT_EQ(std::string(failure.what()),
                  (folder_.path() / "a.mif").string() + ": " + GetParam().reason);
    }
}

const NoMifRow kNoMifs[] = {
    {"Zip", "PK\x03\x04...", "is not a MIF file: it looks like a zip archive"},
    {"Gzip", "\x1F\x8B\x08", "is not a MIF file: it looks like a gzip archive"},
    {"Json", "  {\"type\": 1}", "is not a MIF file: it looks like JSON"},
    {"Xml", "<?xml version=\"1.0\"?>", "is not a MIF file: it looks like XML or HTML"},
    {"Native", "!table\n!version 300\n",
     "is not a MIF file: it looks like the .tab file of a native table"},
    {"Text", "hello\nworld\n", "is not a MIF file: it has no header that ends with the line Data"},
    {"Empty", "", "is not a MIF file: it is empty"},
    {"Utf16", std::string("\xFF\xFEV\0e\0", 6),
     "is encoded in UTF-16, which MIF files never are; save it in UTF-8"},
    {"HeaderAlone", "Version 300\nColumns 0\n", "the header ends without the line Data"},
};
INSTANTIATE_TEST_SUITE_P(, AFileThatIsNoMif, testing::ValuesIn(kNoMifs),
                         [](const auto& row) { return row.param.name; });

}  // namespace
