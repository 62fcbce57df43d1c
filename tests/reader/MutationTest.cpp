// Random bytes never crash the reader: headers and rows with seeded changes, from both sources.
#include "tests/reader/Sources.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <random>
#include <string>

namespace {

using readertest::Source;

constexpr std::string_view kHeader =
    "Version 650\r\nCharset \"WindowsLatin1\"\nDelimiter \";\"\nUnique 1\nIndex 2\n"
    "CoordSys Earth Projection 7, 9999, 10, 1, 2, 3, 4, 5, 6, 7, 8, \"m\", 9, 0, 5, 1, 2, 3\n"
    "CoordSys Earth\n  Projection 3, 104, \"survey ft\", 1, 2, 3, 4, 5, 6\n"
    "CoordSys Nonearth Units \"m\" Bounds (0, 0) (1, 1)\nBounds (-1.5e3,2) (3,4)\n"
    "Transform 1 1 0 0\nColumns 3\n  ID Integer\n  NAME Char(20)\n  \"A\" Decimal(8,2)\n"
    "Data\n\nPline 2\n1 2\n3 4\n    Pen (1,2,0)\n";
constexpr std::string_view kRows = "1;\"Main St; North\";  5\r\n;;\n\"\"\"a;b\n2;x";

// A few changes of the text: bytes replaced, dropped, repeated, keywords put somewhere, an end.
std::string Mutate(std::string_view original, std::mt19937& random) {
    static constexpr std::string_view kPieces[] = {"\"",
                                                   "\n",
                                                   "\r",
                                                   ",",
                                                   "(",
                                                   ")",
                                                   "\t",
                                                   "Columns 2147483647\n",
                                                   "Version ",
                                                   "Data\n",
                                                   "CoordSys Earth Projection 1, 104\n",
                                                   "-2147483648",
                                                   "1e999",
                                                   "Delimiter \"\"\n"};
    std::string text(original);
    for (unsigned change = random() % 8; change-- > 0 && !text.empty();) {
        const std::size_t place = random() % text.size();
        switch (random() % 5) {
        case 0:
            text[place] = static_cast<char>(random());
            break;
        case 1:
            text.erase(place, random() % 20);
            break;
        case 2:
            text.insert(place, text.substr(random() % text.size(), random() % 40));
            break;
        case 3:
            text.insert(place, kPieces[random() % std::size(kPieces)]);
            break;
        default:
            text.resize(random() % 4 == 0 ? place : text.size());
        }
    }
    return text;
}

std::string RandomBytes(std::mt19937& random) {
    std::string text(random() % 400, '\0');
    for (char& character : text) {
        character = static_cast<char>(random());
    }
    return text;
}

std::string RandomText(std::string_view original, std::mt19937& random) {
    return random() % 10 == 0 ? RandomBytes(random) : Mutate(original, random);
}

// Reads what the header left, in a changing mix of operations, and some rows. Returns how many
// steps it took; a reader that stops moving would never get to the end.
int ReadToTheEnd(mif::CMifReader& reader, std::mt19937& random) {
    int steps = 0;
    std::string field;
    while (!reader.IsEOF() && steps < 100'000) {
        switch (random() % 4) {
        case 0:
            reader.NextToken();
            break;
        case 1:
            reader.NextLine();
            break;
        case 2:
            reader.ReadChar(nullptr);
            break;
        default:
            reader.SkipComma();
            static_cast<void>(reader.TokenAsDouble());
            static_cast<void>(reader.TokenAsInt());
        }
        ++steps;
    }
    while (!reader.IsMidEOF() && steps < 100'000) {
        reader.ReadMidRow();
        for (const std::size_t index : {0U, 2U, 1U, 5U}) {
            static_cast<void>(reader.GetMidField(index, field));
        }
        ++steps;
    }
    return steps;
}

TEST(ChangedFiles, AreReadToTheirEnd) {
    constexpr int kRuns = 2000;
    std::mt19937 random(4711);
    const support::TemporaryFolder folder;
    int longest = 0;

    for (int run = 0; run < kRuns; ++run) {
        mif::CMifReader reader;
        std::wstring warnings;
        const std::wstring path = folder.Write("changed.mif", RandomText(kHeader, random));
        static_cast<void>(folder.Write("changed.mid", RandomText(kRows, random)));
        static_cast<void>(reader.Open(path, warnings));
        longest = std::max(longest, ReadToTheEnd(reader, random));
    }

    EXPECT_LT(longest, 100'000);
}

TEST(ChangedBlocks, AreReadToTheirEnd) {
    constexpr int kRuns = 20'000;
    std::mt19937 random(4712);
    int longest = 0;

    for (int run = 0; run < kRuns; ++run) {
        mif::CMifReader reader;
        std::wstring message;
        reader.OpenMemory(readertest::BlockOf(RandomText(kHeader, random)));
        static_cast<void>(reader.ReadHeader(message));
        longest = std::max(longest, ReadToTheEnd(reader, random));
    }

    EXPECT_LT(longest, 100'000);
}

TEST(ChangedBlocks, GiveTheSameTokensAsAStream) {
    constexpr int kRuns = 100;
    std::mt19937 random(4713);
    int differences = 0;

    for (int run = 0; run < kRuns; ++run) {
        const std::string text = RandomText(kHeader, random);
        readertest::OpenText stream(Source::Stream, text);
        readertest::OpenText memory(Source::Memory, text);
        differences += stream.Tokens() != memory.Tokens() ? 1 : 0;
    }

    EXPECT_EQ(differences, 0);
}

}  // namespace
