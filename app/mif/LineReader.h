// Reads a .mif or .mid file line by line and keeps the place of everything.
//
// A line end is LF, CR LF (also with several CR), or a carriage return alone where it was meant to
// be one: not inside of quotes, unless all lines of the file end so. Memory stays bounded: of a
// line the first kMaxLineBytes are kept. Interprets nothing.
#pragma once

#include "app/mif/ByteSource.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace app {

enum class LineEnd { None, Lf, CrLf, LoneCr };

// The line end to write into a file whose lines end so: lone carriage returns become line feeds.
const char* LineEndText(LineEnd lineEnd);

struct MifLine {
    std::uint64_t number = 0;  // 1-based
    std::uint64_t begin = 0;   // offset of its first byte
    std::uint64_t end = 0;     // offset of its line end
    std::uint64_t next = 0;    // offset behind its line end
    LineEnd lineEnd = LineEnd::None;
    bool isCut = false;    // longer than kMaxLineBytes
    std::string_view raw;  // the bytes without the line end, or their beginning

    // Whether the line has nothing but blanks.
    bool IsBlank() const;
};

enum class FileStart { Plain, ByteOrderMark, Utf16 };

class LineReader {
public:
    static constexpr std::size_t kMaxLineBytes = std::size_t{1} << 20;
    using OnLine = std::function<void(const MifLine&)>;

    // The input must outlive the reader. onLine sees each line once, when it is first read by Peek;
    // it may be empty.
    explicit LineReader(ByteSource& input, OnLine onLine = {});

    // How the file begins. A byte-order mark is not part of the first line.
    FileStart Start() const { return start_; }

    // The line that is `ahead` lines away from the next one; null behind the last. A line and its
    // bytes stay valid until another 64 KiB of the file have been taken away.
    const MifLine* Peek(std::size_t ahead = 0);

    // Takes the next line away; nothing happens at the end.
    void Skip();

    // A place in the file, before a line.
    struct Mark {
        std::uint64_t offset = 0;
        std::uint64_t linesBefore = 0;
    };
    Mark Here() const;

    // Goes back to a place that was left before. Peeked lines are forgotten.
    void ReturnTo(const Mark& mark);

    // The bytes from the next line on that are in memory, without looking for line ends. Peeked
    // lines are forgotten. They end with the file, or anywhere. At the end of a file that has no
    // last line end, ClosesLastLine adds one.
    enum class AtTheEnd { StaysAsItIs, ClosesLastLine };
    std::string_view Buffered(AtTheEnd atTheEnd = AtTheEnd::StaysAsItIs);

    // Makes Buffered() longer. False when the file has no more bytes.
    bool BufferMore();

    // Takes whole lines away that Buffered() begins with.
    void TakeBuffered(std::size_t bytes, std::uint64_t lines);

private:
    // A piece of the file in memory. Lines do not cross pieces.
    struct Piece {
        std::unique_ptr<char[]> bytes;
        std::size_t size = 0;
        std::size_t used = 0;
        std::uint64_t endOffset = 0;  // of the line that begins behind its last whole one
    };

    void DetectStart();
    void DetectLoneReturns();
    bool ReadLine(MifLine& line);
    std::size_t FindFeed();
    bool FindLineEnd(MifLine& line);
    void TakeLine(MifLine& line, std::size_t end, std::size_t next, LineEnd lineEnd);
    void TakeLongLine(MifLine& line);
    void ReadMore();
    void FillPiece();
    std::uint64_t FirstInUse() const;
    std::string_view Rest() const { return {piece_.bytes.get() + pos_, piece_.used - pos_}; }

    ByteSource& input_;
    OnLine onLine_;
    Piece piece_;                   // the one that is being cut
    std::deque<Piece> kept_;        // earlier ones that lines in use may lie in
    std::size_t pos_ = 0;           // of the next line, in piece_
    std::size_t searched_ = 0;      // up to where piece_ was searched for the next LF
    bool isAtEnd_ = false;          // the input has no more bytes
    std::uint64_t offset_ = 0;      // of the next line, in the file
    std::uint64_t lineNumber_ = 0;  // of the last line that was read
    std::uint64_t seen_ = 0;        // number of the last line that onLine_ saw
    FileStart start_ = FileStart::Plain;
    bool onlyReturns_ = false;  // the first line end is a lone carriage return
    std::deque<MifLine> ahead_;
};

}  // namespace app
