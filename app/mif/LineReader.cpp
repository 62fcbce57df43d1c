#include "app/mif/LineReader.h"

#include "app/mif/ByteClasses.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace app {
namespace {

constexpr std::size_t kPieceBytes = std::size_t{1} << 18;

// With a byte-order mark, or with every other byte of the first ones zero.
bool IsUtf16(std::string_view begin) {
    return begin.starts_with("\xFF\xFE") || begin.starts_with("\xFE\xFF") ||
           (begin.size() >= 4 && (begin[0] == '\0') != (begin[1] == '\0') &&
            (begin[0] == '\0') == (begin[2] == '\0') && (begin[1] == '\0') == (begin[3] == '\0'));
}

}  // namespace

const char* LineEndText(LineEnd lineEnd) {
    return lineEnd == LineEnd::CrLf ? "\r\n" : "\n";
}

bool MifLine::IsBlank() const {
    return std::ranges::all_of(raw, [](char c) { return IsByte(c, kBlankByte) || c == '\r'; });
}

LineReader::LineReader(ByteSource& input, OnLine onLine)
    : input_(input), onLine_(std::move(onLine)) {
    ReadMore();
    DetectStart();
    DetectLoneReturns();
}

void LineReader::DetectStart() {
    if (Rest().starts_with("\xEF\xBB\xBF")) {
        start_ = FileStart::ByteOrderMark;
        pos_ = 3;
        offset_ = 3;
    } else if (IsUtf16(Rest())) {
        start_ = FileStart::Utf16;
    }
}

// Looks at the first piece only: a file that has no line end in it is no .mif file.
void LineReader::DetectLoneReturns() {
    const std::string_view begin = Rest();
    const std::size_t first = begin.find_first_of("\r\n");
    if (first == std::string_view::npos || begin[first] == '\n') {
        return;
    }
    const std::size_t behind = begin.find_first_not_of('\r', first);
    onlyReturns_ = behind == std::string_view::npos || begin[behind] != '\n';
}

// Moves what is left to the front of a new piece and fills that up.
void LineReader::ReadMore() {
    const std::string_view rest = Rest();
    Piece next;
    if (kept_.size() > 1 && kept_.front().endOffset <= FirstInUse()) {
        next = std::move(kept_.front());
        kept_.pop_front();
    }
    if (next.size < 2 * rest.size() || next.size == 0) {
        next.size = std::max(kPieceBytes, 2 * rest.size());
        next.bytes = std::make_unique_for_overwrite<char[]>(next.size + 1);
    }
    std::copy(rest.begin(), rest.end(), next.bytes.get());
    next.used = rest.size();
    searched_ -= std::min(searched_, pos_);
    if (piece_.size > 0) {
        piece_.endOffset = offset_;
        kept_.push_back(std::move(piece_));
    }
    piece_ = std::move(next);
    pos_ = 0;
    FillPiece();
}

void LineReader::FillPiece() {
    while (piece_.used < piece_.size && !isAtEnd_) {
        const std::size_t got =
            input_.Read(piece_.bytes.get() + piece_.used, piece_.size - piece_.used);
        isAtEnd_ = got == 0;
        piece_.used += got;
    }
}

std::uint64_t LineReader::FirstInUse() const {
    return ahead_.empty() ? offset_ : ahead_.front().begin;
}

// The place of the first LF from pos_ on; behind the last byte when there is none.
std::size_t LineReader::FindFeed() {
    const bool isKnown =
        searched_ > pos_ && searched_ < piece_.used && piece_.bytes[searched_] == '\n';
    if (!isKnown) {
        const std::size_t from = std::max(pos_, searched_);
        const void* const found = std::memchr(piece_.bytes.get() + from, '\n', piece_.used - from);
        searched_ =
            found == nullptr
                ? piece_.used
                : static_cast<std::size_t>(static_cast<const char*>(found) - piece_.bytes.get());
    }
    return searched_;
}

// Takes the next line away when its end is in the piece.
bool LineReader::FindLineEnd(MifLine& line) {
    const std::string_view all(piece_.bytes.get(), piece_.used);
    const std::size_t feed = FindFeed();
    const bool hasFeed = feed < all.size();
    bool isInQuotes = false;
    std::size_t from = pos_;
    for (;;) {
        const std::size_t first = all.substr(0, feed).find('\r', from);
        if (first == std::string_view::npos) {
            break;
        }
        const std::size_t behind =
            onlyReturns_ ? first + 1 : std::min(all.find_first_not_of('\r', first), all.size());
        if (behind == all.size() && !isAtEnd_) {
            return false;  // what this is depends on the next byte
        }
        if (behind == feed && hasFeed) {
            TakeLine(line, first, feed + 1, LineEnd::CrLf);
            return true;
        }
        isInQuotes =
            isInQuotes != (std::count(all.begin() + static_cast<std::ptrdiff_t>(from),
                                      all.begin() + static_cast<std::ptrdiff_t>(first), '"') %
                               2 !=
                           0);
        if (onlyReturns_ || !isInQuotes) {
            TakeLine(line, first, behind, LineEnd::LoneCr);
            return true;
        }
        from = behind;
    }
    if (hasFeed) {
        TakeLine(line, feed, feed + 1, LineEnd::Lf);
    }
    return hasFeed;
}

void LineReader::TakeLine(MifLine& line, std::size_t end, std::size_t next, LineEnd lineEnd) {
    if (!line.isCut) {
        line.begin = offset_;
        line.raw = {piece_.bytes.get() + pos_, end - pos_};
    }
    line.end = offset_ + (end - pos_);
    line.next = offset_ + (next - pos_);
    line.lineEnd = lineEnd;
    offset_ = line.next;
    pos_ = next;
}

bool LineReader::ReadLine(MifLine& line) {
    while (!FindLineEnd(line)) {
        if (isAtEnd_) {
            if (Rest().empty()) {
                return false;
            }
            TakeLine(line, piece_.used, piece_.used, LineEnd::None);
            break;
        }
        if (Rest().size() >= kMaxLineBytes) {
            TakeLongLine(line);
            break;
        }
        ReadMore();
    }
    if (line.raw.size() > kMaxLineBytes) {
        line.raw = line.raw.substr(0, kMaxLineBytes);
        line.isCut = true;
    }
    line.number = ++lineNumber_;
    return true;
}

// Keeps the beginning of the line in its piece, and reads the rest into one other piece again and
// again.
void LineReader::TakeLongLine(MifLine& line) {
    TakeLine(line, piece_.used, piece_.used, LineEnd::None);
    line.isCut = true;
    ReadMore();
    while (!FindLineEnd(line)) {
        TakeLine(line, piece_.used, piece_.used, LineEnd::None);
        if (isAtEnd_) {
            break;
        }
        piece_.used = 0;
        pos_ = 0;
        searched_ = 0;
        FillPiece();
    }
    kept_.back().endOffset = line.next;
}

const MifLine* LineReader::Peek(std::size_t ahead) {
    while (ahead_.size() <= ahead) {
        MifLine line;
        if (!ReadLine(line)) {
            return nullptr;
        }
        ahead_.push_back(line);
        if (onLine_ && ahead_.back().number > seen_) {
            seen_ = ahead_.back().number;
            onLine_(ahead_.back());
        }
    }
    return &ahead_[ahead];
}

void LineReader::Skip() {
    if (Peek() != nullptr) {
        ahead_.pop_front();
    }
}

LineReader::Mark LineReader::Here() const {
    return ahead_.empty() ? Mark{offset_, lineNumber_}
                          : Mark{ahead_.front().begin, ahead_.front().number - 1};
}

void LineReader::ReturnTo(const Mark& mark) {
    ahead_.clear();
    const std::uint64_t pieceBegin = offset_ - pos_;
    if (mark.offset >= pieceBegin && mark.offset <= pieceBegin + piece_.used) {
        pos_ = static_cast<std::size_t>(mark.offset - pieceBegin);
        searched_ = pos_;
    } else {
        input_.SeekTo(mark.offset);
        isAtEnd_ = false;
        kept_.clear();
        piece_.used = 0;
        pos_ = 0;
        searched_ = 0;
        FillPiece();
    }
    offset_ = mark.offset;
    lineNumber_ = mark.linesBefore;
}

std::string_view LineReader::Buffered(AtTheEnd atTheEnd) {
    if (!ahead_.empty()) {
        ReturnTo(Here());
    }
    const std::string_view rest = Rest();
    if (atTheEnd == AtTheEnd::StaysAsItIs || !isAtEnd_ || rest.empty() || rest.back() == '\n') {
        return rest;
    }
    piece_.bytes[piece_.used] = '\n';  // every piece has a byte to spare
    return {rest.data(), rest.size() + 1};
}

bool LineReader::BufferMore() {
    const std::size_t before = Rest().size();
    if (!isAtEnd_) {
        ReadMore();
    }
    return Rest().size() > before;
}

void LineReader::TakeBuffered(std::size_t bytes, std::uint64_t lines) {
    bytes = std::min(bytes, Rest().size());
    pos_ += bytes;
    offset_ += bytes;
    lineNumber_ += lines;
}

}  // namespace app
