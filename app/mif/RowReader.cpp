#include "app/mif/RowReader.h"

#include <algorithm>

namespace app {
namespace {

std::string_view Trimmed(std::string_view text, std::string_view blanks) {
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

}  // namespace

std::uint64_t Row::OffsetOf(std::size_t at) const {
    std::uint64_t offset = begin + at;
    for (const Break& lineEnd : breaks) {
        if (lineEnd.at < at) {
            offset = lineEnd.end + (at - lineEnd.at - 1);
        }
    }
    return offset;
}

bool RowReader::Next(std::vector<RowField>& fields) {
    const MifLine* const line = lines_.Peek();
    if (line == nullptr) {
        return false;
    }
    row_.text = line->raw;
    row_.line = line->number;
    row_.begin = line->begin;
    row_.end = line->end;
    row_.breaks.clear();
    row_.isOpen = !Split(fields) && !JoinLines(fields);
    if (row_.isOpen) {
        row_.text = lines_.Peek()->raw;
        row_.end = lines_.Peek()->end;
        row_.breaks.clear();
        Split(fields);
    }
    for (std::size_t i = row_.breaks.size(); i > 0; --i) {
        lines_.Skip();
    }
    lines_.Skip();
    CountCares(fields);
    return true;
}

bool RowReader::Skip() {
    return Next(fields_);
}

// Joins the row's line with those that a quoted value goes over. False when no such row is whole.
bool RowReader::JoinLines(std::vector<RowField>& fields) {
    joined_ = lines_.Peek()->raw;
    for (std::size_t ahead = 1; ahead < kMostLinesPerRow; ++ahead) {
        const MifLine* const next = lines_.Peek(ahead);
        if (next == nullptr || next->isCut ||
            joined_.size() + next->raw.size() > LineReader::kMaxLineBytes) {
            return false;
        }
        row_.breaks.push_back({next->number - 1, row_.end, next->begin, joined_.size()});
        row_.end = next->end;
        joined_.append("\n").append(next->raw);
        row_.text = joined_;
        if (Split(fields) && fields.size() >= columns_ && fields.size() <= columns_ + 1) {
            return true;
        }
    }
    return false;
}

// False when the last value has a quote that nothing closes.
bool RowReader::Split(std::vector<RowField>& fields) {
    const std::string_view row = row_.text;
    const bool hasQuotes = row.find('"') != std::string_view::npos;
    const std::string_view blanks = delimiter_ == '\t' ? " " : " \t";
    bool isOpen = false;
    std::size_t count = 0;
    for (std::size_t at = 0; at <= row.size(); ++at) {
        if (count == fields.size()) {
            fields.emplace_back();
        }
        RowField& field = fields[count++];
        field.begin = at;
        field.hasDoubledQuote = false;
        const std::size_t first = std::min(row.find_first_not_of(blanks, at), row.size());
        field.isQuoted = hasQuotes && first < row.size() && row[first] == '"';
        if (field.isQuoted) {
            at = SplitQuoted(first + 1, field, isOpen);
        } else {
            const std::size_t end = std::min(row.find(delimiter_, at), row.size());
            field.value = Trimmed(row.substr(at, end - at), blanks);
            at = end;
        }
        field.end = at;
    }
    fields.resize(count);
    return !isOpen;
}

// The value behind an opening quote. Returns where its field ends.
std::size_t RowReader::SplitQuoted(std::size_t at, RowField& field, bool& isOpen) const {
    const std::string_view row = row_.text;
    std::string& value = field.value;
    value.clear();
    for (;;) {
        const std::size_t quote = std::min(row.find('"', at), row.size());
        value.append(row.substr(at, quote - at));
        if (quote == row.size()) {
            isOpen = true;
            break;
        }
        if (IsFieldEnd(quote + 1)) {
            at = quote + 1;
            break;
        }
        // A doubled quote, or a single one inside the value.
        value += '"';
        field.hasDoubledQuote = true;
        at = quote + (row[quote + 1] == '"' ? 2 : 1);
    }
    return isOpen ? row.size() : std::min(row.find(delimiter_, at), row.size());
}

// Whether only blanks come before the next delimiter or the row's end.
bool RowReader::IsFieldEnd(std::size_t at) const {
    const std::string_view row = row_.text;
    while (at < row.size() && row[at] != delimiter_ &&
           (row[at] == ' ' || row[at] == '\t' || row[at] == '\r')) {
        ++at;
    }
    return at == row.size() || row[at] == delimiter_;
}

void RowReader::CountCares(const std::vector<RowField>& fields) {
    if (row_.isOpen) {
        Count(cares_.openQuotes);
    }
    if (!row_.breaks.empty()) {
        Count(cares_.lineBreaks);
    } else if (std::ranges::any_of(fields, &RowField::hasDoubledQuote)) {
        Count(cares_.doubledQuotes);
    }
    const bool isTrailing = fields.size() == columns_ + 1 && fields.back().value.empty();
    if (fields.size() < columns_ && !row_.text.empty()) {
        Count(cares_.tooShort);
    } else if (fields.size() > columns_ && !isTrailing) {
        Count(cares_.tooLong);
    }
}

void RowReader::Count(RowCare& care) const {
    if (care.count++ == 0) {
        care.firstLine = row_.line;
    }
}

}  // namespace app
