#include "app/mif/LineCursor.h"

#include "app/mif/NumberLines.h"

#include <cstring>

namespace app {

bool LineCursor::ReadMore() {
    lines_.TakeBuffered(pos_, linesTaken_);
    begin_ = Here();
    pos_ = 0;
    linesTaken_ = 0;
    const bool isMore = lines_.BufferMore();
    view_ = lines_.Buffered(atTheEnd_);
    return isMore;
}

bool LineCursor::Line(std::string_view& line) {
    for (;;) {
        const char* const begin = view_.data() + pos_;
        const std::size_t left = view_.size() - pos_;
        const void* const feed = left == 0 ? nullptr : std::memchr(begin, '\n', left);
        if (feed != nullptr) {
            const auto length = static_cast<std::size_t>(static_cast<const char*>(feed) - begin);
            line = {begin, length};
            lineBytes_ = length + 1;
            return true;
        }
        if (left > LineReader::kMaxLineBytes || !ReadMore()) {
            return false;
        }
    }
}

void LineCursor::Next() {
    Skip(lineBytes_, 1);
}

void LineCursor::Skip(std::size_t bytes, std::uint64_t lines) {
    pos_ += bytes;
    linesTaken_ += lines;
}

bool LineCursor::StartsWith(std::string_view bytes) {
    return view_.substr(pos_).starts_with(bytes);
}

std::uint64_t LineCursor::SkipNumbers(std::uint64_t most, unsigned words,
                                      std::vector<shr::Vec2d>* points) {
    std::uint64_t taken = 0;
    while (taken < most) {
        const NumberLineRun run = CountNumberLines(view_.substr(pos_), most - taken, words);
        if (points != nullptr) {
            ReadNumberLines(view_.substr(pos_, run.bytes), *points);
        }
        Skip(run.bytes, run.lines);
        taken += run.lines;
        // The run ends at a line of another kind, or where the bytes do.
        std::string_view line;
        if (taken == most || !Line(line) || !HoldsNumbers(line, words)) {
            break;
        }
    }
    return taken;
}

void LineCursor::LeaveAt(const LineReader::Mark& mark) {
    lines_.TakeBuffered(pos_, linesTaken_);
    pos_ = 0;
    linesTaken_ = 0;
    view_ = {};
    lines_.ReturnTo(mark);
}

}  // namespace app
