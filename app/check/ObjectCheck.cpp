#include "app/check/ObjectCheck.h"

#include "app/check/ArcPoints.h"
#include "app/check/NumberLine.h"
#include "app/check/RingCheck.h"
#include "app/check/StyleCheck.h"
#include "app/mif/Numbers.h"
#include "app/mif/Words.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace app::check {
namespace {

constexpr std::array<std::string_view, 12> kObjects = {
    "none", "point", "line",      "pline",   "region",     "arc",
    "text", "rect",  "roundrect", "ellipse", "collection", "multipoint"};

bool IsObject(std::string_view word) {
    return std::ranges::any_of(
        kObjects, [&](std::string_view object) { return EqualsIgnoringCase(object, word); });
}

bool Is(const MifLine& line, std::string_view word) {
    return !line.IsBlank() && line.tokens.front().Is(word);
}

bool EndsVertices(const MifLine& line) {
    const MifToken& first = line.tokens.front();
    return first.IsQuoted() || IsObject(first.text) || IsClause(first.text);
}

bool LooksNumeric(const MifLine& line) {
    const char c = line.raw[static_cast<std::size_t>(line.tokens.front().begin - line.begin)];
    return (c >= '0' && c <= '9') || c == '-' || c == '+' || c == '.';
}

// A line with nothing but one whole number.
bool IsCountLine(const MifLine& line) {
    return line.tokens.size() == 1 && IsDigits(line.tokens.front().text);
}

// A count as it stands in the file.
struct Count {
    std::uint64_t declared = 0;  // 0: none that the reader takes
    std::string text;
    std::uint64_t begin = 0;  // offsets of the text
    std::uint64_t end = 0;
    std::uint64_t line = 0;
    bool isWhole = false;
};

enum class Shape { Polyline, Ring, Points };

class ObjectChecker {
public:
    ObjectChecker(LineReader& lines, Report& report, const CheckedHeader& header,
                  std::uint64_t& object)
        : lines_(lines), report_(report), header_(header), object_(object) {}

    ObjectCounts Check();

private:
    void CheckObject(int depth);
    void CheckUnknown();
    void CheckNumbers(std::size_t count);
    void CheckRoundRect();
    void CheckArc();
    void CheckText();
    void CheckPolyline();
    void CheckRegion();
    void CheckMultipoint();
    void CheckCollection(int depth);
    void CheckClauses();

    Count TakeCount(std::size_t tokenAt, const char* what);
    Count CountIn(const MifLine& line, std::size_t tokenAt) const;
    void CheckSections(const Count& sections, const char* what, Shape shape);
    void CheckVertices(const Count& count, Shape shape, bool isMoreToCome);
    bool SkipBlankLines();
    bool TakesVertex(const MifLine& line, std::uint64_t taken, std::uint64_t declared,
                     bool isMoreToCome);
    void ReportCount(const Count& count, std::uint64_t found, const std::string& message);
    void CheckShape(const std::vector<Vertex>& vertices, Shape shape, std::uint64_t line);
    void CheckPlace(const Vertex& vertex, std::uint64_t line);
    void OfferPolyline(const MifLine& first, const MifLine& last,
                       const std::vector<double>& numbers, const std::vector<double>& angles);

    Place At(std::uint64_t line) const { return {PairFile::Mif, line, object_}; }

    LineReader& lines_;
    Report& report_;
    const CheckedHeader& header_;
    std::uint64_t& object_;
    ObjectCounts counts_;
    RingTester rings_;
    bool isOutsideReported_ = false;  // for this object
};

ObjectCounts ObjectChecker::Check() {
    for (const MifLine* line = lines_.Peek(); line != nullptr; line = lines_.Peek()) {
        report_.Settle(PairFile::Mif, line->begin);
        if (line->IsBlank()) {
            lines_.Skip();
        } else {
            CheckObject(0);
        }
    }
    if (counts_.objects == 0) {
        report_.Add(Code::NoObjects, {}, "no object follows the Data line");
    }
    return counts_;
}

void ObjectChecker::CheckObject(int depth) {
    const MifLine& line = *lines_.Peek();
    if (Is(line, "collection")) {
        CheckCollection(depth);
        return;
    }
    if (!IsObject(line.tokens.front().text)) {
        CheckUnknown();
        return;
    }
    object_ = ++counts_.objects;
    counts_.parts += depth > 0 ? 1U : 0U;
    isOutsideReported_ = false;
    if (Is(line, "none")) {
        lines_.Skip();
        return;
    }
    if (Is(line, "pline")) {
        CheckPolyline();
    } else if (Is(line, "region")) {
        CheckRegion();
    } else if (Is(line, "multipoint")) {
        CheckMultipoint();
    } else if (Is(line, "arc")) {
        CheckArc();
    } else if (Is(line, "text")) {
        CheckText();
    } else if (Is(line, "roundrect")) {
        CheckRoundRect();
    } else {
        CheckNumbers(Is(line, "point") ? 2 : 4);
    }
    CheckClauses();
}

void ObjectChecker::CheckUnknown() {
    const MifLine& line = *lines_.Peek();
    report_.Add(Code::ObjectUnknown, {PairFile::Mif, line.number, object_ + 1},
                Quoted(line.tokens.front().text) + " is no object; the import stops");
    for (lines_.Skip(); lines_.Peek() != nullptr; lines_.Skip()) {
        const MifLine& next = *lines_.Peek();
        report_.Settle(PairFile::Mif, next.begin);
        if (!next.IsBlank() && IsObject(next.tokens.front().text)) {
            return;
        }
    }
}

// Point, Line, Rect, Ellipse: everything stands on one line.
void ObjectChecker::CheckNumbers(std::size_t count) {
    const MifLine& line = *lines_.Peek();
    const std::vector<double> numbers =
        ReadNumbers(line, line.tokens.front().end, count, At(line.number), report_);
    for (std::size_t i = 0; i + 1 < numbers.size(); i += 2) {
        CheckPlace({numbers[i], numbers[i + 1]}, line.number);
    }
    lines_.Skip();
}

void ObjectChecker::CheckRoundRect() {
    const MifLine& line = *lines_.Peek();
    const bool isOneLine = CountNumbers(line, line.tokens.front().end) >= 5;
    CheckNumbers(isOneLine ? 5 : 4);
    const MifLine* next = lines_.Peek();
    if (!isOneLine && next != nullptr && !next->IsBlank() && !EndsVertices(*next)) {
        static_cast<void>(ReadNumbers(*next, next->begin, 1, At(next->number), report_));
        lines_.Skip();
    } else if (!isOneLine) {
        report_.Add(Code::NumberMissing, At(next == nullptr ? 0 : next->number),
                    "the size of the round corners is missing");
    }
}

void ObjectChecker::CheckArc() {
    const MifLine first = *lines_.Peek();
    const std::uint64_t from = first.tokens.front().end;
    const bool isOneLine = CountNumbers(first, from) >= 6;
    std::vector<double> numbers =
        ReadNumbers(first, from, isOneLine ? 6 : 4, At(first.number), report_);
    CheckPlace({numbers[0], numbers[1]}, first.number);
    CheckPlace({numbers[2], numbers[3]}, first.number);
    report_.Add(Code::ArcMisplaced, At(first.number),
                "the reader computes the ends of an Arc in a way of its own");
    lines_.Skip();
    if (isOneLine) {
        OfferPolyline(first, first, numbers, {numbers[4], numbers[5]});
        return;
    }
    const MifLine* next = lines_.Peek();
    if (next == nullptr || next->IsBlank() || EndsVertices(*next)) {
        report_.Add(Code::NumberMissing, At(first.number), "the angles of the arc are missing");
        return;
    }
    const std::vector<double> angles =
        ReadNumbers(*next, next->begin, 2, At(next->number), report_);
    OfferPolyline(first, *next, numbers, angles);
    lines_.Skip();
}

void ObjectChecker::OfferPolyline(const MifLine& first, const MifLine& last,
                                  const std::vector<double>& numbers,
                                  const std::vector<double>& angles) {
    const auto isFinite = [](double number) { return std::isfinite(number); };
    if (!std::ranges::all_of(numbers, isFinite) || !std::ranges::all_of(angles, isFinite)) {
        return;
    }
    const Box box{std::min(numbers[0], numbers[2]), std::min(numbers[1], numbers[3]),
                  std::max(numbers[0], numbers[2]), std::max(numbers[1], numbers[3])};
    const std::vector<Vertex> points = ArcPoints(box, angles[0], angles[1]);
    report_.Change(PairFile::Mif, {.begin = first.begin,
                                   .end = last.end,
                                   .text = PlineText(points, LineEndText(first.lineEnd)),
                                   .code = Code::ArcMisplaced,
                                   .line = first.number,
                                   .what = "the Arc becomes a Pline of " +
                                           std::to_string(points.size()) + " points"});
}

// The reader takes the text from the next line when there is none behind the keyword.
void ObjectChecker::CheckText() {
    const MifLine first = *lines_.Peek();
    lines_.Skip();
    MifToken text = first.tokens.size() > 1 ? first.tokens[1] : MifToken{};
    std::uint64_t where = first.number;
    const MifLine* next = lines_.Peek();
    const bool isOnNextLine =
        first.tokens.size() == 1 && next != nullptr && !next->IsBlank() &&
        (next->tokens.front().IsQuoted() || (!LooksNumeric(*next) && !EndsVertices(*next)));
    if (isOnNextLine) {
        text = next->tokens.front();
        where = next->number;
        lines_.Skip();
        next = lines_.Peek();
    }
    if (text.text.empty()) {
        ++counts_.emptyTexts;
        report_.Add(Code::TextEmpty, At(where),
                    isOnNextLine ? "the Text has no text; the reader drops it and takes no row"
                                 : "no text follows Text; the reader takes the first word of the "
                                   "next line for it");
    } else if (!text.isClosed) {
        report_.Add(Code::QuoteUnclosed, At(where),
                    "the text has no closing quote; the reader ends it at the line end");
    }
    if (next != nullptr && !next->IsBlank() && !EndsVertices(*next)) {
        const std::vector<double> box =
            ReadNumbers(*next, next->begin, 4, At(next->number), report_);
        CheckPlace({box[0], box[1]}, next->number);
        lines_.Skip();
    } else if (!text.text.empty()) {
        report_.Add(Code::NumberMissing, At(where), "the box of the text is missing");
    }
}

Count ObjectChecker::CountIn(const MifLine& line, std::size_t tokenAt) const {
    Count count;
    count.line = line.number;
    if (tokenAt < line.tokens.size()) {
        const MifToken& token = line.tokens[tokenAt];
        count.text = token.text;
        count.begin = token.begin;
        count.end = token.end;
        count.isWhole = IsDigits(count.text);
        const std::int64_t number = ReadInteger(count.text);
        count.declared = number > 0 ? static_cast<std::uint64_t>(number) : 0;
    }
    return count;
}

// The count at that token of the next line, or alone on the line behind it. Takes the lines away.
Count ObjectChecker::TakeCount(std::size_t tokenAt, const char* what) {
    const MifLine line = *lines_.Peek();
    lines_.Skip();
    Count count = CountIn(line, tokenAt);
    const MifLine* next = lines_.Peek();
    if (line.tokens.size() == tokenAt && next != nullptr && IsCountLine(*next)) {
        count = CountIn(*next, 0);
        report_.Add(Code::CountOnNextLine, At(line.number),
                    std::string("the count of ") + what +
                        " stands on the next line; the reader takes it as 0");
        report_.Change(PairFile::Mif, {.begin = line.tokens.back().end,
                                       .end = count.begin,
                                       .text = " ",
                                       .code = Code::CountOnNextLine,
                                       .line = line.number,
                                       .what = "the count moves to the line of its keyword"});
        lines_.Skip();
    }
    if (count.declared == 0 || !count.isWhole) {
        report_.Add(Code::CountInvalid, At(count.line),
                    std::string("the count of ") + what + " is " + Quoted(count.text) +
                        "; the reader takes it as " + std::to_string(ReadInteger(count.text)));
    }
    return count;
}

// Blank lines inside an object. True when the object goes on behind them.
bool ObjectChecker::SkipBlankLines() {
    std::size_t blanks = 0;
    const MifLine* line = lines_.Peek(0);
    while (line != nullptr && line->IsBlank() && blanks < 64) {
        line = lines_.Peek(++blanks);
    }
    if (line == nullptr || line->IsBlank()) {
        return false;
    }
    if (blanks == 0) {
        return true;
    }
    if (!LooksNumeric(*line) && !IsClause(line->tokens.front().text)) {
        return false;
    }
    for (; blanks > 0; --blanks) {
        const MifLine& blank = *lines_.Peek();
        report_.Add(Code::EmptyLineInObject, At(blank.number),
                    "an empty line stands inside the object");
        report_.Change(PairFile::Mif, {.begin = blank.begin,
                                       .end = blank.next,
                                       .text = {},
                                       .code = Code::EmptyLineInObject,
                                       .line = blank.number,
                                       .what = "the empty line goes"});
        lines_.Skip();
    }
    return true;
}

bool ObjectChecker::TakesVertex(const MifLine& line, std::uint64_t taken, std::uint64_t declared,
                                bool isMoreToCome) {
    if (EndsVertices(line)) {
        return false;
    }
    if (IsCountLine(line) && (isMoreToCome || taken >= declared)) {
        // The count of the next section, unless vertices are still due and no vertex follows.
        const MifLine* next = lines_.Peek(1);
        return taken < declared && (next == nullptr || next->tokens.size() < 2);
    }
    return LooksNumeric(line) || taken < declared;
}

void ObjectChecker::ReportCount(const Count& count, std::uint64_t found,
                                const std::string& message) {
    report_.Add(Code::CountMismatch, At(count.line), message);
    if (count.isWhole && found > 0 &&
        (found + 1 == count.declared || found == count.declared + 1)) {
        report_.Change(PairFile::Mif,
                       {.begin = count.begin,
                        .end = count.end,
                        .text = std::to_string(found),
                        .code = Code::CountMismatch,
                        .line = count.line,
                        .what = "the count " + count.text + " becomes " + std::to_string(found)});
    }
}

void ObjectChecker::CheckVertices(const Count& count, Shape shape, bool isMoreToCome) {
    std::vector<Vertex> vertices;
    while (SkipBlankLines() &&
           TakesVertex(*lines_.Peek(), vertices.size(), count.declared, isMoreToCome)) {
        const MifLine& line = *lines_.Peek();
        const std::vector<double> numbers =
            ReadNumbers(line, line.begin, 2, At(line.number), report_);
        vertices.push_back({numbers[0], numbers[1]});
        CheckPlace(vertices.back(), line.number);
        lines_.Skip();
    }
    if (count.declared != 0 && vertices.size() != count.declared) {
        ReportCount(count, vertices.size(),
                    "the count is " + std::to_string(count.declared) + ", but " +
                        Counted(vertices.size(), "vertex follows", "vertices follow"));
    }
    CheckShape(vertices, shape, count.line);
}

// The sections of a Region or of a Pline Multiple, each a count and its vertices.
void ObjectChecker::CheckSections(const Count& sections, const char* what, Shape shape) {
    std::uint64_t found = 0;
    while (SkipBlankLines() && !EndsVertices(*lines_.Peek()) && LooksNumeric(*lines_.Peek())) {
        ++found;
        const Count count = TakeCount(0, "vertices");
        CheckVertices(count, shape, true);
        if (found < sections.declared && lines_.Peek() != nullptr && !lines_.Peek()->IsBlank() &&
            IsClause(lines_.Peek()->tokens.front().text)) {
            CheckClauses();
        }
    }
    if (sections.declared != 0 && found != sections.declared) {
        ReportCount(sections, found,
                    "the count is " + std::to_string(sections.declared) + ", but " +
                        Counted(found, what, what) + (found == 1 ? " follows" : " follow"));
    }
}

void ObjectChecker::CheckPolyline() {
    const MifLine& line = *lines_.Peek();
    if (line.tokens.size() > 1 && line.tokens[1].Is("multiple")) {
        CheckSections(TakeCount(2, "sections"), "section(s)", Shape::Polyline);
    } else {
        CheckVertices(TakeCount(1, "vertices"), Shape::Polyline, false);
    }
}

void ObjectChecker::CheckRegion() {
    CheckSections(TakeCount(1, "rings"), "ring(s)", Shape::Ring);
}

void ObjectChecker::CheckMultipoint() {
    CheckVertices(TakeCount(1, "points"), Shape::Points, false);
}

void ObjectChecker::CheckCollection(int depth) {
    const std::uint64_t before = counts_.objects;
    const Count count = TakeCount(1, "parts");
    if (depth == 0) {
        ++counts_.collections;
    }
    constexpr int kMaxDepth = 32;
    const std::uint64_t parts = count.declared == 0 ? 3 : count.declared;
    std::uint64_t found = 0;
    while (found < parts) {
        while (lines_.Peek() != nullptr && lines_.Peek()->IsBlank()) {
            lines_.Skip();
        }
        if (lines_.Peek() == nullptr || depth == kMaxDepth) {
            break;
        }
        report_.Settle(PairFile::Mif, lines_.Peek()->begin);
        CheckObject(depth + 1);
        ++found;
    }
    if (count.declared != 0 && found != count.declared) {
        report_.Add(Code::CountMismatch, {PairFile::Mif, count.line, before + 1},
                    "the count is " + std::to_string(count.declared) + ", but " +
                        Counted(found, "part follows", "parts follow"));
    }
}

void ObjectChecker::CheckClauses() {
    while (SkipBlankLines() && IsClause(lines_.Peek()->tokens.front().text)) {
        const MifLine& line = *lines_.Peek();
        CheckClauseLine(line, At(line.number), report_);
        lines_.Skip();
    }
}

void ObjectChecker::CheckPlace(const Vertex& vertex, std::uint64_t line) {
    if (isOutsideReported_) {
        return;
    }
    const std::string text =
        "(" + NumberAsText(vertex.x) + ", " + NumberAsText(vertex.y) + ") lies outside ";
    if (header_.earth && !header_.earth->Holds(vertex.x, vertex.y)) {
        isOutsideReported_ = true;
        report_.Add(Code::OutsideEarth, At(line), text + "the Earth");
    } else if (header_.bounds && !header_.bounds->Holds(vertex.x, vertex.y)) {
        isOutsideReported_ = true;
        report_.Add(Code::OutsideBounds, At(line), text + "the declared bounds");
    }
}

void ObjectChecker::CheckShape(const std::vector<Vertex>& vertices, Shape shape,
                               std::uint64_t line) {
    const std::uint64_t doubled = shape == Shape::Points ? 0 : CountDoubled(vertices);
    if (doubled > 0) {
        report_.Add(Code::DuplicateVertices, At(line),
                    Counted(doubled, "vertex equals", "vertices equal") + " the one before");
    }
    if (shape == Shape::Polyline && vertices.size() == 1) {
        report_.Add(Code::OneVertexLine, At(line), "a line of one vertex; the reader drops it");
    }
    if (shape != Shape::Ring || vertices.empty()) {
        return;
    }
    if (!HasArea(vertices)) {
        report_.Add(Code::RingTooSmall, At(line),
                    "the ring has fewer than three different vertices");
        return;
    }
    if (!(vertices.front() == vertices.back())) {
        report_.Add(Code::RingNotClosed, At(line), "the last vertex is not the first one");
    }
    const std::optional<Crossing> crossing = rings_.Test(vertices);
    if (!crossing) {
        return;
    }
    const std::string where =
        " at (" + NumberAsText(crossing->where.x) + ", " + NumberAsText(crossing->where.y) + ")";
    if (crossing->kind == CrossingKind::NotTested) {
        report_.Add(Code::RingNotTested, At(line),
                    "the ring was not tested for self-crossing: " + crossing->reason);
    } else if (crossing->kind == CrossingKind::Touches) {
        report_.Add(Code::RingTouchesItself, At(line), "the ring touches itself" + where);
    } else {
        report_.Add(Code::RingCrossesItself, At(line), "the ring crosses itself" + where);
    }
}

}  // namespace

ObjectCounts CheckObjects(LineReader& lines, Report& report, const CheckedHeader& header,
                          std::uint64_t& object) {
    return ObjectChecker(lines, report, header, object).Check();
}

}  // namespace app::check
