#include "app/mif/Clauses.h"

#include "app/mif/MifTokens.h"
#include "app/mif/Numbers.h"
#include "app/mif/Words.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <vector>

namespace app {
namespace {

enum class Checks { Values, Angle, NoEffect, None };

struct ClauseForm {
    std::string_view word;
    Checks checks;
    std::size_t leastValues;
    std::size_t nameAt;  // the place of a value that is a name; none for 99
};

constexpr std::array kClauses = {
    ClauseForm{"Pen", Checks::Values, 3, 99},       ClauseForm{"Brush", Checks::Values, 2, 99},
    ClauseForm{"Symbol", Checks::Values, 2, 3},     ClauseForm{"Font", Checks::Values, 4, 0},
    ClauseForm{"Angle", Checks::Angle, 1, 99},      ClauseForm{"Smooth", Checks::NoEffect, 0, 99},
    ClauseForm{"Spacing", Checks::NoEffect, 0, 99}, ClauseForm{"Label", Checks::NoEffect, 0, 99},
    ClauseForm{"Center", Checks::None, 0, 99},      ClauseForm{"Justify", Checks::None, 0, 99},
};

const ClauseForm* FindClause(std::string_view word) {
    const auto* const found = std::ranges::find_if(
        kClauses, [&](const ClauseForm& form) { return EqualsIgnoringCase(form.word, word); });
    return found == kClauses.end() ? nullptr : found;
}

// The tokens behind the keyword without commas, brackets and line ends.
std::vector<MifToken> ValuesOf(const std::vector<MifToken>& tokens) {
    std::vector<MifToken> values;
    std::copy_if(
        tokens.begin() + 1, tokens.end(), std::back_inserter(values),
        [](const MifToken& token) { return token.kind != TokenKind::Mark && !token.IsLineEnd(); });
    return values;
}

bool IsValue(const MifToken& token) {
    return (token.kind == TokenKind::Word || token.kind == TokenKind::Quoted) &&
           !token.text.empty();
}

// Returns how many values, with at most one comma between two, begin at `at`.
std::size_t CountValues(const std::vector<MifToken>& tokens, std::size_t at) {
    std::size_t count = 0;
    while (at < tokens.size() && IsValue(tokens[at])) {
        ++count;
        ++at;
        at += at < tokens.size() && tokens[at].IsMark(',') ? 1 : 0;
    }
    return count;
}

// Values with a comma between each two, and nothing behind them but a parenthesis.
bool IsCommaList(const std::vector<MifToken>& tokens, std::size_t at) {
    while (at < tokens.size() && IsValue(tokens[at])) {
        ++at;
        if (at == tokens.size() || !tokens[at].IsMark(',')) {
            return true;
        }
        ++at;
    }
    return false;
}

}  // namespace

bool IsClauseKeyword(std::string_view word) {
    return FindClause(word) != nullptr;
}

void CheckClauseLine(std::string_view line, const Place& place, FindingCounter& report) {
    const std::vector<MifToken> tokens = TokensOf(line);
    const ClauseForm& form = *FindClause(tokens.front().text);
    const std::string name(form.word);
    if (form.checks == Checks::NoEffect) {
        report.Add(FindingCode::ClauseWithoutEffect, place, "the reader skips the clause " + name);
        return;
    }
    if (form.checks == Checks::None) {
        return;
    }
    const std::vector<MifToken> values = ValuesOf(tokens);
    if (values.size() < form.leastValues) {
        report.Add(FindingCode::StyleIncomplete, place,
                   "the clause " + name + " has " + Counted(values.size(), "value", "values") +
                       " and needs " + std::to_string(form.leastValues));
    }
    for (std::size_t i = 0; i < values.size(); ++i) {
        if (i == form.nameAt || IsWholeNumber(values[i].text)) {
            continue;
        }
        if (form.checks == Checks::Angle && IsDecimalNumber(values[i].text)) {
            if (ReadDouble(values[i].text) != static_cast<double>(ReadInteger(values[i].text))) {
                report.Add(FindingCode::AngleTruncated, place,
                           "the reader takes the angle " + std::string(values[i].text) + " as " +
                               std::to_string(ReadInteger(values[i].text)));
            }
            continue;
        }
        report.Add(FindingCode::StyleUnreadable, place,
                   "the value " + Quoted(values[i].text) + " of the clause " + name +
                       " is no whole number; the reader takes " +
                       std::to_string(ReadInteger(values[i].text)));
    }
}

bool IsSafeClause(std::string_view line) {
    const std::vector<MifToken> tokens = TokensOf(line);
    if (tokens.empty()) {
        return true;
    }
    const std::size_t at = tokens.size() > 1 && tokens[1].IsMark('(') ? 2 : 1;
    // These take the tokens that they need wherever they are.
    if (tokens[0].Is("pen")) {
        return CountValues(tokens, at) >= 3;
    }
    if (tokens[0].Is("font")) {
        return CountValues(tokens, at) >= 4;
    }
    if (tokens[0].Is("symbol")) {
        return CountValues(tokens, at) >= 2 && IsCommaList(tokens, at);
    }
    return true;
}

bool ClauseSafety::IsSafe(std::string_view lines) {
    const auto known = known_.find(std::string(lines));
    if (known != known_.end()) {
        return known->second;
    }
    bool isSafe = true;
    for (std::string_view rest = lines; !rest.empty() && isSafe;) {
        const std::size_t end = std::min(rest.find('\n'), rest.size());
        isSafe = IsSafeClause(rest.substr(0, end));
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    if (known_.size() == kMostEntries || bytes_ + lines.size() > kMostBytes) {
        known_.clear();
        bytes_ = 0;
    }
    bytes_ += lines.size();
    known_.emplace(lines, isSafe);
    return isSafe;
}

}  // namespace app
