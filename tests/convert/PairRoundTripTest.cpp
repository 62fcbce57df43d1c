// From MIF to MIF: what a pair says is what it said before, but for the exceptions that
// docs/round-trip.md lists, and a second conversion changes nothing at all.
#include "app/convert/ConvertRun.h"
#include "tests/convert/RandomPair.h"
#include "tests/support/KeptMessages.h"
#include "tests/support/PairText.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace {

using support::PairText;

class RoundTrip : public testing::Test {
protected:
    RoundTrip() {
        options_.modulePath = QOLF_MODULE;
        options_.noStore = true;
        options_.overwrite = true;
    }

    void ConvertFile(const std::string& from, const std::string& to) {
        options_.paths = {(folder_.path() / from).string(), (folder_.path() / to).string()};
        ASSERT_EQ(app::RunConvert(options_, messages_.Reporter()), 0);
    }

    // Writes a.mif, and converts it to b.mif and that to c.mif.
    void ConvertTwice(std::string_view mif, std::string_view mid) {
        folder_.Write("a.mif", mif);
        folder_.Write("a.mid", mid);
        ConvertFile("a.mif", "b.mif");
        ConvertFile("b.mif", "c.mif");
    }

    PairText Read(const std::string& stem) const {
        return support::PairTextOf(folder_.Read(stem + ".mif"), folder_.Read(stem + ".mid"));
    }

    // Of a and b; and of the bytes of b and c.
    std::string Difference() const {
        const bool isStable = folder_.ReadText("b.mif") == folder_.ReadText("c.mif") &&
                              folder_.ReadText("b.mid") == folder_.ReadText("c.mid");
        return support::DifferenceOf(Read("a"), Read("b")) +
               (isStable ? "" : "the second conversion differs\n");
    }

    app::ConvertOptions options_;
    support::TemporaryFolder folder_;
    support::KeptMessages messages_;
};

TEST_F(RoundTrip, KeepsAllThatRandomPairsSay) {
    constexpr unsigned kSeeds = 200;
    for (unsigned seed = 0; seed < kSeeds; ++seed) {
        const convert_test::RandomPair pair(seed);

        ConvertTwice(pair.Mif(), pair.Mid());

        ASSERT_EQ(Difference(), "") << "seed " << seed << '\n' << pair.Mif() << pair.Mid();
    }
    EXPECT_EQ(messages_.Text(), "");
}

std::string BytesOf(const std::filesystem::path& path) {
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

struct SampleRow {
    std::string name;
    std::string difference;  // of what the exceptions allow
};
void PrintTo(const SampleRow& row, std::ostream* out) {
    *out << row.name;
}
class Sample : public RoundTrip, public testing::WithParamInterface<SampleRow> {};

TEST_P(Sample, IsKept) {
    const std::filesystem::path path = std::filesystem::path(QOLF_SAMPLES) / GetParam().name;

    ConvertTwice(BytesOf(path.string() + ".mif"), BytesOf(path.string() + ".mid"));

    EXPECT_EQ(Difference(), GetParam().difference);
}

INSTANTIATE_TEST_SUITE_P(
    , Sample,
    testing::Values(
        SampleRow{"attributes", "row 5: [caf\xE9][1]\n  becomes [caf\xE9][1][][][][][][][][]\n"},
        SampleRow{"island", ""},
        SampleRow{"island-places",
                  "object 16: text \"Skerry Ferry 23.31462 58.50904 23.39371 58.51537 | angle 49 | "
                  "font \"DejaVu Serif 2 0 3108782 | justify left\n"
                  "  becomes text \"Skerry Ferry 23.31462 58.50904 23.39371 58.51537 | angle 49 | "
                  "font \"DejaVu Serif 2 0 3108782\n"},
        SampleRow{"island-ways", ""},
        SampleRow{"objects",
                  "object 11: rect 500300 6500200 500200 6500300 | brush 3 255 16776960 | pen 1 2 "
                  "0\n"
                  "  becomes rect 500200 6500200 500300 6500300 | brush 3 255 16776960 | pen 1 2 "
                  "0\n"
                  "object 19: point 500900 6500000\n"
                  "  becomes multipoint 1 500900 6500000\n"
                  "object 20: line 500900 6500000 500950 6500050\n"
                  "  becomes pline 2 500900 6500000 500950 6500050\n"
                  "row 19: [19][in a collection, too]\n"
                  "  becomes [20][last]\n"
                  "row 20: [20][last]\n"
                  "  becomes (missing)\n"},
        SampleRow{"styles",
                  "object 43: multipoint 2 10 90 20 90 | symbol 65 65280 24 \"Weather 17\n"
                  "  becomes multipoint 2 10 90 20 90 | symbol 65 65280 24 \"Weather 17 0\n"},
        SampleRow{"texts",
                  "object 2: text \"upright 10 40 60 50 | angle 0 | font \"Times New Roman 3 12 "
                  "255\n"
                  "  becomes text \"upright 10 40 60 50 | font \"Times New Roman 3 12 255\n"
                  "object 4: text \"point 50 60 50 60 | justify left\n"
                  "  becomes text \"point 50 60 50 60\n"
                  "object 7: text \"\n"
                  "  becomes none\n"
                  "object 8: text \"after an empty one 10 200 90 210 | brush 2 255 | pen 1 2 0\n"
                  "  becomes text \"after an empty one 10 200 90 210\n"},
        SampleRow{"real/cyrillic", ""}, SampleRow{"real/field_types_v900", ""},
        SampleRow{"real/finnish_kkj", "header line 1: Index 3\n  becomes (missing)\n"},
        SampleRow{"real/lambert_ntf", ""}, SampleRow{"real/nonearth_mix", ""},
        SampleRow{"real/osm_places",
                  "charset: Neutral\n  becomes UTF-8\n"
                  "column 2: code integer(4)\n  becomes code integer\n"
                  "column 4: population integer(10)\n  becomes population integer\n"},
        SampleRow{"real/osm_water", "charset: Neutral\n  becomes UTF-8\n"
                                    "column 2: code integer(4)\n  becomes code integer\n"},
        SampleRow{"real/utm_ridge", ""}),
    [](const auto& row) {
        std::string name = row.param.name;
        std::erase_if(name, [](char c) { return c == '-' || c == '/' || c == '_'; });
        return name;
    });

// A pair with one column, a, unless the header says otherwise.
struct ExceptionRow {
    std::string exception;  // the first cell of its row in docs/round-trip.md
    std::string header;     // in place of the usual one; empty for that
    std::string objects;
    std::string rows;
    std::string difference;
};
void PrintTo(const ExceptionRow& row, std::ostream* out) {
    *out << row.exception;
}
std::string HeaderWith(const std::string& columns, const std::string& more = {}) {
    return "Version 300\nCharset \"WindowsLatin1\"\nDelimiter \",\"\n" + more +
           "CoordSys NonEarth Units \"m\"\nColumns " + columns + "\nData\n\n";
}

const std::vector<ExceptionRow>& Exceptions() {
    static const std::string kPoint = "Point 1 2\n";
    static const std::string kRow = "\"a\"\n";
    static const std::vector<ExceptionRow> kRows = {
        {"Index and Unique clauses", HeaderWith("1\n  a Char(10)", "Index 1\nUnique 1\n"), kPoint,
         kRow,
         "header line 1: Index 1\n  becomes (missing)\n"
         "header line 2: Unique 1\n  becomes (missing)\n"},
        {"a Transform clause", HeaderWith("1\n  a Char(10)", "Transform 2,0,10,0\n"), kPoint, kRow,
         "header line 1: Transform 2,0,10,0\n  becomes (missing)\n"
         "object 1: point 1 2\n  becomes point 12 2\n"},
        {"a pair without columns", HeaderWith("0"), kPoint, "",
         "column 1: (missing)\n  becomes ID integer\nrow 1: (missing)\n  becomes [1]\n"},
        {"a column name with other characters", HeaderWith("1\n  a-b Char(10)"), kPoint, kRow,
         "column 1: a-b char(10)\n  becomes a_b char(10)\n"},
        {"a column of an unknown type", HeaderWith("1\n  a Picture"), kPoint, kRow,
         "column 1: a picture\n  becomes a char(1)\n"},
        {"a type with a width that it does not have", HeaderWith("1\n  a Integer(4)"), kPoint,
         "5\n", "column 1: a integer(4)\n  becomes a integer\n"},
        {"Char(n) with longer values", HeaderWith("1\n  a Char(2)"), kPoint, "\"abc\"\n",
         "column 1: a char(2)\n  becomes a char(3)\n"},
        {"a value of more than 254 bytes", HeaderWith("1\n  a Char(254)"), kPoint,
         '"' + std::string(255, 'x') + "\"\n",
         "row 1: [" + std::string(255, 'x') + "]\n  becomes [" + std::string(254, 'x') + "]\n"},
        {"Y, N, 1 and 0 in a Logical column", HeaderWith("1\n  a Logical"), kPoint, "Y\n",
         "row 1: [Y]\n  becomes [T]\n"},
        {"a time without milliseconds", HeaderWith("1\n  a Time"), kPoint, "101112\n",
         "row 1: [101112]\n  becomes [101112000]\n"},
        {"rows without an object", "", kPoint, kRow + kRow, "row 2: [a]\n  becomes (missing)\n"},
        {"an object without a row", "", kPoint + kPoint, kRow, "row 2: (missing)\n  becomes []\n"},
        {"a Text without a box", "", "Text \"\"\n" + kPoint, kRow + kRow,
         "object 1: text \"\n  becomes none\n"},
        {"an object without vertices", "", "Pline 0\n", kRow,
         "object 1: pline 0\n  becomes none\n"},
        {"an object of an unknown kind", "", "Blob 1 2\n" + kPoint, kRow + "\"b\"\n",
         "object 1:  blob 1 2\n  becomes point 1 2\nobject 2: point 1 2\n  becomes (missing)\n"
         "row 1: [a]\n  becomes [b]\nrow 2: [b]\n  becomes (missing)\n"},
        {"a Roundrect with corners of 0", "", "Roundrect 1 2 3 4 0\n", kRow,
         "object 1: roundrect 1 2 3 4 0\n  becomes rect 1 2 3 4\n"},
        {"corners of a Rect in another order", "", "Rect 3 4 1 2\n", kRow,
         "object 1: rect 3 4 1 2\n  becomes rect 1 2 3 4\n"},
        {"a clause that the object does not take", "", "Line 1 2 3 4\n    Brush (2,0)\n", kRow,
         "object 1: line 1 2 3 4 | brush 2 0\n  becomes line 1 2 3 4\n"},
        {"a clause that says what holds without it", "",
         "Text \"t\"\n    1 2 3 4\n    Justify Left\n    Angle 0\n", kRow,
         "object 1: text \"t 1 2 3 4 | angle 0 | justify left\n  becomes text \"t 1 2 3 4\n"},
        {"a Symbol of a font without an angle", "",
         kPoint + "    Symbol (65,0,24,\"Weather\",17)\n", kRow,
         "object 1: point 1 2 | symbol 65 0 24 \"Weather 17\n"
         "  becomes point 1 2 | symbol 65 0 24 \"Weather 17 0\n"},
        {"a clause that occurs twice", "", kPoint + "    Symbol (34,0,9)\n    Symbol (35,0,9)\n",
         kRow,
         "object 1: point 1 2 | symbol 34 0 9 | symbol 35 0 9\n"
         "  becomes point 1 2 | symbol 35 0 9\n"},
        {"parts of one kind in a Collection", "",
         "Collection 2\nMultipoint 1\n1 2\nMultipoint 1\n3 4\n", kRow,
         "object 1: collection 2\n  becomes collection 1\n"
         "object 2: multipoint 1 1 2\n  becomes multipoint 2 1 2 3 4\n"
         "object 3: multipoint 1 3 4\n  becomes (missing)\n"},
        {"a Point or Line in a Collection", "", "Collection 2\nPoint 1 2\nLine 1 2 3 4\n", kRow,
         "object 2: point 1 2\n  becomes multipoint 1 1 2\n"
         "object 3: line 1 2 3 4\n  becomes pline 2 1 2 3 4\n"},
        {"a Collection in a Collection", "",
         "Collection 2\nCollection 1\nMultipoint 1\n1 2\nPline 2\n1 2\n3 4\n" + kPoint,
         kRow + "\"b\"\n",
         "object 2: collection 1\n  becomes multipoint 1 1 2\n"
         "object 3: multipoint 1 1 2\n  becomes pline 2 1 2 3 4\n"
         "object 4: pline 2 1 2 3 4\n  becomes point 1 2\n"
         "object 5: point 1 2\n  becomes (missing)\n"},
        {"a Collection with a row for each part", "",
         "Collection 2\nMultipoint 1\n1 2\nPline 2\n1 2\n3 4\nPoint 5 6\n", kRow + kRow + "\"b\"\n",
         "row 2: [a]\n  becomes [b]\nrow 3: [b]\n  becomes (missing)\n"},
        {"a charset that is not that of the texts",
         "Version 300\nCharset \"Neutral\"\nDelimiter \",\"\nColumns 1\n  a Char(10)\nData\n\n",
         kPoint, "\"\xD0\x96\"\n", "charset: Neutral\n  becomes UTF-8\n"}};
    return kRows;
}

class Exception : public RoundTrip, public testing::WithParamInterface<ExceptionRow> {};

TEST_P(Exception, IsAsTheTableSays) {
    const std::string header =
        GetParam().header.empty() ? HeaderWith("1\n  a Char(10)") : GetParam().header;

    ConvertTwice(header + GetParam().objects, GetParam().rows);

    EXPECT_EQ(Difference(), GetParam().difference);
}

INSTANTIATE_TEST_SUITE_P(, Exception, testing::ValuesIn(Exceptions()), [](const auto& row) {
    std::string name = row.param.exception;
    std::erase_if(name, [](char c) { return std::isalnum(static_cast<unsigned char>(c)) == 0; });
    return name;
});

// The first cells of the table of exceptions.
std::vector<std::string> DocumentedExceptions() {
    std::ifstream page(std::filesystem::path(QOLF_DOCS) / "round-trip.md");
    std::vector<std::string> cells;
    bool isInTable = false;
    for (std::string line; std::getline(page, line);) {
        if (isInTable && !line.starts_with("|")) {
            break;
        }
        if (isInTable && !line.starts_with("|---")) {
            cells.push_back(line.substr(2, line.find(" |", 2) - 2));
        }
        isInTable = isInTable || line.starts_with("| exception |");
    }
    return cells;
}

TEST(Exceptions, AreThoseOfTheTable) {
    std::vector<std::string> tested;
    for (const ExceptionRow& row : Exceptions()) {
        if (tested.empty() || tested.back() != row.exception) {
            tested.push_back(row.exception);
        }
    }

    EXPECT_EQ(tested, DocumentedExceptions());
}

}  // namespace
