#include "app/mif/Cares.h"

#include <array>

namespace app {
namespace {

struct CareRow {
    FindingCode code;
    bool isLoss;
    const char* one;
    const char* many;
};

// What a finding means for the reading, behind its count.
constexpr std::array kCares = {
    CareRow{FindingCode::VersionMissing, false, "header without a version read all the same",
            "headers without a version read all the same"},
    CareRow{FindingCode::VersionInvalid, false, "invalid version passed over",
            "invalid versions passed over"},
    CareRow{FindingCode::VersionUnsupported, false, "unknown version read as the last known one",
            "unknown versions read as the last known one"},
    CareRow{FindingCode::DelimiterIgnored, false,
            "delimiter of several characters passed over: rows are split at the one before, or at "
            "tabs",
            "delimiters of several characters passed over: rows are split at the one before, or at "
            "tabs"},
    CareRow{FindingCode::DelimiterEmpty, false, "empty delimiter taken as a tab",
            "empty delimiters taken as tabs"},
    CareRow{FindingCode::ColumnCount, false, "number of columns taken from the lines that follow",
            "numbers of columns taken from the lines that follow"},
    CareRow{FindingCode::ColumnType, false, "column without a known type read as text",
            "columns without a known type read as text"},
    CareRow{FindingCode::ColumnNameCut, false, "column name with blanks taken whole",
            "column names with blanks taken whole"},
    CareRow{FindingCode::UniqueClause, true,
            "Unique clause passed over: the relation to another table is lost",
            "Unique clauses passed over: the relations to other tables are lost"},
    CareRow{FindingCode::TransformIgnored, false, "Transform clause applied to the coordinates",
            "Transform clauses, of which the last one is applied to the coordinates"},
    CareRow{FindingCode::ObjectUnknown, true, "line that is no object skipped",
            "lines that are no object skipped, with what follows them"},
    CareRow{FindingCode::CountMismatch, false,
            "count that differs from what follows; what follows was taken",
            "counts that differ from what follows; what follows was taken"},
    CareRow{FindingCode::CountInvalid, false,
            "count that is no number of 1 or more; what follows was taken",
            "counts that are no number of 1 or more; what follows was taken"},
    CareRow{FindingCode::CountOnNextLine, false,
            "vertex count taken from the line after the keyword",
            "vertex counts taken from the line after the keyword"},
    CareRow{FindingCode::NumbersOnNextLine, false,
            "object whose coordinates were taken from the line after the keyword",
            "objects whose coordinates were taken from the line after the keyword"},
    CareRow{FindingCode::CollectionNested, false,
            "collection inside a collection; its parts were taken for parts of the outer one",
            "collections inside collections; their parts were taken for parts of the outer ones"},
    CareRow{FindingCode::EmptyLineInObject, false, "empty line inside an object passed over",
            "empty lines inside objects passed over"},
    CareRow{FindingCode::NumberUnreadable, true,
            "coordinate that is no number, taken as the number it begins with, or 0",
            "coordinates that are no numbers, taken as the numbers they begin with, or 0"},
    CareRow{FindingCode::NumberMissing, true,
            "line with too few coordinates; the missing ones are 0",
            "lines with too few coordinates; the missing ones are 0"},
    CareRow{FindingCode::DecimalComma, false,
            "coordinate with a decimal comma read as it was meant",
            "coordinates with decimal commas read as they were meant"},
    CareRow{FindingCode::CommaInNumbers, false, "line with commas between its numbers read",
            "lines with commas between their numbers read"},
    CareRow{FindingCode::BlankAfterMinus, false, "minus sign joined with the digits behind a blank",
            "minus signs joined with the digits behind a blank"},
    CareRow{FindingCode::RestIgnored, true,
            "line with more than its object needs; the rest was left out",
            "lines with more than their objects need; the rest was left out"},
    CareRow{FindingCode::ClauseOnObjectLine, false, "style clause read from the line of its object",
            "style clauses read from the lines of their objects"},
    CareRow{FindingCode::QuoteUnclosed, false, "text without a closing quote ended with its line",
            "texts without a closing quote ended with their lines"},
};

Care CareFor(bool isLoss, std::uint64_t count, const char* one, const char* many,
             std::uint64_t line) {
    return {isLoss, count, CountedFrom(count, one, many, line)};
}

}  // namespace

std::string CountedFrom(std::uint64_t count, const char* one, const char* many,
                        std::uint64_t line) {
    std::string text = Counted(count, one, many);
    if (line > 0) {
        text += (count == 1 ? " (in line " : " (first in line ") + std::to_string(line) + ")";
    }
    return text;
}

std::vector<Care> CaresOf(const FindingCounts& findings) {
    std::vector<Care> cares;
    for (const CareRow& row : kCares) {
        const FindingCount& count = findings[static_cast<std::size_t>(row.code)];
        if (count.found > 0) {
            cares.push_back(CareFor(row.isLoss, count.found, row.one, row.many, count.first.line));
        }
    }
    return cares;
}

std::vector<Care> CaresOf(const RowCares& rows) {
    std::vector<Care> cares;
    const auto add = [&](const RowCare& care, const char* one, const char* many) {
        if (care.count > 0) {
            cares.push_back(CareFor(true, care.count, one, many, care.firstLine));
        }
    };
    add(rows.openQuotes, "row of the .mid file with a quote that nothing closes",
        "rows of the .mid file with a quote that nothing closes");
    add(rows.tooShort, "row of the .mid file with fewer values than columns; the others are empty",
        "rows of the .mid file with fewer values than columns; the others are empty");
    add(rows.tooLong, "row of the .mid file with more values than columns; the rest was left out",
        "rows of the .mid file with more values than columns; the rest was left out");
    return cares;
}

}  // namespace app
