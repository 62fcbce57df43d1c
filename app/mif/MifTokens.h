// Cuts MIF text into tokens. For the command, with offsets; the module cuts its files itself, into
// the same tokens: tests/mif/ holds the two equal.
//
// A word ends at a blank, a tab, a line end, a double quote, a parenthesis or a comma; parentheses,
// commas and line ends are tokens of their own; a quoted text is one token without its quotes, and
// ends with its line at the latest. Interprets nothing: callers compare keywords and convert
// numbers.
#pragma once

#include "app/mif/Words.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace app {

enum class TokenKind {
    End,      // no token is left
    LineEnd,  // LF, CR LF, or carriage returns alone
    Mark,     // "(", ")" or ","
    Word,
    Quoted,
};

struct MifToken {
    TokenKind kind = TokenKind::End;
    // A view into the text that was cut. Of a Quoted token what is between the quotes, carriage
    // returns included; a LineEnd has "\n", an End "".
    std::string_view text;
    std::uint64_t begin = 0;  // offset of its first byte, the opening quote included
    std::uint64_t end = 0;    // offset behind its last byte, the closing quote included
    bool isClosed = true;     // false for a Quoted token that the line's end cuts off

    bool IsLineEnd() const { return kind == TokenKind::LineEnd; }
    bool IsQuoted() const { return kind == TokenKind::Quoted; }
    bool IsMark(char mark) const { return kind == TokenKind::Mark && text.front() == mark; }

    // Whether the token is this keyword in any case. The module takes quoted keywords, too.
    bool Is(std::string_view keyword) const { return EqualsIgnoringCase(text, keyword); }
};

class MifTokens {
public:
    // `text` must outlive the tokens. `offset` is where it begins in its file.
    explicit MifTokens(std::string_view text, std::uint64_t offset = 0)
        : text_(text), offset_(offset) {}

    // Takes the next token away and returns it; an End behind the last one, again and again.
    MifToken Next();

private:
    MifToken TakeLineEnd();
    MifToken TakeQuoted();
    MifToken TakeWord();
    MifToken TokenFrom(std::size_t begin, TokenKind kind) const;

    std::string_view text_;
    std::uint64_t offset_;
    std::size_t pos_ = 0;
};

// All tokens of the text but at most `most`. The views point into the text.
std::vector<MifToken> TokensOf(std::string_view text, std::uint64_t offset = 0,
                               std::size_t most = 256);

// A quoted text as the module reads it: without carriage returns.
std::string WithoutReturns(std::string_view text);

}  // namespace app
