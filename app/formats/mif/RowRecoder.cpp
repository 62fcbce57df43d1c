#include "app/formats/mif/RowRecoder.h"

namespace app {

void RowRecoder::Recode(std::string_view rows, std::string& out) {
    for (const char c : rows) {
        switch (state_) {
        case State::Outside:
            TakeOutside(c, out);
            break;
        case State::InQuotes:
            if (c == '"') {
                state_ = State::AfterQuote;
            } else {
                text_ += c;
            }
            break;
        case State::AfterQuote:
            if (c == '"') {  // a doubled one
                text_ += c;
                state_ = State::InQuotes;
            } else {
                writer_.AppendText(out, column_, text_);
                text_.clear();
                state_ = State::Outside;
                TakeOutside(c, out);
            }
            break;
        }
    }
}

void RowRecoder::TakeOutside(char c, std::string& out) {
    if (isAtRowStart_) {
        writer_.StartRow();
        isAtRowStart_ = false;
    }
    if (c == '"') {
        state_ = State::InQuotes;
        return;
    }
    out += c;
    if (c == delimiter_) {
        ++column_;
    } else if (c == '\n') {
        column_ = 0;
        isAtRowStart_ = true;
    }
}

}  // namespace app
