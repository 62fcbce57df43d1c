#include "app/formats/mif/RowWriter.h"

#include "app/json/ShortestNumber.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <type_traits>
#include <utility>

namespace app {
namespace {

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

// Removes a beginning of the given form, in which '0' means any digit, and puts its digits into
// `digits`. Returns false, and removes nothing, for another text.
bool TakeDigits(std::string_view& text, std::string_view form, std::string& digits) {
    const bool hasForm =
        text.size() >= form.size() &&
        std::equal(form.begin(), form.end(), text.begin(),
                   [](char wanted, char c) { return wanted == '0' ? IsDigit(c) : c == wanted; });
    if (!hasForm) {
        return false;
    }
    std::ranges::copy_if(text.substr(0, form.size()), std::back_inserter(digits), IsDigit);
    text.remove_prefix(form.size());
    return true;
}

// Takes a time; what a file can't hold, parts of milliseconds, must be 0.
bool TakeTime(std::string_view& text, std::string& digits) {
    constexpr std::size_t kMilliseconds = 3;
    if (!TakeDigits(text, "00:00:00", digits)) {
        return false;
    }
    std::size_t count = 0;
    if (text.starts_with('.')) {
        text.remove_prefix(1);
        for (; !text.empty() && IsDigit(text.front()); ++count, text.remove_prefix(1)) {
            if (count < kMilliseconds) {
                digits += text.front();
            } else if (text.front() != '0') {
                return false;
            }
        }
    }
    digits.append(kMilliseconds - std::min(count, kMilliseconds), '0');
    return true;
}

// An ISO date, time or both as the digits that a file has; "" for another text.
std::string DigitsOf(ColumnKind kind, std::string_view text) {
    std::string digits;
    if (kind != ColumnKind::Time && !TakeDigits(text, "0000-00-00", digits)) {
        return {};
    }
    if (kind == ColumnKind::DateTime) {
        if (!text.starts_with('T') && !text.starts_with(' ')) {
            return {};
        }
        text.remove_prefix(1);
    }
    if (kind != ColumnKind::Date && !TakeTime(text, digits)) {
        return {};
    }
    if (kind == ColumnKind::DateTime && text == "Z") {
        text = {};  // files have no zones
    }
    return text.empty() ? digits : std::string();
}

bool IsWhole(ColumnKind kind) {
    return kind == ColumnKind::SmallInt || kind == ColumnKind::Integer ||
           kind == ColumnKind::LargeInt;
}

bool IsNumber(ColumnKind kind) {
    return IsWhole(kind) || kind == ColumnKind::Float || kind == ColumnKind::Decimal;
}

bool IsText(ColumnKind kind) {
    return kind == ColumnKind::Char || kind == ColumnKind::Other;
}

// Whether the text can be in a row without quotes.
bool IsPlainWord(std::string_view text) {
    return !text.empty() && std::ranges::all_of(text, [](char c) {
        return IsDigit(c) || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '+' ||
               c == '-' || c == '.' || c == ':' || c == '/' || c == '_';
    });
}

template <typename Small> bool Fits(std::int64_t number) {
    return number >= std::numeric_limits<Small>::min() &&
           number <= std::numeric_limits<Small>::max();
}

}  // namespace

RowWriter::RowWriter(std::vector<LayerColumn> columns, RowForm form, PairCharset& charset)
    : form_(form), charset_(charset) {
    for (LayerColumn& column : columns) {
        columns_.emplace_back().column = std::move(column);
    }
}

void RowWriter::Append(std::string& out, std::span<const Value> values) {
    ++rowCount_;
    const std::size_t before = out.size();
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        if (i > 0) {
            out += form_.delimiter;
        }
        if (i < values.size()) {
            AppendValue(out, i, values[i]);
        }
    }
    if (out.size() == before) {
        out += "\"\"";  // some readers skip empty lines
    }
    out += '\n';
}

void RowWriter::AppendValue(std::string& out, std::size_t at, const Value& value) {
    std::visit(
        [&](const auto& held) {
            using Held = std::decay_t<decltype(held)>;
            const ColumnKind kind = columns_[at].column.kind;
            if constexpr (std::is_same_v<Held, std::string>) {
                AppendTyped(out, at, held);
            } else if constexpr (std::is_same_v<Held, std::int64_t>) {
                AppendWhole(out, at, held);
            } else if constexpr (std::is_same_v<Held, double>) {
                AppendReal(out, at, held);
            } else if constexpr (std::is_same_v<Held, bool>) {
                if (kind == ColumnKind::Logical) {
                    AppendWord(out, columns_[at], held ? "T" : "F");
                } else if (IsNumber(kind)) {
                    AppendWord(out, columns_[at], held ? "1" : "0");
                } else {
                    AppendTyped(out, at, held ? "true" : "false");
                }
            }
        },
        value);
}

void RowWriter::AppendTyped(std::string& out, std::size_t at, const std::string& text) {
    State& state = columns_[at];
    switch (state.column.kind) {
    case ColumnKind::Char:
    case ColumnKind::Other:
        AppendText(out, at, text);
        return;
    case ColumnKind::Date:
    case ColumnKind::Time:
    case ColumnKind::DateTime:
        if (const std::string digits = DigitsOf(state.column.kind, text); !digits.empty()) {
            AppendWord(out, state, digits);
            return;
        }
        break;
    default:
        break;
    }
    AppendOther(out, at, text);
}

void RowWriter::AppendWhole(std::string& out, std::size_t at, std::int64_t number) {
    State& state = columns_[at];
    std::array<char, 24> text{};
    const std::string_view word(text.data(),
                                std::to_chars(text.data(), text.data() + text.size(), number).ptr);
    if (IsNumber(state.column.kind)) {
        state.isShort = state.isShort && Fits<std::int16_t>(number);
        state.isInt = state.isInt && Fits<std::int32_t>(number);
        AppendWord(out, state, word);
    } else if (state.column.kind == ColumnKind::Logical && (number == 0 || number == 1)) {
        AppendWord(out, state, number == 1 ? "T" : "F");
    } else {
        AppendTyped(out, at, std::string(word));
    }
}

void RowWriter::AppendReal(std::string& out, std::size_t at, double number) {
    State& state = columns_[at];
    const std::string word = PlainText(number);
    if (IsNumber(state.column.kind) && std::isfinite(number)) {
        state.hasFractions = true;
        AppendWord(out, state, word);
    } else {
        AppendTyped(out, at, word);
    }
}

void RowWriter::AppendWord(std::string& out, State& state, std::string_view word) {
    state.longestWord = std::max(state.longestWord, word.size());
    out += word;
}

void RowWriter::AppendOther(std::string& out, std::size_t at, const std::string& text) {
    State& state = columns_[at];
    if (++state.otherCount == 1) {
        state.firstOther = text;
    }
    if (form_.keepsTypes && IsPlainWord(text)) {
        AppendWord(out, state, text);
    } else {
        AppendText(out, at, text);
    }
}

void RowWriter::AppendText(std::string& out, std::size_t column, std::string_view utf8) {
    State& state = columns_[column];
    if (utf8.size() > std::size_t{kMostCharBytes} && !charset_.IsOpen()) {
        const std::size_t length = charset_.Encoder().LengthThatFits(utf8, kMostCharBytes);
        if (length < utf8.size() && ++state.cutCount == 1) {
            state.firstCut = rowCount_;
        }
        utf8 = utf8.substr(0, length);
    }
    bytes_.clear();
    charset_.Append(bytes_, utf8);
    state.longestText = std::max(state.longestText, bytes_.size());
    out += '"';
    if (bytes_.find('"') == std::string::npos) {
        out += bytes_;
    } else {
        for (const char byte : bytes_) {
            out.append(byte == '"' ? 2 : 1, byte);
        }
    }
    out += '"';
}

void RowWriter::ForgetTexts() {
    rowCount_ = 0;
    for (State& state : columns_) {
        state.longestText = 0;
    }
}

bool RowWriter::HasTooLongText() const {
    return std::ranges::any_of(columns_, [](const State& state) {
        return state.longestText > std::size_t{kMostCharBytes};
    });
}

ColumnKind RowWriter::FinalKind(const State& state) const {
    const ColumnKind kind = state.column.kind;
    if (kind == ColumnKind::Other) {
        return ColumnKind::Char;
    }
    if (kind == ColumnKind::Decimal && state.column.width <= 0) {
        return ColumnKind::Float;
    }
    if (form_.keepsTypes || IsText(kind)) {
        return kind;
    }
    if (state.otherCount > 0) {
        return ColumnKind::Char;
    }
    if (!IsWhole(kind)) {
        return kind;
    }
    if (state.hasFractions) {
        return ColumnKind::Float;
    }
    if (kind == ColumnKind::SmallInt && state.isShort) {
        return kind;
    }
    return state.isInt ? ColumnKind::Integer : ColumnKind::LargeInt;
}

std::vector<ColumnOutcome> RowWriter::Outcomes() const {
    std::vector<ColumnOutcome> outcomes;
    for (const State& state : columns_) {
        ColumnOutcome outcome{state.column,   state.column.kind, state.cutCount,
                              state.firstCut, state.otherCount,  state.firstOther};
        outcome.column.kind = FinalKind(state);
        if (outcome.column.kind == ColumnKind::Char) {
            const bool wasText = IsText(state.column.kind);
            const std::size_t longest =
                wasText ? state.longestText : std::max(state.longestText, state.longestWord);
            outcome.column.width =
                std::clamp(std::max(static_cast<int>(longest), wasText ? state.column.width : 0), 1,
                           kMostCharBytes);
        }
        outcomes.push_back(std::move(outcome));
    }
    return outcomes;
}

}  // namespace app
