// Walks over the lines of a file where they lie in memory. Faster than LineReader::Peek, for lines
// that turn out to be plain; the place goes back to the reader for all others.
#pragma once

#include "app/mif/LineReader.h"
#include "host/shr/Geometry.h"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace app {

class LineCursor {
public:
    // Begins at the reader's next line. The reader must not be used until Leave.
    LineCursor(LineReader& lines, LineReader::AtTheEnd atTheEnd)
        : lines_(lines), atTheEnd_(atTheEnd), view_(lines.Buffered(atTheEnd)) {}

    // The line at the cursor without its line feed, but with all that comes before. False at the
    // end of the file, on a last line without a line feed, and on one that is too long. The bytes
    // stay valid as those of LineReader::Peek.
    bool Line(std::string_view& line);

    // Whether the cursor is behind the last byte. Call it when Line was false.
    bool IsAtEnd() const { return pos_ == view_.size(); }

    // Moves behind the line that Line gave last.
    void Next();

    // Moves behind some whole lines that lie at the cursor.
    void Skip(std::size_t bytes, std::uint64_t lines);

    // Whether these bytes, which end with a line feed, lie at the cursor.
    bool StartsWith(std::string_view bytes);

    // Moves behind lines of `words` plain numbers each, at most so many, and returns how many there
    // were. Appends their pairs of numbers to `points` unless it is null.
    std::uint64_t SkipNumbers(std::uint64_t most, unsigned words, std::vector<shr::Vec2d>* points);

    std::uint64_t Offset() const { return begin_.offset + pos_; }
    std::uint64_t LineNumber() const { return begin_.linesBefore + linesTaken_ + 1; }
    LineReader::Mark Here() const { return {Offset(), LineNumber() - 1}; }

    // Moves the reader to the cursor's place, or to one that the cursor has left.
    void Leave() { LeaveAt(Here()); }
    void LeaveAt(const LineReader::Mark& mark);

private:
    bool ReadMore();

    LineReader& lines_;
    LineReader::AtTheEnd atTheEnd_;
    std::string_view view_;
    LineReader::Mark begin_ = lines_.Here();  // of view_
    std::size_t pos_ = 0;
    std::uint64_t linesTaken_ = 0;  // of view_
    std::size_t lineBytes_ = 0;     // of the line that Line gave last, with its line feed
};

// Whether a line of LineCursor holds a carriage return that is no part of its end, and so may be
// several lines.
inline bool HasLoneReturn(std::string_view line) {
    const std::size_t first = line.find('\r');
    return first != std::string_view::npos && first + 1 != line.size();
}

}  // namespace app
