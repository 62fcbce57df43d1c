// Reads a .mif or .mid file line by line and keeps the place of everything.
//
// Cuts lines into the tokens that the module's reader would see, but knows the offset of each and
// takes a lone carriage return for the line end that it was meant to be. Memory stays bounded: of
// a line, the first kMaxLineBytes are kept. Interprets nothing.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <istream>
#include <string>
#include <string_view>
#include <vector>

namespace app::check {

struct Token {
    std::string text;         // without quotes
    std::uint64_t begin = 0;  // offset of its first byte, the opening quote included
    std::uint64_t end = 0;    // offset behind its last byte, the closing quote included
    bool isQuoted = false;
    bool isClosed = true;  // false for a quoted text that the line's end cuts off
};

enum class LineEnd { None, Lf, CrLf, LoneCr };

// The line end to write into a file whose lines end so: lone carriage returns become line feeds.
const char* LineEndText(LineEnd lineEnd);

struct Line {
    std::uint64_t number = 0;  // 1-based
    std::uint64_t begin = 0;   // offset of its first byte
    std::uint64_t end = 0;     // offset of its line end
    std::uint64_t next = 0;    // offset behind its line end
    LineEnd lineEnd = LineEnd::None;
    bool isCut = false;         // longer than kMaxLineBytes
    std::string raw;            // the bytes without the line end, or their beginning
    std::vector<Token> tokens;  // filled for .mif lines; at most kMaxTokens

    bool IsBlank() const { return tokens.empty(); }
};

enum class FileStart { Plain, ByteOrderMark, Utf16 };

// Cuts raw, which begins at the offset begin, into tokens.
std::vector<Token> TokensOf(std::string_view raw, std::uint64_t begin);

class LineReader {
public:
    static constexpr std::size_t kMaxLineBytes = std::size_t{1} << 20;
    static constexpr std::size_t kMaxTokens = 256;
    enum class Cut { IntoTokens, NotAtAll };
    using OnLine = std::function<void(const Line&)>;

    // input must outlive the reader. onLine sees each line once, when it is read ahead.
    LineReader(std::istream& input, Cut cut, OnLine onLine);

    FileStart Start() const { return start_; }

    // The line that is ahead lines away from the next one; null behind the last. The pointer is
    // good until Skip() takes that line away.
    const Line* Peek(std::size_t ahead = 0);
    // Takes the next line away; nothing happens at the end.
    void Skip();

private:
    static constexpr int kEnd = -1;

    int PeekByte();
    void NextByte();
    void DetectStart();
    void DetectLoneReturns();
    bool ReadLine(Line& line);
    bool ReadLineEnd(Line& line, bool isInQuotes);

    std::istream& input_;
    Cut cut_;
    OnLine onLine_;
    std::vector<char> buffer_;
    std::size_t bufferUsed_ = 0;
    std::size_t bufferPos_ = 0;
    std::uint64_t offset_ = 0;  // of the next byte
    std::uint64_t lineNumber_ = 0;
    FileStart start_ = FileStart::Plain;
    bool onlyReturns_ = false;  // the first line end is a lone carriage return
    std::deque<Line> ahead_;
};

}  // namespace app::check
