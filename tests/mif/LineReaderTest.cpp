// Lines with their places: line ends of every kind, long lines, pieces of files.
#include "app/mif/LineReader.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

namespace {

using app::LineEnd;
using app::LineReader;
using app::MifLine;

// Hands out a text in portions of at most so many bytes.
class Portions : public app::ByteSource {
public:
    explicit Portions(std::string text, std::size_t portion = 7)
        : text_(std::move(text)), source_(text_), portion_(portion) {}

    std::size_t Read(char* to, std::size_t most) override {
        return source_.Read(to, std::min(most, portion_));
    }
    void SeekTo(std::uint64_t offset) override { source_.SeekTo(offset); }

private:
    std::string text_;
    app::TextSource source_;
    std::size_t portion_;
};

// "number:text@begin-end-next kind", one per line.
std::vector<std::string> Lines(const std::string& text) {
    std::vector<std::string> shown;
    Portions input(text);
    LineReader lines(input);
    for (const MifLine* line = lines.Peek(); line != nullptr; line = lines.Peek()) {
        const char* const kind = line->lineEnd == LineEnd::Lf     ? "lf"
                                 : line->lineEnd == LineEnd::CrLf ? "crlf"
                                 : line->lineEnd == LineEnd::None ? "none"
                                                                  : "cr";
        shown.push_back(std::to_string(line->number) + ":" + std::string(line->raw) + "@" +
                        std::to_string(line->begin) + "-" + std::to_string(line->end) + "-" +
                        std::to_string(line->next) + " " + kind);
        lines.Skip();
    }
    return shown;
}

struct LineRow {
    std::string name;  // letters and digits
    std::string text;
    std::vector<std::string> lines;
};
void PrintTo(const LineRow& row, std::ostream* out) {
    *out << row.name;
}

class LinesOf : public testing::TestWithParam<LineRow> {};

TEST_P(LinesOf, AText) {
    EXPECT_EQ(Lines(GetParam().text), GetParam().lines);
}

const LineRow kRows[] = {
    {"Empty", "", {}},
    {"OneLine", "ab\n", {"1:ab@0-2-3 lf"}},
    {"WithoutALastLineEnd", "ab\ncd", {"1:ab@0-2-3 lf", "2:cd@3-5-5 none"}},
    {"WithCrLf", "ab\r\ncd\r\n", {"1:ab@0-2-4 crlf", "2:cd@4-6-8 crlf"}},
    {"WithCrCrLf", "ab\r\r\n", {"1:ab@0-2-5 crlf"}},
    {"WithReturnsAlone", "ab\r\rcd\r", {"1:ab@0-2-3 cr", "2:@3-3-4 cr", "3:cd@4-6-7 cr"}},
    {"WithAReturnAmongLineFeeds", "a\nb\rc\n", {"1:a@0-1-2 lf", "2:b@2-3-4 cr", "3:c@4-5-6 lf"}},
    {"WithAReturnInQuotes", "a\n\"b\rc\"\n", {"1:a@0-1-2 lf", "2:\"b\rc\"@2-7-8 lf"}},
    {"WithAReturnBehindQuotes",
     "a\n\"b\"\rc\n",
     {"1:a@0-1-2 lf", "2:\"b\"@2-5-6 cr", "3:c@6-7-8 lf"}},
    {"WithMixedLineEnds", "a\r\nb\nc\r\n", {"1:a@0-1-3 crlf", "2:b@3-4-5 lf", "3:c@5-6-8 crlf"}},
    {"WithEmptyLines", "\n\na", {"1:@0-0-1 lf", "2:@1-1-2 lf", "3:a@2-3-3 none"}},
    {"WithAByteOrderMark",
     "\xEF\xBB\xBF"
     "ab\n",
     {"1:ab@3-5-6 lf"}},
    {"WithAReturnAtItsEnd", "a\nb\r", {"1:a@0-1-2 lf", "2:b@2-3-4 cr"}},
    {"WithAReturnInQuotesAtItsEnd", "a\n\"b\r", {"1:a@0-1-2 lf", "2:\"b\r@2-5-5 none"}},
};
INSTANTIATE_TEST_SUITE_P(, LinesOf, testing::ValuesIn(kRows),
                         [](const auto& row) { return row.param.name; });

TEST(LineReader, TellsUtf16ByItsFirstBytes) {
    const auto startOf = [](const std::string& text) {
        Portions input(text);
        return LineReader(input).Start();
    };
    EXPECT_EQ(startOf(std::string("\xFF\xFEV\0", 4)), app::FileStart::Utf16);
    EXPECT_EQ(startOf(std::string("V\0e\0", 4)), app::FileStart::Utf16);
    EXPECT_EQ(startOf("Version"), app::FileStart::Plain);
}

TEST(LineReader, GivesTheSameLinesWhateverThePortions) {
    std::string text;
    for (int i = 0; i < 100'000; ++i) {
        text += std::to_string(i) + (i % 3 == 0 ? "\r\n" : "\n");
    }
    Portions inSmall(text, 1000);
    Portions inLarge(text, 1U << 20);
    LineReader small(inSmall);
    LineReader large(inLarge);
    std::uint64_t count = 0;
    for (; small.Peek() != nullptr; ++count) {
        ASSERT_EQ(small.Peek()->raw, std::to_string(count));
        ASSERT_EQ(small.Peek()->begin, large.Peek()->begin);
        small.Skip();
        large.Skip();
    }
    EXPECT_EQ(count, 100'000U);
    EXPECT_EQ(large.Peek(), nullptr);
}

TEST(LineReader, LooksAheadAcrossPieces) {
    std::string text;
    for (int i = 0; i < 64; ++i) {
        text += std::string(20'000, static_cast<char>('a' + i % 26)) + "\n";
    }
    Portions input(text, 1U << 20);
    LineReader lines(input);

    ASSERT_NE(lines.Peek(63), nullptr);
    EXPECT_EQ(lines.Peek(0)->raw, std::string(20'000, 'a'));
    EXPECT_EQ(lines.Peek(63)->raw.front(), static_cast<char>('a' + 63 % 26));
    EXPECT_EQ(lines.Peek(64), nullptr);
}

TEST(LineReader, KeepsTheBeginningOfALongLine) {
    const std::size_t length = 3 * LineReader::kMaxLineBytes;
    Portions input("x" + std::string(length, 'a') + "\nb\n", 1U << 20);
    LineReader lines(input);

    const MifLine line = *lines.Peek();
    EXPECT_TRUE(line.isCut);
    EXPECT_EQ(line.raw.size(), LineReader::kMaxLineBytes);
    EXPECT_EQ(line.raw.substr(0, 2), "xa");
    EXPECT_EQ(line.end, length + 1);
    lines.Skip();
    ASSERT_NE(lines.Peek(), nullptr);
    EXPECT_EQ(lines.Peek()->raw, "b");
    EXPECT_EQ(lines.Peek()->begin, length + 2);
    EXPECT_EQ(lines.Peek()->number, 2U);
}

TEST(LineReader, KeepsTheLinesAroundALongOne) {
    const std::size_t length = 20 * LineReader::kMaxLineBytes;
    Portions input("first\n" + std::string(length, 'a') + "\nlast\n", 1U << 20);
    LineReader lines(input);

    ASSERT_NE(lines.Peek(2), nullptr);
    EXPECT_EQ(lines.Peek(0)->raw, "first");
    EXPECT_EQ(lines.Peek(1)->raw.front(), 'a');
    EXPECT_EQ(lines.Peek(2)->raw, "last");
}

TEST(LineReader, ShowsEachLineOnce) {
    std::vector<std::uint64_t> seen;
    Portions input("a\nb\nc\n");
    LineReader lines(input, [&](const MifLine& line) { seen.push_back(line.number); });

    static_cast<void>(lines.Peek(1));
    EXPECT_EQ(seen, (std::vector<std::uint64_t>{1, 2}));
    lines.Skip();
    static_cast<void>(lines.Peek(0));
    EXPECT_EQ(seen, (std::vector<std::uint64_t>{1, 2}));
}

TEST(LineReader, IsQuickWithManyReturnsBeforeOneLineFeed) {
    std::string text = "a\n";
    for (int i = 0; i < 200'000; ++i) {
        text += "b\r";
    }
    Portions input(text + "\n", 1U << 20);
    LineReader lines(input);
    std::uint64_t count = 0;
    for (; lines.Peek() != nullptr; ++count) {
        lines.Skip();
    }
    EXPECT_EQ(count, 200'001U);
}

TEST(LineReader, ReturnsToAPlaceThatIsInMemory) {
    Portions input("a\nb\nc\n");
    LineReader lines(input);
    lines.Skip();
    const LineReader::Mark mark = lines.Here();
    lines.Skip();

    lines.ReturnTo(mark);

    ASSERT_NE(lines.Peek(), nullptr);
    EXPECT_EQ(lines.Peek()->raw, "b");
    EXPECT_EQ(lines.Peek()->number, 2U);
}

TEST(LineReader, ReturnsToAPlaceThatIsNoLongerInMemory) {
    Portions input("first\n" + std::string(3U << 20, '\n'), 1U << 20);
    LineReader lines(input);
    const LineReader::Mark mark = lines.Here();
    while (lines.Peek() != nullptr) {
        lines.Skip();
    }

    lines.ReturnTo(mark);

    ASSERT_NE(lines.Peek(), nullptr);
    EXPECT_EQ(lines.Peek()->raw, "first");
    EXPECT_EQ(lines.Peek()->number, 1U);
}

TEST(LineReader, HandsOutItsBytesFromTheNextLineOn) {
    Portions input("a\nb\nc\nd\n");
    LineReader lines(input);
    lines.Skip();
    static_cast<void>(lines.Peek(1));

    EXPECT_EQ(lines.Buffered(), "b\nc\nd\n");
    lines.TakeBuffered(4, 2);

    ASSERT_NE(lines.Peek(), nullptr);
    EXPECT_EQ(lines.Peek()->raw, "d");
    EXPECT_EQ(lines.Peek()->number, 4U);
    EXPECT_EQ(lines.Peek()->begin, 6U);
}

TEST(LineReader, BuffersALongLineAsAWhole) {
    const std::string text(1U << 20, 'x');
    Portions input(text, 1U << 20);
    LineReader lines(input);

    while (lines.BufferMore()) {
    }

    EXPECT_EQ(lines.Buffered(), text);
}

}  // namespace
