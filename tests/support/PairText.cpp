#include "tests/support/PairText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <optional>

namespace support {
namespace {

constexpr std::array<std::string_view, 12> kObjects{
    "none", "point", "line",      "pline",   "region",     "arc",
    "text", "rect",  "roundrect", "ellipse", "multipoint", "collection"};
constexpr std::array<std::string_view, 10> kClauses{
    "pen", "brush", "symbol", "font", "angle", "label", "justify", "spacing", "smooth", "center"};

std::string Lower(std::string_view text) {
    std::string lower(text);
    std::ranges::transform(lower, lower.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
    });
    return lower;
}

std::string Trimmed(std::string_view text) {
    const std::size_t first = std::min(text.find_first_not_of(" \t\r"), text.size());
    return std::string(text.substr(first, text.find_last_not_of(" \t\r") + 1 - first));
}

// Numbers in their shortest form; other words as they are.
std::string Canonical(std::string_view word) {
    double number = 0.0;
    const std::string_view digits = word.substr(word.starts_with('+') ? 1 : 0);
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (word.empty() || result.ec != std::errc() || result.ptr != digits.data() + digits.size()) {
        return std::string(word);
    }
    std::array<char, 32> text{};
    number = number == 0.0 ? 0.0 : number;
    return {text.data(), std::to_chars(text.data(), text.data() + text.size(), number).ptr};
}

// Takes a text in quotes away from the front, and undoubles its quotes.
std::string TakeQuoted(std::string_view& text) {
    std::string value;
    text.remove_prefix(1);
    while (!text.empty()) {
        const char c = text.front();
        text.remove_prefix(1);
        if (c == '"') {
            if (!text.starts_with('"')) {
                break;
            }
            text.remove_prefix(1);
        }
        value += c;
    }
    return value;
}

// The next word or quoted text; what is quoted keeps one quote in front. Empty at the end.
std::string TakeToken(std::string_view& text) {
    constexpr std::string_view kBetween = " \t\r\n(),";
    text.remove_prefix(std::min(text.find_first_not_of(kBetween), text.size()));
    if (text.starts_with('"')) {
        return '"' + TakeQuoted(text);
    }
    const std::size_t length = std::min(text.find_first_of(" \t\r\n(),\""), text.size());
    std::string word(text.substr(0, length));
    text.remove_prefix(length);
    return word;
}

class Objects {
public:
    void Take(std::string_view data) {
        for (std::string token = TakeToken(data); !token.empty(); token = TakeToken(data)) {
            const std::string word = Lower(token);
            const bool isInClause = keyword_ == "justify" || keyword_ == "label";
            if (std::ranges::find(kObjects, word) != kObjects.end() && !isInClause) {
                EndObject();
                object_ = word;
                keyword_.clear();
            } else if (std::ranges::find(kClauses, word) != kClauses.end()) {
                clauses_.push_back(word);
                keyword_ = word;
            } else {
                Add(token.starts_with('"') ? token : Canonical(word));
            }
        }
        EndObject();
    }

    std::vector<std::string> All() { return std::move(objects_); }

private:
    void Add(const std::string& value) {
        (clauses_.empty() ? object_ : clauses_.back()) += ' ' + value;
        if (keyword_ == "justify" || (keyword_ == "label" && value != "line")) {
            keyword_.clear();
        }
    }

    void EndObject() {
        if (object_.empty()) {
            return;
        }
        std::ranges::sort(clauses_);
        for (const std::string& clause : clauses_) {
            object_ += " | " + clause;
        }
        objects_.push_back(object_);
        clauses_.clear();
    }

    std::vector<std::string> objects_;
    std::string object_;
    std::vector<std::string> clauses_;
    std::string keyword_;  // of a clause whose words could be those of an object
};

std::string TakeLine(std::string_view& text) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    std::string line = Trimmed(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
    return line;
}

std::string FirstWord(std::string_view line) {
    return Lower(line.substr(0, line.find_first_of(" \t(")));
}

// One blank between words, none beside commas and parentheses.
std::string Tidy(std::string_view text) {
    std::string tidy;
    for (const char c : text) {
        const bool isMark = c == ',' || c == '(' || c == ')';
        if (isMark && tidy.ends_with(' ')) {
            tidy.pop_back();
        }
        const bool isNeeded =
            !tidy.empty() && std::string_view(" ,()").find(tidy.back()) == std::string_view::npos;
        if (c == ' ' || c == '\t' || c == '\n') {
            tidy += isNeeded ? " " : "";
        } else {
            tidy += c;
        }
    }
    return Trimmed(tidy);
}

std::string ColumnText(std::string_view line) {
    const std::size_t nameEnd = std::min(line.find_first_of(" \t"), line.size());
    std::string type = Lower(line.substr(nameEnd));
    std::erase_if(type, [](char c) { return c == ' ' || c == '\t'; });
    return std::string(line.substr(0, nameEnd)) + ' ' + type;
}

void TakeHeader(std::string_view& mif, PairText& pair) {
    std::string line = TakeLine(mif);
    while (Lower(line) != "data" && !(line.empty() && mif.empty())) {
        const std::string keyword = FirstWord(line);
        std::string_view rest = std::string_view(line).substr(keyword.size());
        if (keyword == "version") {
            pair.version = Trimmed(rest);
        } else if (keyword == "charset") {
            pair.charset = TakeToken(rest).substr(1);
        } else if (keyword == "delimiter") {
            pair.delimiter = line.substr(line.find('"') + 1, 1);
        } else if (keyword == "coordsys" || keyword == "bounds") {
            pair.clause = Tidy(pair.clause + ' ' + line);
        } else if (keyword == "columns") {
            for (int left = std::stoi(Trimmed(rest)); left > 0; --left) {
                pair.columns.push_back(ColumnText(TakeLine(mif)));
            }
        } else if (!line.empty()) {
            pair.others.push_back(line);
        }
        line = TakeLine(mif);
    }
}

bool IsNumeric(const std::string& column) {
    const std::string type = column.substr(column.rfind(' ') + 1);
    return !type.starts_with("char") && !type.starts_with("date") && type != "time" &&
           type != "logical";
}

std::vector<std::string> TakeRow(std::string_view& mid, const PairText& pair) {
    std::vector<std::string> row;
    for (bool isAtEnd = false; !isAtEnd;) {
        std::string value;
        const bool isQuoted = mid.starts_with('"');
        if (isQuoted) {
            value = TakeQuoted(mid);
        }
        const std::size_t end = std::min(mid.find_first_of(pair.delimiter + "\n"), mid.size());
        value += isQuoted ? "" : Trimmed(mid.substr(0, end));
        isAtEnd = end == mid.size() || mid[end] == '\n';
        mid.remove_prefix(std::min(end + 1, mid.size()));
        const std::size_t at = row.size();
        const bool isNumber = at < pair.columns.size() && IsNumeric(pair.columns[at]);
        row.push_back(isNumber ? Canonical(value) : value);
    }
    return row;
}

std::string Joined(const std::vector<std::string>& parts) {
    std::string text;
    for (const std::string& part : parts) {
        text += '[' + part + ']';
    }
    return text;
}

std::string Difference(const std::string& what, const std::string& left, const std::string& right) {
    return left == right ? "" : what + ": " + left + "\n  becomes " + right + '\n';
}

std::string Difference(const std::string& what, const std::vector<std::string>& left,
                       const std::vector<std::string>& right) {
    std::string text;
    for (std::size_t i = 0; i < std::max(left.size(), right.size()); ++i) {
        text +=
            Difference(what + ' ' + std::to_string(i + 1), i < left.size() ? left[i] : "(missing)",
                       i < right.size() ? right[i] : "(missing)");
    }
    return text;
}

std::vector<std::string> RowTexts(const PairText& pair) {
    std::vector<std::string> rows;
    std::ranges::transform(pair.rows, std::back_inserter(rows), Joined);
    return rows;
}

}  // namespace

PairText PairTextOf(std::string_view mif, std::string_view mid) {
    PairText pair;
    pair.delimiter = "\t";
    TakeHeader(mif, pair);
    Objects objects;
    objects.Take(mif);
    pair.objects = objects.All();
    while (!mid.empty()) {
        pair.rows.push_back(TakeRow(mid, pair));
    }
    return pair;
}

std::string DifferenceOf(const PairText& left, const PairText& right) {
    return Difference("charset", left.charset, right.charset) +
           Difference("delimiter", left.delimiter, right.delimiter) +
           Difference("clause", left.clause, right.clause) +
           Difference("header line", left.others, right.others) +
           Difference("column", left.columns, right.columns) +
           Difference("object", left.objects, right.objects) +
           Difference("row", RowTexts(left), RowTexts(right));
}

}  // namespace support
