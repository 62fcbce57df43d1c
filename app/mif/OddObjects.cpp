// The objects of ObjectPass that are not plain, and the lines that are no object at all. Each is
// read as it was meant, and the module does not see it.
#include "app/mif/ByteClasses.h"
#include "app/mif/Numbers.h"
#include "app/mif/ObjectPass.h"
#include "app/mif/OddNumbers.h"
#include "app/mif/Words.h"

#include <algorithm>
#include <iterator>
#include <limits>
#include <utility>

namespace app {
namespace {

constexpr int kDeepestCollection = 32;

// Lines of something else after which a clause still belongs to the object.
constexpr std::size_t kMostLinesBeforeClause = 8;
constexpr std::size_t kMostBlankLines = 64;

MifToken FirstToken(const MifLine& line) {
    return MifTokens(line.raw, line.begin).Next();
}

bool IsObject(const MifToken& token) {
    return (token.kind == TokenKind::Word || token.IsQuoted()) &&
           ObjectKindOf(token.text) != ObjectKind::Skipped;
}

bool IsClause(const MifToken& token) {
    return token.kind == TokenKind::Word && IsClauseKeyword(token.text);
}

bool EndsVertices(const MifLine& line) {
    const MifToken first = FirstToken(line);
    return first.IsQuoted() || IsObject(first) || IsClause(first);
}

bool LooksNumeric(const MifLine& line) {
    const MifToken first = FirstToken(line);
    const char c = first.text.empty() ? '\0' : first.text.front();
    return first.kind == TokenKind::Word && (IsByte(c, kFractionByte) || c == '-' || c == '+');
}

// A line with nothing but one whole number.
bool IsCountLine(const MifLine& line) {
    const std::vector<MifToken> tokens = TokensOf(line.raw, line.begin, 2);
    return tokens.size() == 1 && IsDigits(tokens.front().text);
}

// Whether what follows the first word of the line is numbers, and at least one.
bool HoldsOnlyNumbersBehindWord(const MifLine& line) {
    const std::vector<MifToken> tokens = TokensOf(line.raw, line.begin);
    return tokens.size() > 1 &&
           std::ranges::all_of(tokens.begin() + 1, tokens.end(), [](const MifToken& token) {
               return IsDecimalNumber(token.text) || HasDecimalComma(token.text) ||
                      token.IsMark(',');
           });
}

}  // namespace

// Takes the next line or object. False at the end of the file.
bool ObjectPass::TakeOddItem() {
    const MifLine* const line = lines_.Peek();
    if (line == nullptr) {
        return false;
    }
    report_.Settle(FileOfPair::Mif, line->begin);
    if (line->IsBlank()) {
        lines_.Skip();
    } else if (!IsObject(FirstToken(*line))) {
        TakeUnknown();
    } else {
        ObjectFacts facts;
        TakeObject(facts, 0);
        Finish(facts);
    }
    return true;
}

// The reader is at the line of the object's keyword.
void ObjectPass::TakeObject(ObjectFacts& facts, int depth) {
    const MifLine& line = *lines_.Peek();
    facts.kind = ObjectKindOf(FirstToken(line).text);
    if (facts.kind == ObjectKind::Collection) {
        ReadCollection(facts, depth);
        return;
    }
    if (depth > 0 && TakeOnePlainObject(facts)) {
        return;
    }
    object_ = ++numbered_;
    report_.SetKind(facts.kind);
    ReadOddObject(facts);
}

void ObjectPass::ReadOddObject(ObjectFacts& facts) {
    const std::uint64_t begin = lines_.Peek()->begin;
    points_.clear();
    pointLines_.clear();
    parts_.clear();
    lineClause_.clear();
    facts.isOwn = true;
    ReadOddGeometry(facts);
    const bool isMadeOfPoints =
        facts.kind == ObjectKind::Point || facts.kind == ObjectKind::Pline ||
        facts.kind == ObjectKind::Region || facts.kind == ObjectKind::Multipoint;
    if (isMadeOfPoints) {
        facts.points = points_;
    }
    if (!lineClause_.empty()) {
        facts.clauses = lineClause_ + "\n";
    }
    ReadClauses(facts);
    if (facts.isOwn) {
        sink_.Cut(begin, lines_.Here().offset, {});
    }
}

void ObjectPass::ReadOddGeometry(ObjectFacts& facts) {
    switch (facts.kind) {
    case ObjectKind::None:
        lines_.Skip();
        break;
    case ObjectKind::Point:
        ReadNumberObject(facts, 2);
        break;
    case ObjectKind::RoundRect:
        ReadRoundRect(facts);
        break;
    case ObjectKind::Arc:
        ReadArc(facts);
        break;
    case ObjectKind::Text:
        ReadText(facts);
        break;
    case ObjectKind::Pline:
        ReadPolyline(facts);
        break;
    case ObjectKind::Region:
        ReadSections(facts, TakeCount(1, "rings"), "ring(s)");
        break;
    case ObjectKind::Multipoint:
        ReadVertices(facts, TakeCount(1, "points"), false);
        break;
    default:
        ReadNumberObject(facts, 4);
    }
}

// What looks like an object of a kind that there is not has a row, which goes with it.
void ObjectPass::TakeUnknown() {
    const bool isObject = IsUnknownObject(0);
    SkipUnknown();
    if (isObject) {
        ObjectFacts skipped;
        skipped.kind = ObjectKind::Skipped;
        Finish(skipped);
    }
}

// Goes on to the next object.
void ObjectPass::SkipUnknown() {
    const MifLine line = *lines_.Peek();
    report_.Add(FindingCode::ObjectUnknown, {FileOfPair::Mif, line.number, numbered_ + 1},
                Quoted(FirstToken(line).text) + " is no object; the import stops");
    for (lines_.Skip(); lines_.Peek() != nullptr; lines_.Skip()) {
        const MifLine& next = *lines_.Peek();
        report_.Settle(FileOfPair::Mif, next.begin);
        if (!next.IsBlank() && IsObject(FirstToken(next))) {
            break;
        }
    }
    sink_.Cut(line.begin, lines_.Here().offset, {});
}

// Whether the line so far ahead is a word with numbers behind it, or with a line of numbers below.
bool ObjectPass::IsUnknownObject(std::size_t ahead) {
    const MifLine line = *lines_.Peek(ahead);
    if (FirstToken(line).kind != TokenKind::Word || LooksNumeric(line)) {
        return false;
    }
    const MifLine* const next = lines_.Peek(ahead + 1);
    return HoldsOnlyNumbersBehindWord(line) || (TokensOf(line.raw, line.begin, 2).size() == 1 &&
                                                next != nullptr && LooksNumeric(*next));
}

// The module takes each member for an object of its own, which is right; only the line that counts
// them is cut out.
void ObjectPass::ReadCollection(ObjectFacts& facts, int depth) {
    const std::uint64_t first = numbered_ + 1;
    const std::uint64_t begin = lines_.Peek()->begin;
    const Count count = TakeCount(1, "parts");
    sink_.Cut(begin, lines_.Here().offset, {});
    constexpr std::uint64_t kWithoutCount = 3;  // what the module takes for none
    const std::uint64_t parts = count.declared == 0 ? kWithoutCount : count.declared;
    std::uint64_t found = 0;
    while (found < parts) {
        while (lines_.Peek() != nullptr && lines_.Peek()->IsBlank()) {
            lines_.Skip();
        }
        if (lines_.Peek() == nullptr || depth == kDeepestCollection) {
            break;
        }
        report_.Settle(FileOfPair::Mif, lines_.Peek()->begin);
        if (!IsObject(FirstToken(*lines_.Peek()))) {
            found += IsUnknownObject(0) ? 1 : 0;
            SkipUnknown();
            continue;
        }
        ++found;
        const std::uint64_t line = lines_.Peek()->number;
        ObjectFacts member;
        TakeObject(member, depth + 1);
        FinishPoints();
        if (member.kind == ObjectKind::Collection) {
            report_.Add(FindingCode::CollectionNested, {FileOfPair::Mif, line, first},
                        "a Collection is a part of another one");
            std::ranges::move(member.members, std::back_inserter(facts.members));
        } else {
            ++counts_.members;
            facts.members.push_back(std::move(member));
        }
    }
    if (count.declared != 0 && found != count.declared) {
        report_.Add(FindingCode::CountMismatch, {FileOfPair::Mif, count.line, first},
                    "the count is " + std::to_string(count.declared) + ", but " +
                        Counted(found, "part follows", "parts follow"));
    }
}

// The line without the clause on it, which is kept for the object.
std::string_view ObjectPass::WithoutClause(const MifLine& line) {
    MifTokens tokens(line.raw, line.begin);
    tokens.Next();  // the keyword
    for (MifToken token = tokens.Next(); token.kind != TokenKind::End; token = tokens.Next()) {
        if (IsClause(token)) {
            const auto at = static_cast<std::size_t>(token.begin - line.begin);
            lineClause_.append(lineClause_.empty() ? "" : "\n").append(line.raw.substr(at));
            report_.Add(FindingCode::ClauseOnObjectLine, At(line.number),
                        "the clause " + std::string(token.text) +
                            " is on the line of the object; the reader skips it");
            return line.raw.substr(0, at);
        }
    }
    return line.raw;
}

std::vector<double> ObjectPass::NumbersOf(const MifLine& line, std::uint64_t from,
                                          std::size_t count) {
    const std::string_view text = WithoutClause(line);
    const auto at = std::min(static_cast<std::size_t>(from - line.begin), text.size());
    return ReadOddNumbers(text.substr(at), line.begin + at, count, At(line.number), report_);
}

// Point, Line, Rect, Ellipse: everything is on one line, or the numbers on the next one.
void ObjectPass::ReadNumberObject(ObjectFacts& facts, std::size_t count) {
    const MifLine keyword = *lines_.Peek();
    const MifToken first = FirstToken(keyword);
    const MifLine* const next = lines_.Peek(1);
    const bool isOnNextLine = TokensOf(keyword.raw, keyword.begin, 2).size() == 1 &&
                              next != nullptr && LooksNumeric(*next);
    if (isOnNextLine) {
        lines_.Skip();
        report_.Add(FindingCode::NumbersOnNextLine, At(keyword.number),
                    "the coordinates are on the next line; the reader takes them as 0");
    }
    const MifLine line = isOnNextLine ? *next : keyword;
    const std::vector<double> numbers =
        NumbersOf(line, isOnNextLine ? line.begin : first.end, count);
    lines_.Skip();
    std::ranges::copy(numbers, facts.numbers.begin());
    facts.hasNumbers = true;
    for (std::size_t i = 0; i + 1 < count; i += 2) {
        points_.push_back({numbers[i], numbers[i + 1]});
        pointLines_.push_back(line.number);
    }
    parts_.push_back(
        {count == 2 ? PartShape::Points : PartShape::Corners, 0, points_.size(), line.number, 0});
}

void ObjectPass::ReadRoundRect(ObjectFacts& facts) {
    const MifLine line = *lines_.Peek();
    const std::uint64_t from = FirstToken(line).end;
    const bool isOneLine = CountNumbers(line.raw.substr(from - line.begin)) >= 5;
    if (isOneLine) {
        const std::vector<double> numbers = NumbersOf(line, from, 5);
        std::ranges::copy(numbers, facts.numbers.begin());
        facts.hasNumbers = true;
        points_ = {{numbers[0], numbers[1]}, {numbers[2], numbers[3]}};
        pointLines_ = {line.number, line.number};
        parts_.push_back({PartShape::Corners, 0, 2, line.number, 0});
        lines_.Skip();
        return;
    }
    ReadNumberObject(facts, 4);
    const MifLine* const next = lines_.Peek();
    if (next != nullptr && !next->IsBlank() && !EndsVertices(*next)) {
        facts.numbers[4] = NumbersOf(*next, next->begin, 1)[0];
        lines_.Skip();
    } else {
        report_.Add(FindingCode::NumberMissing, At(next == nullptr ? 0 : next->number),
                    "the size of the round corners is missing");
    }
}

void ObjectPass::ReadArc(ObjectFacts& facts) {
    const MifLine first = *lines_.Peek();
    const std::uint64_t from = FirstToken(first).end;
    const bool isOneLine = CountNumbers(first.raw.substr(from - first.begin)) >= 6;
    const std::vector<double> numbers = NumbersOf(first, from, isOneLine ? 6 : 4);
    std::ranges::copy(numbers, facts.numbers.begin());
    points_ = {{numbers[0], numbers[1]}, {numbers[2], numbers[3]}};
    pointLines_ = {first.number, first.number};
    parts_.push_back({PartShape::Corners, 0, 2, first.number, 0});
    report_.Add(FindingCode::ArcMisplaced, At(first.number),
                "the reader computes the ends of an Arc in a way of its own");
    lines_.Skip();
    if (isOneLine) {
        facts.hasNumbers = true;
        OfferPolyline(first, first, facts.numbers);
        return;
    }
    const MifLine* const next = lines_.Peek();
    if (next == nullptr || next->IsBlank() || EndsVertices(*next)) {
        report_.Add(FindingCode::NumberMissing, At(first.number),
                    "the angles of the arc are missing");
        return;
    }
    std::ranges::copy(NumbersOf(*next, next->begin, 2), facts.numbers.begin() + 4);
    facts.hasNumbers = true;
    OfferPolyline(first, *next, facts.numbers);
    lines_.Skip();
}

ObjectPass::Count ObjectPass::CountIn(const MifLine& line, std::size_t tokenAt) {
    Count count;
    count.line = line.number;
    const std::vector<MifToken> tokens = TokensOf(line.raw, line.begin, tokenAt + 1);
    if (tokenAt < tokens.size()) {
        const MifToken& token = tokens[tokenAt];
        count.text = token.text;
        count.begin = token.begin;
        count.end = token.end;
        count.isWhole = IsDigits(count.text);
        count.declared =
            static_cast<std::uint64_t>(std::max<std::int64_t>(ReadInteger(count.text), 0));
    }
    return count;
}

// The count at that token of the next line, or alone on the line behind it. Takes the lines away.
ObjectPass::Count ObjectPass::TakeCount(std::size_t tokenAt, const char* what) {
    const MifLine line = *lines_.Peek();
    const std::string_view text = tokenAt == 0 ? line.raw : WithoutClause(line);
    const std::vector<MifToken> tokens = TokensOf(text, line.begin);
    lines_.Skip();
    Count count = CountIn(line, tokenAt);
    const MifLine* const next = lines_.Peek();
    if (tokens.size() == tokenAt && next != nullptr && IsCountLine(*next)) {
        count = CountIn(*next, 0);
        report_.Add(FindingCode::CountOnNextLine, At(line.number),
                    std::string("the count of ") + what +
                        " is on the next line; the reader takes it as 0");
        report_.Change(FileOfPair::Mif, {.begin = tokens.back().end,
                                         .end = count.begin,
                                         .text = " ",
                                         .code = FindingCode::CountOnNextLine,
                                         .line = line.number,
                                         .what = "the count moves to the line of its keyword"});
        lines_.Skip();
    }
    if (count.declared == 0 || !count.isWhole) {
        report_.Add(FindingCode::CountInvalid, At(count.line),
                    std::string("the count of ") + what + " is " + Quoted(count.text) +
                        "; the reader takes it as " + std::to_string(ReadInteger(count.text)));
    }
    return count;
}

// Blank lines inside an object. True when the object goes on behind them.
bool ObjectPass::SkipBlankLines() {
    std::size_t blanks = 0;
    const MifLine* line = lines_.Peek(0);
    while (line != nullptr && line->IsBlank() && blanks < kMostBlankLines) {
        line = lines_.Peek(++blanks);
    }
    if (line == nullptr || line->IsBlank()) {
        return false;
    }
    if (blanks == 0) {
        return true;
    }
    if (!LooksNumeric(*line) && !IsClause(FirstToken(*line))) {
        return false;
    }
    for (; blanks > 0; --blanks) {
        const MifLine& blank = *lines_.Peek();
        report_.Add(FindingCode::EmptyLineInObject, At(blank.number),
                    "an empty line is inside the object");
        report_.Change(FileOfPair::Mif, {.begin = blank.begin,
                                         .end = blank.next,
                                         .text = {},
                                         .code = FindingCode::EmptyLineInObject,
                                         .line = blank.number,
                                         .what = "the empty line goes"});
        lines_.Skip();
    }
    return true;
}

bool ObjectPass::TakesVertex(const MifLine& line, std::uint64_t taken, std::uint64_t declared,
                             bool isMoreToCome) {
    if (EndsVertices(line)) {
        return false;
    }
    if (IsCountLine(line) && (isMoreToCome || taken >= declared)) {
        // The count of the next section, unless vertices are still due and no vertex follows.
        const MifLine* const next = lines_.Peek(1);
        return taken < declared &&
               (next == nullptr || TokensOf(next->raw, next->begin, 2).size() < 2);
    }
    return LooksNumeric(line) || taken < declared;
}

void ObjectPass::ReportCount(const Count& count, std::uint64_t found, const std::string& message) {
    report_.Add(FindingCode::CountMismatch, At(count.line), message);
    if (count.isWhole && found > 0 &&
        (found + 1 == count.declared || found == count.declared + 1)) {
        report_.Change(FileOfPair::Mif,
                       {.begin = count.begin,
                        .end = count.end,
                        .text = std::to_string(found),
                        .code = FindingCode::CountMismatch,
                        .line = count.line,
                        .what = "the count " + count.text + " becomes " + std::to_string(found)});
    }
}

void ObjectPass::ReadVertices(ObjectFacts& facts, const Count& count, bool isMoreToCome) {
    const std::size_t begin = points_.size();
    const auto taken = [&] { return points_.size() - begin; };
    while (SkipBlankLines() && TakesVertex(*lines_.Peek(), taken(), count.declared, isMoreToCome)) {
        const MifLine& line = *lines_.Peek();
        const std::vector<double> numbers =
            ReadOddNumbers(line.raw, line.begin, 2, At(line.number), report_);
        points_.push_back({numbers[0], numbers[1]});
        pointLines_.push_back(line.number);
        lines_.Skip();
    }
    if (count.declared != 0 && taken() != count.declared) {
        ReportCount(count, taken(),
                    "the count is " + std::to_string(count.declared) + ", but " +
                        Counted(taken(), "vertex follows", "vertices follow"));
    }
    const PartShape shape = facts.kind == ObjectKind::Region  ? PartShape::Outline
                            : facts.kind == ObjectKind::Pline ? PartShape::Section
                                                              : PartShape::Points;
    parts_.push_back({shape, begin, taken(), count.line, 0});
    facts.partSizes.push_back(taken());
}

// The sections of a Region or of a Pline Multiple, each a count and its vertices.
void ObjectPass::ReadSections(ObjectFacts& facts, const Count& sections, const char* what) {
    std::uint64_t found = 0;
    while (SkipBlankLines() && !EndsVertices(*lines_.Peek()) && LooksNumeric(*lines_.Peek())) {
        ++found;
        ReadVertices(facts, TakeCount(0, "vertices"), true);
        // Clauses may come between the sections; all are the object's.
        while (found < sections.declared && lines_.Peek() != nullptr &&
               IsClause(FirstToken(*lines_.Peek()))) {
            const MifLine& line = *lines_.Peek();
            CheckClauseLine(line.raw, At(line.number), report_);
            lineClause_.append(lineClause_.empty() ? "" : "\n").append(line.raw);
            lines_.Skip();
        }
    }
    if (sections.declared != 0 && found != sections.declared) {
        ReportCount(sections, found,
                    "the count is " + std::to_string(sections.declared) + ", but " +
                        Counted(found, what, what) + (found == 1 ? " follows" : " follow"));
    }
}

void ObjectPass::ReadPolyline(ObjectFacts& facts) {
    const MifLine& line = *lines_.Peek();
    const std::vector<MifToken> tokens = TokensOf(line.raw, line.begin, 2);
    if (tokens.size() > 1 && tokens[1].Is("multiple")) {
        facts.isMultiple = true;
        ReadSections(facts, TakeCount(2, "sections"), "section(s)");
    } else {
        ReadVertices(facts, TakeCount(1, "vertices"), false);
        facts.partSizes.clear();
    }
}

// Lines that are nothing, with a clause behind them: the clause is still the object's. Takes the
// lines away and returns true when there is one.
bool ObjectPass::SkipLinesBeforeClause() {
    std::size_t ahead = 0;
    const MifLine* line = lines_.Peek(0);
    while (line != nullptr && ahead < kMostLinesBeforeClause && !IsClause(FirstToken(*line)) &&
           !IsObject(FirstToken(*line)) && !LooksNumeric(*line)) {
        if (IsUnknownObject(ahead)) {
            return false;  // the clauses behind it are its own
        }
        line = lines_.Peek(++ahead);
    }
    if (line == nullptr || !IsClause(FirstToken(*line))) {
        return false;
    }
    for (; ahead > 0; --ahead) {
        const MifLine& strange = *lines_.Peek();
        if (!strange.IsBlank()) {
            report_.Add(FindingCode::ObjectUnknown,
                        {FileOfPair::Mif, strange.number, numbered_ + 1},
                        Quoted(FirstToken(strange).text) + " is no object; the import stops");
        }
        lines_.Skip();
    }
    return true;
}

// The clauses that are left. Those that the module would stumble over are cut out, and all behind
// them.
void ObjectPass::ReadClauses(ObjectFacts& facts) {
    constexpr std::uint64_t kNowhere = std::numeric_limits<std::uint64_t>::max();
    std::uint64_t oddFrom = kNowhere;
    for (;;) {
        const std::uint64_t begin = lines_.Here().offset;
        if ((!SkipBlankLines() || !IsClause(FirstToken(*lines_.Peek()))) &&
            !SkipLinesBeforeClause()) {
            break;
        }
        const MifLine& line = *lines_.Peek();
        if (line.begin != begin || line.lineEnd == LineEnd::LoneCr || !IsSafeClause(line.raw) ||
            facts.kind == ObjectKind::None) {
            oddFrom = std::min(oddFrom, begin);
        }
        CheckClauseLine(line.raw, At(line.number), report_);
        facts.clauses.append(line.raw) += '\n';
        lines_.Skip();
    }
    if (!facts.isOwn && oddFrom != kNowhere) {
        sink_.Cut(oddFrom, lines_.Here().offset, {});
    }
}

}  // namespace app
