#include "app/check/RowCheck.h"

#include "app/check/NumberLine.h"
#include "app/mif/Numbers.h"
#include "app/mif/Words.h"

#include <algorithm>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

namespace app::check {
namespace {

constexpr std::size_t kMaxJoinedLines = 64;

struct Field {
    std::string_view raw;  // with quotes and blanks
    std::string value;     // as meant: without them, doubled quotes made one
    std::uint64_t begin = 0;
    bool isQuoted = false;
    bool hasDoubledQuote = false;
};

std::string_view Trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(" \r");
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(" \r") - first + 1);
}

Field FieldOf(std::string_view raw, std::uint64_t begin) {
    Field field{.raw = raw, .value = {}, .begin = begin};
    std::string_view inner = Trimmed(raw);
    field.isQuoted = inner.size() >= 2 && inner.front() == '"' && inner.back() == '"';
    if (!field.isQuoted) {
        field.value = inner;
        return field;
    }
    inner = inner.substr(1, inner.size() - 2);
    for (std::size_t i = 0; i < inner.size(); ++i) {
        field.value += inner[i];
        if (inner[i] == '"') {
            field.hasDoubledQuote = true;
            i += i + 1 < inner.size() && inner[i + 1] == '"' ? 1U : 0U;
        }
    }
    return field;
}

std::vector<Field> FieldsOf(std::string_view row, char delimiter, std::uint64_t begin) {
    std::vector<Field> fields;
    bool isInQuotes = false;
    std::size_t first = 0;
    for (std::size_t i = 0; i <= row.size(); ++i) {
        if (i == row.size() || (row[i] == delimiter && !isInQuotes)) {
            fields.push_back(FieldOf(row.substr(first, i - first), begin + first));
            first = i + 1;
        } else if (row[i] == '"') {
            isInQuotes = !isInQuotes;
        }
    }
    return fields;
}

bool HasOpenQuote(std::string_view row) {
    return std::ranges::count(row, '"') % 2 != 0;
}

bool IsWholeWithin(std::string_view text, std::int64_t least, std::int64_t most) {
    const std::int64_t number = ReadInteger(text);
    return IsWholeNumber(text) && number >= least && number <= most;
}

template <typename Number> bool Fits(std::string_view text) {
    return IsWholeWithin(text, std::numeric_limits<Number>::min(),
                         std::numeric_limits<Number>::max());
}

bool IsDateText(std::string_view text) {
    if (!IsDigits(text) || text.size() != 8) {
        return false;
    }
    const std::int64_t month = ReadInteger(text.substr(4, 2));
    const std::int64_t day = ReadInteger(text.substr(6, 2));
    return month >= 1 && month <= 12 && day >= 1 && day <= 31;
}

// Hours, minutes, seconds, and mostly milliseconds; zeros at the front may be missing.
bool IsTimeText(std::string_view text) {
    if (!IsDigits(text) || text.size() > 9) {
        return false;
    }
    const std::size_t digits = text.size() == 6 ? 6 : 9;
    const std::string time = std::string(digits - text.size(), '0') + std::string(text);
    const std::string_view view = time;
    return ReadInteger(view.substr(0, 2)) < 24 && ReadInteger(view.substr(2, 2)) < 60 &&
           ReadInteger(view.substr(4, 2)) < 60;
}

bool IsOfKind(std::string_view text, ColumnKind kind) {
    switch (kind) {
    case ColumnKind::Integer:
        return Fits<std::int32_t>(text);
    case ColumnKind::SmallInt:
        return Fits<std::int16_t>(text);
    case ColumnKind::LargeInt:
        return Fits<std::int64_t>(text) && text.size() <= 20;
    case ColumnKind::Decimal:
    case ColumnKind::Float:
        return IsDecimalNumber(text);
    case ColumnKind::Date:
        return IsDateText(text);
    case ColumnKind::Time:
        return IsTimeText(text);
    case ColumnKind::DateTime:
        return text.size() > 8 && IsDateText(text.substr(0, 8)) && IsTimeText(text.substr(8));
    case ColumnKind::Logical:
        return EqualsIgnoringCase(text, "T") || EqualsIgnoringCase(text, "F");
    case ColumnKind::Char:
    case ColumnKind::Other:
        return true;
    }
    return true;
}

bool IsNumeric(ColumnKind kind) {
    return kind == ColumnKind::Integer || kind == ColumnKind::SmallInt ||
           kind == ColumnKind::LargeInt || kind == ColumnKind::Decimal || kind == ColumnKind::Float;
}

class RowChecker {
public:
    RowChecker(LineReader& lines, Report& report, const CheckedHeader& header,
               const CharsetTester& charset, TabRewriting rewriting, std::uint64_t& row)
        : lines_(lines), report_(report), header_(header), charset_(charset), rewriting_(rewriting),
          row_(row) {}

    std::uint64_t Check();

private:
    void CheckRow();
    std::string JoinedRow();
    void CheckCount(const std::vector<Field>& fields);
    void CheckValue(const Field& field, const Column& column);
    bool IsTooWide(const Field& field, const Column& column) const;
    void CheckEmptyFields(const std::vector<Field>& fields);
    void OfferCommas(const std::vector<Field>& fields, std::uint64_t begin, std::uint64_t end);
    Place Here() const { return {PairFile::Mid, line_, row_}; }

    LineReader& lines_;
    Report& report_;
    const CheckedHeader& header_;
    const CharsetTester& charset_;
    TabRewriting rewriting_;
    std::uint64_t& row_;
    std::uint64_t line_ = 0;
    std::uint64_t end_ = 0;  // offset behind the row
    std::size_t lineCount_ = 1;
};

std::uint64_t RowChecker::Check() {
    row_ = 0;
    std::uint64_t rows = 0;
    for (const MifLine* line = lines_.Peek(); line != nullptr; line = lines_.Peek()) {
        report_.Settle(PairFile::Mid, line->begin);
        if (!line->raw.empty()) {
            row_ = ++rows;
            line_ = line->number;
            CheckRow();
            continue;
        }
        const std::uint64_t first = line->number;
        std::uint64_t blanks = 0;
        while (lines_.Peek() != nullptr && lines_.Peek()->raw.empty()) {
            ++blanks;
            lines_.Skip();
        }
        if (lines_.Peek() == nullptr) {
            break;
        }
        report_.Add(Code::RowEmpty, {PairFile::Mid, first, rows + 1},
                    Counted(blanks, "empty line stands", "empty lines stand") +
                        " between the rows; the reader takes each for a row");
        rows += blanks;
    }
    return rows;
}

// The next row with the lines that a quoted value spreads over.
std::string RowChecker::JoinedRow() {
    const MifLine& line = *lines_.Peek();
    lineCount_ = 1;
    end_ = line.end;
    if (!HasOpenQuote(line.raw) || header_.delimiter.empty()) {
        return std::string(line.raw);
    }
    std::string joined(line.raw);
    for (std::size_t i = 1; i <= kMaxJoinedLines && lines_.Peek(i) != nullptr; ++i) {
        const MifLine& next = *lines_.Peek(i);
        joined +=
            std::string(static_cast<std::size_t>(next.begin - end_), ' ') + std::string(next.raw);
        end_ = next.end;
        if (joined.size() > LineReader::kMaxLineBytes || next.isCut) {
            break;
        }
        const bool isWhole = !HasOpenQuote(joined);
        const std::size_t count = isWhole ? FieldsOf(joined, header_.delimiter[0], 0).size() : 0;
        if (isWhole && count <= header_.columns.size() + 1 && count >= header_.columns.size()) {
            lineCount_ = i + 1;
            return joined;
        }
    }
    end_ = line.end;
    return std::string(line.raw);
}

void RowChecker::CheckRow() {
    const std::uint64_t begin = lines_.Peek()->begin;
    const bool isOpen = HasOpenQuote(lines_.Peek()->raw);
    const std::string row = JoinedRow();
    if (isOpen && lineCount_ == 1) {
        report_.Add(Code::RowQuoteUnclosed, Here(), "the row has a quote without its partner");
    }
    for (std::size_t i = 0; i + 1 < lineCount_; ++i) {
        const MifLine& line = *lines_.Peek(i);
        if (i == 0) {
            report_.Add(Code::LineBreakInValue, Here(),
                        "a quoted value goes on on the next line; the reader ends the row there");
        }
        report_.Change(PairFile::Mid, {.begin = line.end,
                                       .end = line.next,
                                       .text = " ",
                                       .code = Code::LineBreakInValue,
                                       .line = line.number,
                                       .what = "the line break in the value becomes a blank"});
    }
    for (std::size_t i = 0; i < lineCount_; ++i) {
        lines_.Skip();
    }
    if (header_.columns.empty() || header_.delimiter.empty()) {
        return;
    }
    const std::vector<Field> fields = FieldsOf(row, header_.delimiter[0], begin);
    CheckCount(fields);
    for (std::size_t i = 0; i < std::min(fields.size(), header_.columns.size()); ++i) {
        CheckValue(fields[i], header_.columns[i]);
    }
    CheckEmptyFields(fields);
    if (rewriting_ == TabRewriting::On) {
        OfferCommas(fields, begin, end_);
    }
}

void RowChecker::CheckCount(const std::vector<Field>& fields) {
    const std::size_t columns = header_.columns.size();
    if (fields.size() == columns) {
        return;
    }
    const std::string text = "the row has " + Counted(fields.size(), "value", "values") + ", and " +
                             Counted(columns, "column is", "columns are") + " declared";
    if (fields.size() < columns) {
        report_.Add(Code::RowTooShort, Here(), text);
    } else if (fields.size() == columns + 1 && fields.back().value.empty() &&
               !fields.back().isQuoted) {
        report_.Add(Code::RowTrailingDelimiter, Here(), "the row ends with a delimiter too many");
    } else {
        report_.Add(Code::RowTooLong, Here(), text);
    }
}

bool RowChecker::IsTooWide(const Field& field, const Column& column) const {
    const std::string& value = field.value;
    if (column.kind == ColumnKind::Char) {
        return column.width > 0 &&
               charset_.CountCharacters(value) > static_cast<std::size_t>(column.width);
    }
    if (column.kind != ColumnKind::Decimal || column.width <= 0 ||
        value.find_first_of("eE") != std::string::npos) {
        return false;
    }
    const std::size_t point = std::min(value.find('.'), value.size());
    std::string_view fraction = std::string_view(value).substr(std::min(point + 1, value.size()));
    while (fraction.ends_with('0')) {
        fraction.remove_suffix(1);
    }
    const std::size_t whole = point;  // a sign counts, as it does in the programs' tables
    return fraction.size() > static_cast<std::size_t>(column.decimals) ||
           whole > static_cast<std::size_t>(column.width);
}

void RowChecker::CheckValue(const Field& field, const Column& column) {
    if (field.hasDoubledQuote) {
        report_.Add(Code::DoubledQuote, Here(),
                    "a value of " + Quoted(column.name) +
                        " holds a doubled quote; the reader "
                        "ends it there");
    }
    if (field.value.empty()) {
        return;
    }
    if (IsNumeric(column.kind) && HasDecimalComma(field.value)) {
        const std::size_t comma = field.raw.find(',');
        report_.Add(Code::DecimalCommaInValue, Here(),
                    "the value " + Quoted(field.value) + " of " + Quoted(column.name) +
                        " has a decimal comma");
        report_.Change(PairFile::Mid, {.begin = field.begin + comma,
                                       .end = field.begin + comma + 1,
                                       .text = ".",
                                       .code = Code::DecimalCommaInValue,
                                       .line = line_,
                                       .what = "the decimal comma becomes a full stop"});
        return;
    }
    if (!IsOfKind(field.value, column.kind)) {
        report_.Add(Code::ValueNotOfType, Here(),
                    "the value " + Quoted(field.value) + " of " + Quoted(column.name) + " is no " +
                        ColumnKindName(column.kind));
    } else if (IsTooWide(field, column)) {
        report_.Add(Code::ValueTooWide, Here(),
                    "the value " + Quoted(field.value) + " of " + Quoted(column.name) +
                        " is wider than its column");
    }
}

void RowChecker::CheckEmptyFields(const std::vector<Field>& fields) {
    if (header_.delimiter != "\t") {
        return;
    }
    for (std::size_t i = 0; i + 1 < fields.size(); ++i) {
        if (fields[i].value.empty() && !fields[i].isQuoted) {
            report_.Add(Code::EmptyFieldUnderTab, Here(),
                        "value " + std::to_string(i + 1) +
                            " is empty between tabs; the reader takes the next one for it");
            return;
        }
    }
}

void RowChecker::OfferCommas(const std::vector<Field>& fields, std::uint64_t begin,
                             std::uint64_t end) {
    std::string text;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const Field& field = fields[i];
        const ColumnKind kind =
            i < header_.columns.size() ? header_.columns[i].kind : ColumnKind::Other;
        std::string value = field.value;
        if (IsNumeric(kind) && HasDecimalComma(value)) {
            value[value.find(',')] = '.';
        }
        // A quote inside a quoted value would end it for the reader, but not inside a bare one.
        const bool isBare =
            !field.isQuoted && value.find(',') == std::string::npos &&
            (kind != ColumnKind::Char || (value.find('"') != std::string::npos && value[0] != '"'));
        text += i == 0 ? "" : ",";
        if (field.isQuoted) {
            text += Trimmed(field.raw);
        } else {
            text += isBare ? value : "\"" + value + "\"";
        }
    }
    report_.Change(PairFile::Mid, {.begin = begin,
                                   .end = end,
                                   .text = text,
                                   .code = Code::EmptyFieldUnderTab,
                                   .line = line_,
                                   .what = "tabs become commas, texts get quotes"});
}

}  // namespace

std::uint64_t CheckRows(LineReader& lines, Report& report, const CheckedHeader& header,
                        const CharsetTester& charset, TabRewriting rewriting, std::uint64_t& row) {
    return RowChecker(lines, report, header, charset, rewriting, row).Check();
}

}  // namespace app::check
