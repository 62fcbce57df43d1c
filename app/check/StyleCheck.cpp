#include "app/check/StyleCheck.h"

#include "app/mif/Numbers.h"
#include "app/mif/Words.h"

#include <algorithm>
#include <array>
#include <string>
#include <vector>

namespace app::check {
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

std::vector<MifToken> ValuesOf(const MifLine& line) {
    std::vector<MifToken> values;
    for (std::size_t i = 1; i < line.tokens.size(); ++i) {
        const std::string_view text = line.tokens[i].text;
        if (line.tokens[i].IsQuoted() || (text != "(" && text != ")" && text != ",")) {
            values.push_back(line.tokens[i]);
        }
    }
    return values;
}

}  // namespace

bool IsClause(std::string_view word) {
    return FindClause(word) != nullptr;
}

void CheckClauseLine(const MifLine& line, const Place& place, Report& report) {
    const ClauseForm& form = *FindClause(line.tokens.front().text);
    const std::string name(form.word);
    if (form.checks == Checks::NoEffect) {
        report.Add(Code::ClauseWithoutEffect, place, "the reader skips the clause " + name);
        return;
    }
    if (form.checks == Checks::None) {
        return;
    }
    const std::vector<MifToken> values = ValuesOf(line);
    if (values.size() < form.leastValues) {
        report.Add(Code::StyleIncomplete, place,
                   "the clause " + name + " has " + Counted(values.size(), "value", "values") +
                       " and needs " + std::to_string(form.leastValues));
    }
    for (std::size_t i = 0; i < values.size(); ++i) {
        if (i == form.nameAt || IsWholeNumber(values[i].text)) {
            continue;
        }
        if (form.checks == Checks::Angle && IsDecimalNumber(values[i].text)) {
            if (ReadDouble(values[i].text) != static_cast<double>(ReadInteger(values[i].text))) {
                report.Add(Code::AngleTruncated, place,
                           "the reader takes the angle " + std::string(values[i].text) + " as " +
                               std::to_string(ReadInteger(values[i].text)));
            }
            continue;
        }
        report.Add(Code::StyleUnreadable, place,
                   "the value " + Quoted(values[i].text) + " of the clause " + name +
                       " is no whole number; the reader takes " +
                       std::to_string(ReadInteger(values[i].text)));
    }
}

}  // namespace app::check
