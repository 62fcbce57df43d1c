#include "app/mif/LineReader.h"

#include <utility>

namespace app::check {
namespace {

constexpr std::size_t kBufferBytes = std::size_t{1} << 16;

// With a byte-order mark, or with every other byte of the first ones zero.
bool IsUtf16(std::string_view begin) {
    return begin.starts_with("\xFF\xFE") || begin.starts_with("\xFE\xFF") ||
           (begin.size() >= 4 && (begin[0] == '\0') != (begin[1] == '\0') &&
            (begin[0] == '\0') == (begin[2] == '\0') && (begin[1] == '\0') == (begin[3] == '\0'));
}

bool EndsWord(char c) {
    return c == ' ' || c == '\t' || c == '"' || c == '(' || c == ')' || c == ',' || c == '\r';
}

// pos stands on the opening quote. A carriage return inside vanishes, as it does in the reader.
Token QuotedToken(std::string_view raw, std::size_t& pos, std::uint64_t begin) {
    Token token;
    token.isQuoted = true;
    token.isClosed = false;
    token.begin = begin + pos;
    for (++pos; pos < raw.size(); ++pos) {
        if (raw[pos] == '"') {
            token.isClosed = true;
            ++pos;
            break;
        }
        if (raw[pos] != '\r') {
            token.text += raw[pos];
        }
    }
    token.end = begin + pos;
    return token;
}

}  // namespace

const char* LineEndText(LineEnd lineEnd) {
    return lineEnd == LineEnd::CrLf ? "\r\n" : "\n";
}

std::vector<Token> TokensOf(std::string_view raw, std::uint64_t begin) {
    std::vector<Token> tokens;
    std::size_t pos = 0;
    while (pos < raw.size() && tokens.size() < LineReader::kMaxTokens) {
        const char c = raw[pos];
        if (c == ' ' || c == '\t' || c == '\r') {
            ++pos;
            continue;
        }
        if (c == '"') {
            tokens.push_back(QuotedToken(raw, pos, begin));
            continue;
        }
        Token token;
        token.begin = begin + pos;
        if (c == '(' || c == ')' || c == ',') {
            token.text = c;
            ++pos;
        } else {
            const std::size_t first = pos;
            while (pos < raw.size() && !EndsWord(raw[pos])) {
                ++pos;
            }
            token.text = raw.substr(first, pos - first);
        }
        token.end = begin + pos;
        tokens.push_back(std::move(token));
    }
    return tokens;
}

LineReader::LineReader(std::istream& input, Cut cut, OnLine onLine)
    : input_(input), cut_(cut), onLine_(std::move(onLine)), buffer_(kBufferBytes) {
    static_cast<void>(PeekByte());
    DetectStart();
    DetectLoneReturns();
}

int LineReader::PeekByte() {
    if (bufferPos_ == bufferUsed_) {
        input_.read(buffer_.data(), static_cast<std::streamsize>(buffer_.size()));
        bufferUsed_ = static_cast<std::size_t>(input_.gcount());
        bufferPos_ = 0;
        if (bufferUsed_ == 0) {
            return kEnd;
        }
    }
    return static_cast<unsigned char>(buffer_[bufferPos_]);
}

void LineReader::NextByte() {
    ++bufferPos_;
    ++offset_;
}

void LineReader::DetectStart() {
    const std::string_view begin(buffer_.data(), bufferUsed_);
    if (begin.starts_with("\xEF\xBB\xBF")) {
        start_ = FileStart::ByteOrderMark;
        bufferPos_ = 3;
        offset_ = 3;
    } else if (IsUtf16(begin)) {
        start_ = FileStart::Utf16;
    }
}

// Looks at the first block only: a file that has no line end in 64 KiB is no .mif file.
void LineReader::DetectLoneReturns() {
    const std::string_view begin(buffer_.data(), bufferUsed_);
    const std::size_t first = begin.find_first_of("\r\n");
    if (first == std::string_view::npos || begin[first] == '\n') {
        return;
    }
    const std::size_t behind = begin.find_first_not_of('\r', first);
    onlyReturns_ = behind == std::string_view::npos || begin[behind] != '\n';
}

// The next byte is a line feed or a carriage return. False for a carriage return that is a part
// of a quoted text and of no line end; it is consumed.
bool LineReader::ReadLineEnd(Line& line, bool isInQuotes) {
    line.end = offset_;
    if (PeekByte() == '\n') {
        NextByte();
        line.lineEnd = LineEnd::Lf;
        line.next = offset_;
        return true;
    }
    NextByte();
    // A text that went through two conversions ends its lines with CR CR LF.
    while (!onlyReturns_ && PeekByte() == '\r') {
        NextByte();
    }
    if (PeekByte() == '\n') {
        NextByte();
        line.lineEnd = LineEnd::CrLf;
        line.next = offset_;
        return true;
    }
    line.lineEnd = LineEnd::LoneCr;
    line.next = offset_;
    return onlyReturns_ || !isInQuotes;
}

bool LineReader::ReadLine(Line& line) {
    if (PeekByte() == kEnd) {
        return false;
    }
    line.number = ++lineNumber_;
    line.begin = offset_;
    bool isInQuotes = false;
    for (;;) {
        const int byte = PeekByte();
        if (byte == kEnd) {
            line.end = offset_;
            line.next = offset_;
            line.lineEnd = LineEnd::None;
            break;
        }
        if (byte == '\n' || byte == '\r') {
            const std::uint64_t before = offset_;
            if (ReadLineEnd(line, isInQuotes)) {
                break;
            }
            line.raw.append(static_cast<std::size_t>(offset_ - before), '\r');
            continue;
        }
        isInQuotes = isInQuotes != (byte == '"');
        if (line.raw.size() < kMaxLineBytes) {
            line.raw += static_cast<char>(byte);
        } else {
            line.isCut = true;
        }
        NextByte();
    }
    if (cut_ == Cut::IntoTokens) {
        line.tokens = TokensOf(line.raw, line.begin);
    }
    return true;
}

const Line* LineReader::Peek(std::size_t ahead) {
    while (ahead_.size() <= ahead) {
        Line line;
        if (!ReadLine(line)) {
            return nullptr;
        }
        ahead_.push_back(std::move(line));
        if (onLine_) {
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

}  // namespace app::check
