// Random bytes never crash the reader: headers and rows with seeded changes, from both sources.
#include "tests/reader/Sources.h"
#include "tests/support/MutatedText.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <random>
#include <string>

namespace {

using readertest::Source;

constexpr std::string_view kRows = "1;\"Main St; North\";  5\r\n;;\n\"\"\"a;b\n2;x";

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
        const std::wstring path =
            folder.Write("changed.mif", support::MutatedText(support::kHeaderToMutate, random));
        static_cast<void>(folder.Write("changed.mid", support::MutatedText(kRows, random)));
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
        reader.OpenMemory(
            readertest::BlockOf(support::MutatedText(support::kHeaderToMutate, random)));
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
        const std::string text = support::MutatedText(support::kHeaderToMutate, random);
        readertest::OpenText stream(Source::Stream, text);
        readertest::OpenText memory(Source::Memory, text);
        differences += stream.Tokens() != memory.Tokens() ? 1 : 0;
    }

    EXPECT_EQ(differences, 0);
}

}  // namespace
