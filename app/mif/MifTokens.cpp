#include "app/mif/MifTokens.h"

#include "app/mif/ByteClasses.h"

#include <algorithm>

namespace app {

MifToken MifTokens::Next() {
    while (pos_ < text_.size() && IsByte(text_[pos_], kBlankByte)) {
        ++pos_;
    }
    if (pos_ == text_.size()) {
        return TokenFrom(pos_, TokenKind::End);
    }
    switch (text_[pos_]) {
    case '\r':
    case '\n':
        return TakeLineEnd();
    case '"':
        return TakeQuoted();
    case '(':
    case ')':
    case ',':
        ++pos_;
        return TokenFrom(pos_ - 1, TokenKind::Mark);
    default:
        return TakeWord();
    }
}

MifToken MifTokens::TakeLineEnd() {
    const std::size_t begin = pos_;
    // A text that went through two conversions ends its lines with CR CR LF.
    pos_ = std::min(text_.find_first_not_of('\r', pos_), text_.size());
    pos_ += pos_ < text_.size() && text_[pos_] == '\n' ? 1 : 0;
    MifToken token = TokenFrom(begin, TokenKind::LineEnd);
    token.text = "\n";
    return token;
}

MifToken MifTokens::TakeQuoted() {
    const std::size_t begin = pos_;
    ++pos_;
    while (pos_ < text_.size() && text_[pos_] != '"' && text_[pos_] != '\n') {
        ++pos_;
    }
    const bool isClosed = pos_ < text_.size() && text_[pos_] == '"';
    std::size_t end = pos_;
    if (isClosed) {
        ++pos_;
    } else {
        while (end > begin + 1 && text_[end - 1] == '\r') {
            --end;
        }
        pos_ = end;  // the line end is the next token
    }
    MifToken token = TokenFrom(begin, TokenKind::Quoted);
    token.text = text_.substr(begin + 1, end - begin - 1);
    token.isClosed = isClosed;
    return token;
}

MifToken MifTokens::TakeWord() {
    const std::size_t begin = pos_;
    while (pos_ < text_.size() && !IsByte(text_[pos_], kEndsWordByte)) {
        ++pos_;
    }
    return TokenFrom(begin, TokenKind::Word);
}

MifToken MifTokens::TokenFrom(std::size_t begin, TokenKind kind) const {
    return {kind, text_.substr(begin, pos_ - begin), offset_ + begin, offset_ + pos_, true};
}

std::vector<MifToken> TokensOf(std::string_view text, std::uint64_t offset, std::size_t most) {
    std::vector<MifToken> tokens;
    MifTokens source(text, offset);
    for (MifToken token = source.Next(); token.kind != TokenKind::End && tokens.size() < most;
         token = source.Next()) {
        tokens.push_back(token);
    }
    return tokens;
}

std::string WithoutReturns(std::string_view text) {
    std::string kept(text);
    std::erase(kept, '\r');
    return kept;
}

}  // namespace app
