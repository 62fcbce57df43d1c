#include "app/mif/HeaderPass.h"

#include "app/mif/Charsets.h"
#include "app/mif/CoordSysPass.h"
#include "app/mif/MifTokens.h"
#include "app/mif/Numbers.h"
#include "app/mif/Words.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>
#include <utility>

namespace app {
namespace {

// Where the module gives up looking for the Data line, and where this program does.
constexpr std::uint64_t kMaxHeaderBytes = 65536;
constexpr std::uint64_t kMostSearched = std::uint64_t{1} << 20;

constexpr std::array<std::string_view, 10> kKeywords = {
    "version",   "charset", "delimiter", "coordsys", "bounds",
    "transform", "columns", "index",     "unique",   "data"};

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
    kData,
    kNoKeyword
};

Keyword KeywordOf(std::string_view word) {
    const auto* const found = std::ranges::find_if(
        kKeywords, [&](std::string_view keyword) { return EqualsIgnoringCase(keyword, word); });
    return static_cast<Keyword>(found - kKeywords.begin());
}

// A line with its tokens.
struct HeaderLine {
    MifLine line;
    std::vector<MifToken> tokens;

    std::string TextAt(std::size_t place) const {
        return place < tokens.size() ? WithoutReturns(tokens[place].text) : std::string();
    }
};

class HeaderPass {
public:
    HeaderPass(LineReader& lines, FindingCounter& report, TabRewriting rewriting, MifHeader& header)
        : lines_(lines), report_(report), rewriting_(rewriting), header_(header) {}

    void Run();

private:
    void TakeClause(const HeaderLine& line, Keyword keyword);
    void TakeVersion(const HeaderLine& line);
    void TakeCharset(const HeaderLine& line);
    void TakeDelimiter(const HeaderLine& line);
    void TakeBounds(const HeaderLine& line);
    void TakeTransform(const HeaderLine& line);
    void TakeColumns(const HeaderLine& line);
    std::uint64_t TakeColumnLines(std::uint64_t declared);
    void CheckColumn(const MifLine& line, const Column& column);
    void TakeData(const HeaderLine& line);
    void CheckRest(const HeaderLine& line, std::size_t used);
    bool IsIncomplete() const;
    bool IsReadByModule() const;
    bool SwallowsNoClause() const;
    static Place At(const MifLine& line) { return {FileOfPair::Mif, line.number, 0}; }

    LineReader& lines_;
    FindingCounter& report_;
    TabRewriting rewriting_;
    MifHeader& header_;
    std::array<int, kKeywords.size()> seen_{};
    bool isTooLong_ = false;
    bool areLinesPlain_ = true;  // the module cuts the same lines
    bool areColumnsPlain_ = true;
    bool isVersionPlain_ = false;
    Keyword behindCoordSys_ = kNoKeyword;  // the clause of the line behind the last CoordSys
};

void HeaderPass::Run() {
    std::uint64_t last = 0;
    for (const MifLine* next = lines_.Peek(); next != nullptr && next->begin < kMostSearched;
         next = lines_.Peek()) {
        const HeaderLine line{*next, TokensOf(next->raw, next->begin)};
        last = next->number;
        report_.Settle(FileOfPair::Mif, next->begin);
        areLinesPlain_ = areLinesPlain_ && next->lineEnd != LineEnd::LoneCr && !next->isCut &&
                         next->raw.find('\0') == std::string_view::npos;
        if (next->begin > kMaxHeaderBytes && !isTooLong_) {
            isTooLong_ = true;
            report_.Add(FindingCode::HeaderTooLong, At(*next),
                        "no Data line within the first 65,536 bytes; the import stops");
        }
        const Keyword keyword = KeywordOf(line.TextAt(0));
        if (keyword == kNoKeyword) {
            if (!line.tokens.empty()) {
                report_.Add(FindingCode::HeaderLineSkipped, At(*next),
                            Quoted(line.tokens.front().text) +
                                " is no header clause; the reader skips the line");
            }
            lines_.Skip();
            continue;
        }
        if (++seen_[keyword] == 2) {
            report_.Add(FindingCode::ClauseRepeated, At(*next),
                        "a second " + std::string(line.tokens.front().text) + " clause");
        }
        if (keyword == kData) {
            TakeData(line);
            return;
        }
        TakeClause(line, keyword);
    }
    report_.Add(FindingCode::DataMissing, {FileOfPair::Mif, last, 0},
                "the file ends before a Data line; the import stops");
}

// CoordSys and Columns take their lines themselves, all others have one.
void HeaderPass::TakeClause(const HeaderLine& line, Keyword keyword) {
    switch (keyword) {
    case kCoordSys: {
        PassCoordSys(lines_, report_, header_);
        const MifLine* const next = lines_.Peek();
        behindCoordSys_ =
            next == nullptr ? kNoKeyword : KeywordOf(MifTokens(next->raw).Next().text);
        return;
    }
    case kColumns:
        lines_.Skip();
        TakeColumns(line);
        return;
    case kVersion:
        TakeVersion(line);
        break;
    case kCharset:
        TakeCharset(line);
        break;
    case kDelimiter:
        TakeDelimiter(line);
        break;
    case kBounds:
        TakeBounds(line);
        break;
    case kTransform:
        TakeTransform(line);
        break;
    case kUnique:
        report_.Add(FindingCode::UniqueClause, At(line.line),
                    "the reader does not support the Unique clause and warns of it");
        break;
    default:
        break;
    }
    lines_.Skip();
}

void HeaderPass::CheckRest(const HeaderLine& line, std::size_t used) {
    if (line.tokens.size() > used) {
        report_.Add(FindingCode::HeaderRestIgnored, At(line.line),
                    "the reader skips the rest of the line, from " +
                        Quoted(line.tokens[used].text) + " on");
    }
}

void HeaderPass::TakeVersion(const HeaderLine& line) {
    const std::string text = line.TextAt(1);
    const std::int64_t version = ReadInteger(text);
    isVersionPlain_ = false;
    if (version > 1100 && version < 3000) {
        report_.Add(FindingCode::VersionUnsupported, At(line.line),
                    "version " + std::to_string(version) + "; the reader warns and goes on");
    } else if (version != 1 && version != 2 && (version < 300 || version >= 3000)) {
        report_.Add(FindingCode::VersionInvalid, At(line.line),
                    "the version is " + Quoted(text) + "; the import stops");
    } else {
        isVersionPlain_ = true;
    }
    header_.hasVersion = true;
    header_.version = ReadInt(text);
    CheckRest(line, 2);
}

void HeaderPass::TakeCharset(const HeaderLine& line) {
    header_.charset = line.TextAt(1);
    if (!header_.charset.empty() && !EqualsIgnoringCase(header_.charset, "Neutral") &&
        FindCharset(header_.charset) == nullptr) {
        report_.Add(FindingCode::CharsetUnknown, At(line.line),
                    Quoted(header_.charset) + " is no charset that is known");
    }
    CheckRest(line, 2);
}

void HeaderPass::TakeDelimiter(const HeaderLine& line) {
    const std::string text = line.TextAt(1);
    if (text.size() > 2) {
        report_.Add(FindingCode::DelimiterIgnored, At(line.line),
                    "the reader ignores the delimiter " + Quoted(text) +
                        " of three or more characters");
    } else if (text.empty()) {
        header_.delimiter.clear();
        report_.Add(FindingCode::DelimiterEmpty, At(line.line),
                    "the Delimiter clause names no character");
    } else {
        header_.delimiter = text == "\\t" ? "\t" : text.substr(0, 1);
    }
    CheckRest(line, 2);
    if (rewriting_ == TabRewriting::On && line.tokens.size() > 1) {
        report_.Change(FileOfPair::Mif, {.begin = line.tokens[1].begin,
                                         .end = line.tokens[1].end,
                                         .text = "\",\"",
                                         .code = FindingCode::EmptyFieldUnderTab,
                                         .line = line.line.number,
                                         .what = "the delimiter becomes a comma"});
    }
}

// The numbers among the tokens from `first` on; a minus between blanks belongs to the number
// behind it.
std::vector<double> NumbersIn(const std::vector<MifToken>& tokens, std::size_t first) {
    std::vector<double> numbers;
    std::string sign;
    for (std::size_t i = first; i < tokens.size(); ++i) {
        if (tokens[i].text == "-") {
            sign = "-";
        } else if (IsDecimalNumber(tokens[i].text)) {
            numbers.push_back(ReadDouble(sign + std::string(tokens[i].text)));
            sign.clear();
        }
    }
    return numbers;
}

void HeaderPass::TakeBounds(const HeaderLine& line) {
    constexpr std::array<const char*, 10> kForm = {"(", "", ",", "", ")", "(", "", ",", "", ")"};
    bool isGood = line.tokens.size() > kForm.size();
    for (std::size_t i = 0; isGood && i < kForm.size(); ++i) {
        const std::string_view text = line.tokens[i + 1].text;
        const std::string_view expected = kForm[i];
        isGood = expected.empty() ? IsDecimalNumber(text) : text == expected;
    }
    const std::vector<double> numbers = NumbersIn(line.tokens, 1);
    if (!isGood) {
        areLinesPlain_ = false;
        report_.Add(FindingCode::BoundsUnreadable, At(line.line),
                    "the clause does not read (x1, y1) (x2, y2)");
    } else {
        CheckRest(line, kForm.size() + 1);
    }
    if (numbers.size() < 4) {
        return;
    }
    header_.bounds = shr::Box2d{numbers[0], numbers[1], numbers[2], numbers[3]};
    header_.ownBounds = header_.bounds;
    if (numbers[0] > numbers[2] || numbers[1] > numbers[3]) {
        report_.Add(FindingCode::BoundsReversed, At(line.line),
                    "the first corner is not below and left of the second");
    }
}

// A factor of 0 means that there is none.
void HeaderPass::TakeTransform(const HeaderLine& line) {
    // The module takes four words, from the next lines where this one has fewer.
    constexpr std::size_t kWords = 5;
    areLinesPlain_ = areLinesPlain_ && line.tokens.size() >= kWords;
    report_.Add(FindingCode::TransformIgnored, At(line.line),
                "the reader does not apply the Transform clause to the coordinates");
    std::vector<double> numbers = NumbersIn(line.tokens, 1);
    numbers.resize(4, 0.0);
    header_.transform =
        Transform{{numbers[0] == 0.0 ? 1.0 : numbers[0], numbers[1] == 0.0 ? 1.0 : numbers[1]},
                  {numbers[2], numbers[3]}};
}

// Whether from `at` on there are a type's widths and nothing else: nothing, or "(10)", "(6, 2)".
bool AreWidths(const std::vector<MifToken>& tokens, std::size_t at) {
    if (at == tokens.size()) {
        return true;
    }
    return tokens[at].IsMark('(') && tokens.back().IsMark(')') &&
           std::all_of(
               tokens.begin() + static_cast<std::ptrdiff_t>(at) + 1, tokens.end() - 1,
               [](const MifToken& token) { return token.IsMark(',') || IsDigits(token.text); });
}

// Returns where the type of a column is. A name without quotes may have blanks, so the type is
// looked for from the end.
std::size_t PlaceOfType(const std::vector<MifToken>& tokens) {
    if (tokens.front().IsQuoted()) {
        return 1;
    }
    for (std::size_t i = tokens.size(); i-- > 1;) {
        if (ColumnKindOf(tokens[i].text) != ColumnKind::Other && AreWidths(tokens, i + 1)) {
            return i;
        }
    }
    if (tokens.size() > 1 && ColumnKindOf(tokens[1].text) != ColumnKind::Other) {
        return 1;
    }
    // One that the format does not know: before its widths, or the last word.
    const auto bracket =
        std::ranges::find_if(tokens, [](const MifToken& token) { return token.IsMark('('); });
    const auto behind = static_cast<std::size_t>(bracket - tokens.begin());
    return std::max<std::size_t>(behind, 2) - 1;
}

Column ColumnOf(const HeaderLine& line) {
    const std::vector<MifToken>& tokens = line.tokens;
    Column column;
    const std::size_t typeAt = std::min(PlaceOfType(tokens), tokens.size());
    if (tokens.front().IsQuoted()) {
        column.name = WithoutReturns(tokens.front().text);
    } else {
        const std::uint64_t begin = tokens.front().begin - line.line.begin;
        const std::uint64_t end = tokens[typeAt - 1].end - line.line.begin;
        column.name = line.line.raw.substr(begin, end - begin);
    }
    column.hasBlankInName = !tokens.front().IsQuoted() && typeAt > 1;
    std::vector<int> sizes;
    for (std::size_t i = typeAt; i < tokens.size(); ++i) {
        column.typeText += tokens[i].text;
        if (IsDigits(tokens[i].text) && tokens[i].text.size() < 6) {
            sizes.push_back(ReadInt(tokens[i].text));
        }
    }
    if (typeAt < tokens.size()) {
        column.kind = ColumnKindOf(tokens[typeAt].text);
    }
    column.width = sizes.empty() ? 0 : sizes[0];
    column.decimals = sizes.size() > 1 ? sizes[1] : 0;
    return column;
}

// Takes the columns that are really there; returns how many.
std::uint64_t HeaderPass::TakeColumnLines(std::uint64_t declared) {
    std::uint64_t found = 0;
    for (const MifLine* next = lines_.Peek(); next != nullptr; next = lines_.Peek()) {
        const HeaderLine line{*next, TokensOf(next->raw, next->begin)};
        areLinesPlain_ = areLinesPlain_ && next->lineEnd != LineEnd::LoneCr && !next->isCut &&
                         next->raw.find('\0') == std::string_view::npos;
        if (line.tokens.empty()) {
            if (found >= declared) {
                break;
            }
            areColumnsPlain_ = false;
            lines_.Skip();
            continue;
        }
        const Column column = ColumnOf(line);
        const bool isKeyword = KeywordOf(line.tokens.front().text) != kNoKeyword;
        if (column.kind == ColumnKind::Other && (found >= declared || isKeyword)) {
            break;
        }
        // Where the module swallows the Columns line, it takes the columns for clauses.
        areColumnsPlain_ = areColumnsPlain_ && (!isKeyword || header_.coordSys.lackingParts == 0);
        CheckColumn(line.line, column);
        header_.columns.push_back(column);
        ++found;
        lines_.Skip();
    }
    return found;
}

void HeaderPass::CheckColumn(const MifLine& line, const Column& column) {
    if (column.hasBlankInName) {
        report_.Add(FindingCode::ColumnNameCut, At(line),
                    "the name " + Quoted(column.name) +
                        " has blanks and no quotes; the reader takes its first word");
    }
    if (column.kind == ColumnKind::Other) {
        report_.Add(FindingCode::ColumnType, At(line),
                    column.typeText.empty()
                        ? "the column " + Quoted(column.name) + " has no type"
                        : Quoted(column.typeText) + " is no type that is known");
    }
    const bool isRepeated = std::ranges::any_of(header_.columns, [&](const Column& other) {
        return EqualsIgnoringCase(other.name, column.name);
    });
    if (isRepeated) {
        report_.Add(FindingCode::ColumnRepeated, At(line),
                    "a second column " + Quoted(column.name));
    }
}

void HeaderPass::TakeColumns(const HeaderLine& line) {
    const std::string text = line.TextAt(1);
    const std::int64_t number = ReadInteger(text);
    const std::uint64_t declared = number > 0 ? static_cast<std::uint64_t>(number) : 0;
    const std::uint64_t found = TakeColumnLines(declared);
    if (found == declared && IsDigits(text)) {
        return;
    }
    areColumnsPlain_ = false;
    report_.Add(FindingCode::ColumnCount, At(line.line),
                "the number of columns is " + Quoted(text) + ", but " +
                    Counted(found, "column line follows", "column lines follow"));
    if (IsDigits(text) && (found + 1 == declared || found == declared + 1)) {
        report_.Change(FileOfPair::Mif, {.begin = line.tokens[1].begin,
                                         .end = line.tokens[1].end,
                                         .text = std::to_string(found),
                                         .code = FindingCode::ColumnCount,
                                         .line = line.line.number,
                                         .what = "the number of columns " + text + " becomes " +
                                                 std::to_string(found)});
    }
}

void HeaderPass::TakeData(const HeaderLine& line) {
    if (seen_[kVersion] == 0) {
        report_.Add(FindingCode::VersionMissing, At(line.line),
                    "no Version clause; the import stops");
    }
    if (IsIncomplete()) {
        report_.Add(FindingCode::HeaderIncomplete, At(line.line),
                    "none of Charset, Delimiter, CoordSys, Bounds and Columns; the import stops");
    }
    if (seen_[kCharset] == 0) {
        report_.Add(FindingCode::CharsetMissing, At(line.line), "the header has no Charset clause");
    }
    if (seen_[kDelimiter] == 0 && !header_.columns.empty()) {
        report_.Add(FindingCode::DelimiterMissing, At(line.line),
                    "the header has no Delimiter clause; the reader splits rows at tabs");
    }
    if (seen_[kDelimiter] == 0 && rewriting_ == TabRewriting::On) {
        report_.Change(FileOfPair::Mif,
                       {.begin = line.line.begin,
                        .end = line.line.begin,
                        .text = std::string("Delimiter \",\"") + LineEndText(line.line.lineEnd),
                        .code = FindingCode::EmptyFieldUnderTab,
                        .line = line.line.number,
                        .what = "the delimiter becomes a comma"});
    }
    if (header_.coordSys.text.empty()) {
        report_.Add(FindingCode::CoordSysMissing, At(line.line),
                    "the header has no CoordSys clause");
    }
    CheckRest(line, 1);
    header_.hasData = true;
    header_.dataOffset = line.line.next;
    header_.dataLine = line.line.number + 1;
    // The module does not find a Data line that nothing ends.
    areLinesPlain_ = areLinesPlain_ && line.line.lineEnd != LineEnd::None;
    header_.isReadByModule = IsReadByModule();
    lines_.Skip();
}

// The module wants one of these.
bool HeaderPass::IsIncomplete() const {
    return seen_[kDelimiter] + seen_[kCoordSys] + seen_[kColumns] + seen_[kCharset] +
               seen_[kBounds] ==
           0;
}

bool HeaderPass::IsReadByModule() const {
    return lines_.Start() == FileStart::Plain && areLinesPlain_ && areColumnsPlain_ &&
           !isTooLong_ && seen_[kVersion] > 0 && !IsIncomplete() && isVersionPlain_ &&
           seen_[kUnique] == 0 && seen_[kCoordSys] <= 1 && header_.coordSys.isReadByModule &&
           SwallowsNoClause();
}

// Whether the clause that the module takes for the rest of CoordSys, if any, may be lost.
bool HeaderPass::SwallowsNoClause() const {
    const bool mayBeLost = behindCoordSys_ == kColumns || behindCoordSys_ == kDelimiter ||
                           behindCoordSys_ == kCharset || behindCoordSys_ == kTransform ||
                           behindCoordSys_ == kIndex;
    const std::size_t swallowed = header_.coordSys.lackingParts - header_.coordSys.emptyLinesBehind;
    return swallowed == 0 || (swallowed == 1 && mayBeLost);
}

}  // namespace

void PassHeader(LineReader& lines, FindingCounter& report, TabRewriting rewriting,
                MifHeader& header) {
    header.start = lines.Start();
    HeaderPass(lines, report, rewriting, header).Run();
}

}  // namespace app
