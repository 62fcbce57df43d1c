#include "app/check/HeaderCheck.h"

#include "app/check/CharsetCheck.h"
#include "app/check/CoordSysCheck.h"
#include "app/mif/Numbers.h"
#include "app/mif/Words.h"

#include <array>
#include <optional>
#include <string_view>
#include <utility>

namespace app::check {
namespace {

constexpr std::uint64_t kMaxHeaderBytes = 65536;

constexpr std::array<std::string_view, 10> kKeywords = {
    "version",   "charset", "delimiter", "coordsys", "bounds",
    "transform", "columns", "index",     "unique",   "data"};

bool IsKeyword(std::string_view text) {
    for (const std::string_view keyword : kKeywords) {
        if (EqualsIgnoringCase(keyword, text)) {
            return true;
        }
    }
    return false;
}

Column ColumnOf(const MifLine& line) {
    Column column;
    column.name = line.tokens[0].text;
    if (line.tokens.size() > 1) {
        column.typeText = line.tokens[1].text;
        column.kind = ColumnKindOf(column.typeText);
    }
    std::vector<int> sizes;
    for (std::size_t i = 2; i < line.tokens.size(); ++i) {
        const std::string_view text = line.tokens[i].text;
        if (IsDigits(text) && text.size() < 6) {
            sizes.push_back(static_cast<int>(ReadInteger(text)));
        }
    }
    column.width = sizes.empty() ? 0 : sizes[0];
    column.decimals = sizes.size() > 1 ? sizes[1] : 0;
    return column;
}

class HeaderChecker {
public:
    HeaderChecker(LineReader& lines, Report& report, TabRewriting rewriting, CheckedHeader& header)
        : lines_(lines), report_(report), rewriting_(rewriting), header_(header) {}

    void Check();

private:
    void CheckClause(const MifLine& line, std::size_t keyword);
    void CheckVersion(const MifLine& line);
    void CheckCharset(const MifLine& line);
    void CheckDelimiter(const MifLine& line);
    void CheckBounds(const MifLine& line);
    void CheckTransform(const MifLine& line);
    void CheckColumns();
    std::uint64_t TakeColumns(std::uint64_t declared);
    void CheckData(const MifLine& line);
    void CheckRest(const MifLine& line, std::size_t used);
    Place At(const MifLine& line) const { return {PairFile::Mif, line.number, 0}; }

    LineReader& lines_;
    Report& report_;
    TabRewriting rewriting_;
    CheckedHeader& header_;
    std::array<int, kKeywords.size()> seen_{};
    bool isTooLong_ = false;
};

enum Keyword : std::size_t {
    kVersion,
    kCharset,
    kDelimiter,
    kCoordSys,
    kBounds,
    kTransform,
    kColumns,
    kIndex,
    kUnique,
    kData
};

void HeaderChecker::Check() {
    std::uint64_t last = 0;
    for (const MifLine* line = lines_.Peek(); line != nullptr; line = lines_.Peek()) {
        last = line->number;
        report_.Settle(PairFile::Mif, line->begin);
        if (line->begin > kMaxHeaderBytes && !isTooLong_) {
            isTooLong_ = true;
            report_.Add(Code::HeaderTooLong, At(*line),
                        "no Data line within the first 65,536 bytes; the import stops");
        }
        std::size_t keyword = kKeywords.size();
        for (std::size_t i = 0; i < kKeywords.size() && !line->IsBlank(); ++i) {
            if (EqualsIgnoringCase(kKeywords[i], line->tokens.front().text)) {
                keyword = i;
            }
        }
        if (keyword == kKeywords.size()) {
            if (!line->IsBlank()) {
                report_.Add(Code::HeaderLineSkipped, At(*line),
                            Quoted(line->tokens.front().text) +
                                " is no header clause; the reader skips the line");
            }
            lines_.Skip();
            continue;
        }
        if (++seen_[keyword] == 2) {
            report_.Add(Code::ClauseRepeated, At(*line),
                        "a second " + std::string(line->tokens.front().text) + " clause");
        }
        if (keyword == kData) {
            CheckData(*line);
            header_.hasData = true;
            lines_.Skip();
            return;
        }
        CheckClause(*line, keyword);
    }
    report_.Add(Code::DataMissing, {PairFile::Mif, last, 0},
                "the file ends before a Data line; the import stops");
}

// CoordSys and Columns take their lines themselves, all others have one.
void HeaderChecker::CheckClause(const MifLine& line, std::size_t keyword) {
    switch (keyword) {
    case kVersion:
        CheckVersion(line);
        break;
    case kCharset:
        CheckCharset(line);
        break;
    case kDelimiter:
        CheckDelimiter(line);
        break;
    case kCoordSys:
        CheckCoordSys(lines_, report_, header_);
        return;
    case kBounds:
        CheckBounds(line);
        break;
    case kTransform:
        CheckTransform(line);
        break;
    case kColumns:
        CheckColumns();
        return;
    case kUnique:
        report_.Add(Code::UniqueClause, At(line),
                    "the reader does not support the Unique clause and warns of it");
        break;
    default:
        break;
    }
    lines_.Skip();
}

void HeaderChecker::CheckRest(const MifLine& line, std::size_t used) {
    if (line.tokens.size() > used) {
        report_.Add(Code::HeaderRestIgnored, At(line),
                    "the reader skips the rest of the line, from " +
                        Quoted(line.tokens[used].text) + " on");
    }
}

void HeaderChecker::CheckVersion(const MifLine& line) {
    const std::string text(line.tokens.size() > 1 ? line.tokens[1].text : "");
    const std::int64_t version = ReadInteger(text);
    if (version > 1100 && version < 3000) {
        report_.Add(Code::VersionUnsupported, At(line),
                    "version " + std::to_string(version) + "; the reader warns and goes on");
    } else if (version != 1 && version != 2 && (version < 300 || version >= 3000)) {
        report_.Add(Code::VersionInvalid, At(line),
                    "the version is " + Quoted(text) + "; the import stops");
    }
    CheckRest(line, 2);
}

void HeaderChecker::CheckCharset(const MifLine& line) {
    header_.charset = line.tokens.size() > 1 ? line.tokens[1].text : "";
    if (CharsetTester(header_.charset).Kind() == CharsetKind::Unknown) {
        report_.Add(Code::CharsetUnknown, At(line),
                    Quoted(header_.charset) + " is no charset that is known");
    }
    CheckRest(line, 2);
}

void HeaderChecker::CheckDelimiter(const MifLine& line) {
    const std::string text(line.tokens.size() > 1 ? line.tokens[1].text : "");
    if (text.size() > 2) {
        report_.Add(Code::DelimiterIgnored, At(line),
                    "the reader ignores the delimiter " + Quoted(text) +
                        " of three or more characters");
    } else if (text.empty()) {
        header_.delimiter.clear();
        report_.Add(Code::DelimiterEmpty, At(line), "the Delimiter clause names no character");
    } else {
        header_.delimiter = text.substr(0, 1);
    }
    CheckRest(line, 2);
    if (rewriting_ == TabRewriting::On && line.tokens.size() > 1) {
        report_.Change(PairFile::Mif, {.begin = line.tokens[1].begin,
                                       .end = line.tokens[1].end,
                                       .text = "\",\"",
                                       .code = Code::EmptyFieldUnderTab,
                                       .line = line.number,
                                       .what = "the delimiter becomes a comma"});
    }
}

void HeaderChecker::CheckBounds(const MifLine& line) {
    constexpr std::array<const char*, 10> kForm = {"(", "", ",", "", ")", "(", "", ",", "", ")"};
    std::array<double, 4> numbers{};
    std::size_t count = 0;
    bool isGood = line.tokens.size() > kForm.size();
    for (std::size_t i = 0; isGood && i < kForm.size(); ++i) {
        const std::string_view text = line.tokens[i + 1].text;
        const std::string_view expected = kForm[i];
        isGood = expected.empty() ? IsDecimalNumber(text) : text == expected;
        if (isGood && expected.empty()) {
            numbers[count++] = ReadDouble(text);
        }
    }
    if (!isGood) {
        report_.Add(Code::BoundsUnreadable, At(line), "the clause does not read (x1, y1) (x2, y2)");
        return;
    }
    CheckRest(line, kForm.size() + 1);
    if (numbers[0] > numbers[2] || numbers[1] > numbers[3]) {
        report_.Add(Code::BoundsReversed, At(line),
                    "the first corner is not below and left of the second");
    }
    header_.bounds = Box{std::min(numbers[0], numbers[2]), std::min(numbers[1], numbers[3]),
                         std::max(numbers[0], numbers[2]), std::max(numbers[1], numbers[3])};
}

void HeaderChecker::CheckTransform(const MifLine& line) {
    report_.Add(Code::TransformIgnored, At(line),
                "the reader does not apply the Transform clause to the coordinates");
    // The declared bounds may be those after the transformation.
    header_.bounds.reset();
}

// Takes the columns that really stand there; answers how many.
std::uint64_t HeaderChecker::TakeColumns(std::uint64_t declared) {
    std::uint64_t found = 0;
    for (const MifLine* line = lines_.Peek(); line != nullptr; line = lines_.Peek()) {
        if (line->IsBlank()) {
            if (found >= declared) {
                break;
            }
            lines_.Skip();
            continue;
        }
        const Column column = ColumnOf(*line);
        const bool isTyped = column.kind != ColumnKind::Other;
        if (!isTyped && (found >= declared || IsKeyword(column.name))) {
            break;
        }
        if (!isTyped) {
            report_.Add(Code::ColumnType, At(*line),
                        column.typeText.empty()
                            ? "the column " + Quoted(column.name) + " has no type"
                            : Quoted(column.typeText) + " is no type that is known");
        }
        for (const Column& other : header_.columns) {
            if (EqualsIgnoringCase(other.name, column.name)) {
                report_.Add(Code::ColumnRepeated, At(*line),
                            "a second column " + Quoted(column.name));
                break;
            }
        }
        header_.columns.push_back(column);
        ++found;
        lines_.Skip();
    }
    return found;
}

void HeaderChecker::CheckColumns() {
    const MifLine line = *lines_.Peek();
    lines_.Skip();
    const std::string text(line.tokens.size() > 1 ? line.tokens[1].text : "");
    const std::int64_t number = ReadInteger(text);
    const std::uint64_t declared = number > 0 ? static_cast<std::uint64_t>(number) : 0;
    const std::uint64_t found = TakeColumns(declared);
    if (found == declared && IsDigits(text)) {
        return;
    }
    report_.Add(Code::ColumnCount, At(line),
                "the number of columns is " + Quoted(text) + ", but " +
                    Counted(found, "column line follows", "column lines follow"));
    if (IsDigits(text) && (found + 1 == declared || found == declared + 1)) {
        report_.Change(PairFile::Mif, {.begin = line.tokens[1].begin,
                                       .end = line.tokens[1].end,
                                       .text = std::to_string(found),
                                       .code = Code::ColumnCount,
                                       .line = line.number,
                                       .what = "the number of columns " + text + " becomes " +
                                               std::to_string(found)});
    }
}

void HeaderChecker::CheckData(const MifLine& line) {
    if (seen_[kVersion] == 0) {
        report_.Add(Code::VersionMissing, At(line), "no Version clause; the import stops");
    }
    if (seen_[kDelimiter] + seen_[kCoordSys] + seen_[kColumns] + seen_[kCharset] + seen_[kBounds] ==
        0) {
        report_.Add(Code::HeaderIncomplete, At(line),
                    "none of Charset, Delimiter, CoordSys, Bounds and Columns; the import stops");
    }
    if (seen_[kCharset] == 0) {
        report_.Add(Code::CharsetMissing, At(line), "the header has no Charset clause");
    }
    if (seen_[kDelimiter] == 0 && !header_.columns.empty()) {
        report_.Add(Code::DelimiterMissing, At(line),
                    "the header has no Delimiter clause; the reader splits rows at tabs");
    }
    if (seen_[kDelimiter] == 0 && rewriting_ == TabRewriting::On) {
        report_.Change(PairFile::Mif,
                       {.begin = line.begin,
                        .end = line.begin,
                        .text = std::string("Delimiter \",\"") + LineEndText(line.lineEnd),
                        .code = Code::EmptyFieldUnderTab,
                        .line = line.number,
                        .what = "the delimiter becomes a comma"});
    }
    if (!header_.isCoordSysGiven) {
        report_.Add(Code::CoordSysMissing, At(line), "the header has no CoordSys clause");
    }
    CheckRest(line, 1);
}

}  // namespace

void CheckHeader(LineReader& lines, Report& report, TabRewriting rewriting, CheckedHeader& header) {
    HeaderChecker(lines, report, rewriting, header).Check();
}

}  // namespace app::check
