#include "app/check/RowCheck.h"

#include "app/mif/Numbers.h"
#include "app/mif/RowReader.h"
#include "app/mif/Words.h"

#include <algorithm>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

namespace app {
namespace {

std::string_view Trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(" \r");
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(" \r") - first + 1);
}

std::string OneLine(std::string_view text) {
    std::string line(text);
    std::ranges::replace(line, '\n', ' ');
    return line;
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
    RowChecker(LineReader& lines, FindingCounter& report, const MifHeader& header,
               const CharsetTester& charset, TabRewriting rewriting, std::uint64_t& row)
        : lines_(lines), report_(report), header_(header), charset_(charset), rewriting_(rewriting),
          row_(row), reader_(lines, DelimiterOf(header), header.columns.size()) {}

    std::uint64_t Check();

private:
    std::uint64_t SkipBlankLines(std::uint64_t rows);
    void CheckRow();
    void CheckLines();
    void CheckCount();
    void CheckValue(const RowField& field, const Column& column);
    void ReportComma(const RowField& field, const Column& column);
    bool IsTooWide(std::string_view value, const Column& column) const;
    void CheckEmptyFields();
    void OfferCommas();
    std::string_view TextOf(const RowField& field) const {
        return reader_.Last().text.substr(field.begin, field.end - field.begin);
    }
    Place Here() const { return {FileOfPair::Mid, reader_.Last().line, row_}; }

    LineReader& lines_;
    FindingCounter& report_;
    const MifHeader& header_;
    const CharsetTester& charset_;
    TabRewriting rewriting_;
    std::uint64_t& row_;
    RowReader reader_;
    std::vector<RowField> fields_;
};

std::uint64_t RowChecker::Check() {
    row_ = 0;
    std::uint64_t rows = 0;
    for (const MifLine* line = lines_.Peek(); line != nullptr; line = lines_.Peek()) {
        report_.Settle(FileOfPair::Mid, line->begin);
        if (line->raw.empty()) {
            rows += SkipBlankLines(rows);
            continue;
        }
        row_ = ++rows;
        reader_.Next(fields_);
        CheckRow();
    }
    return rows;
}

// Returns how many of them are rows: none at the end.
std::uint64_t RowChecker::SkipBlankLines(std::uint64_t rows) {
    const std::uint64_t first = lines_.Peek()->number;
    std::uint64_t blanks = 0;
    for (; lines_.Peek() != nullptr && lines_.Peek()->raw.empty(); lines_.Skip()) {
        ++blanks;
    }
    if (lines_.Peek() == nullptr) {
        return 0;
    }
    report_.Add(FindingCode::RowEmpty, {FileOfPair::Mid, first, rows + 1},
                Counted(blanks, "empty line is", "empty lines are") +
                    " between the rows; the reader takes each for a row");
    return blanks;
}

void RowChecker::CheckRow() {
    CheckLines();
    if (header_.columns.empty() || header_.delimiter.empty()) {
        return;
    }
    CheckCount();
    for (std::size_t i = 0; i < std::min(fields_.size(), header_.columns.size()); ++i) {
        CheckValue(fields_[i], header_.columns[i]);
    }
    CheckEmptyFields();
    if (rewriting_ == TabRewriting::On) {
        OfferCommas();
    }
}

void RowChecker::CheckLines() {
    if (reader_.Last().isOpen) {
        report_.Add(FindingCode::RowQuoteUnclosed, Here(),
                    "the row has a quote without its partner");
    }
    if (!reader_.Last().breaks.empty()) {
        report_.Add(FindingCode::LineBreakInValue, Here(),
                    "a quoted value goes on on the next line; the reader ends the row there");
    }
    for (const Row::Break& lineEnd : reader_.Last().breaks) {
        report_.Change(FileOfPair::Mid, {.begin = lineEnd.begin,
                                         .end = lineEnd.end,
                                         .text = " ",
                                         .code = FindingCode::LineBreakInValue,
                                         .line = lineEnd.line,
                                         .what = "the line break in the value becomes a blank"});
    }
}

void RowChecker::CheckCount() {
    const std::size_t columns = header_.columns.size();
    if (fields_.size() == columns) {
        return;
    }
    const std::string text = "the row has " + Counted(fields_.size(), "value", "values") +
                             ", and " + Counted(columns, "column is", "columns are") + " declared";
    if (fields_.size() < columns) {
        report_.Add(FindingCode::RowTooShort, Here(), text);
    } else if (fields_.size() == columns + 1 && fields_.back().value.empty() &&
               !fields_.back().isQuoted) {
        report_.Add(FindingCode::RowTrailingDelimiter, Here(),
                    "the row ends with a delimiter too many");
    } else {
        report_.Add(FindingCode::RowTooLong, Here(), text);
    }
}

bool RowChecker::IsTooWide(std::string_view value, const Column& column) const {
    if (column.kind == ColumnKind::Char) {
        return column.width > 0 &&
               charset_.CountCharacters(value) > static_cast<std::size_t>(column.width);
    }
    if (column.kind != ColumnKind::Decimal || column.width <= 0 ||
        value.find_first_of("eE") != std::string::npos) {
        return false;
    }
    const std::size_t point = std::min(value.find('.'), value.size());
    std::string_view fraction = value.substr(std::min(point + 1, value.size()));
    while (fraction.ends_with('0')) {
        fraction.remove_suffix(1);
    }
    const std::size_t whole = point;  // a sign counts, as it does in the programs' tables
    return fraction.size() > static_cast<std::size_t>(column.decimals) ||
           whole > static_cast<std::size_t>(column.width);
}

void RowChecker::CheckValue(const RowField& field, const Column& column) {
    if (field.hasDoubledQuote) {
        report_.Add(FindingCode::DoubledQuote, Here(),
                    "a value of " + Quoted(column.name) +
                        " holds a doubled quote; the reader ends it there");
    }
    const std::string_view value = Trimmed(field.value);
    if (value.empty()) {
        return;
    }
    if (IsNumeric(column.kind) && HasDecimalComma(value)) {
        ReportComma(field, column);
    } else if (!IsOfKind(value, column.kind)) {
        report_.Add(FindingCode::ValueNotOfType, Here(),
                    "the value " + Quoted(value) + " of " + Quoted(column.name) + " is no " +
                        ColumnKindName(column.kind));
    } else if (IsTooWide(value, column)) {
        report_.Add(FindingCode::ValueTooWide, Here(),
                    "the value " + Quoted(value) + " of " + Quoted(column.name) +
                        " is wider than its column");
    }
}

void RowChecker::ReportComma(const RowField& field, const Column& column) {
    const std::uint64_t comma = reader_.Last().OffsetOf(field.begin + TextOf(field).find(','));
    report_.Add(FindingCode::DecimalCommaInValue, Here(),
                "the value " + Quoted(Trimmed(field.value)) + " of " + Quoted(column.name) +
                    " has a decimal comma");
    report_.Change(FileOfPair::Mid, {.begin = comma,
                                     .end = comma + 1,
                                     .text = ".",
                                     .code = FindingCode::DecimalCommaInValue,
                                     .line = reader_.Last().line,
                                     .what = "the decimal comma becomes a full stop"});
}

void RowChecker::CheckEmptyFields() {
    if (header_.delimiter != "\t") {
        return;
    }
    for (std::size_t i = 0; i + 1 < fields_.size(); ++i) {
        if (fields_[i].value.empty() && !fields_[i].isQuoted) {
            report_.Add(FindingCode::EmptyFieldUnderTab, Here(),
                        "value " + std::to_string(i + 1) +
                            " is empty between tabs; the reader takes the next one for it");
            return;
        }
    }
}

void RowChecker::OfferCommas() {
    std::string text;
    for (std::size_t i = 0; i < fields_.size(); ++i) {
        const RowField& field = fields_[i];
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
            text += OneLine(Trimmed(TextOf(field)));
        } else {
            text += isBare ? value : "\"" + value + "\"";
        }
    }
    report_.Change(FileOfPair::Mid, {.begin = reader_.Last().begin,
                                     .end = reader_.Last().end,
                                     .text = text,
                                     .code = FindingCode::EmptyFieldUnderTab,
                                     .line = reader_.Last().line,
                                     .what = "tabs become commas, texts get quotes"});
}

}  // namespace

std::uint64_t CheckRows(LineReader& lines, FindingCounter& report, const MifHeader& header,
                        const CharsetTester& charset, TabRewriting rewriting, std::uint64_t& row) {
    return RowChecker(lines, report, header, charset, rewriting, row).Check();
}

}  // namespace app
