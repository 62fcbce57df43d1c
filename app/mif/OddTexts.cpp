// The Text objects of ObjectPass, and the arcs that a repair turns into polylines.
#include "app/mif/ArcPoints.h"
#include "app/mif/ByteClasses.h"
#include "app/mif/NumberLines.h"
#include "app/mif/Numbers.h"
#include "app/mif/ObjectPass.h"
#include "app/mif/OddNumbers.h"
#include "app/mif/Words.h"

#include <algorithm>
#include <cmath>

namespace app {
namespace {

bool IsObjectOrClause(const MifToken& token) {
    return token.kind == TokenKind::Word &&
           (ObjectKindOf(token.text) != ObjectKind::Skipped || IsClauseKeyword(token.text));
}

// A string as it was meant: a quote inside of it is doubled.
struct TextString {
    std::string text;
    std::size_t length = 0;  // of the bytes of the line that it takes, quotes included
    bool isQuoted = false;
    bool isClosed = true;
    bool isPlain = true;  // the module reads it right
};

TextString StringAt(std::string_view text) {
    TextString string;
    MifTokens tokens(text);
    MifToken token = tokens.Next();
    string.isQuoted = token.IsQuoted();
    if (token.kind != TokenKind::Word && !token.IsQuoted()) {
        return string;
    }
    string.text = WithoutReturns(token.text);
    string.isPlain = string.text.size() == token.text.size() && !string.text.empty();
    string.length = static_cast<std::size_t>(token.end);
    for (MifToken next = tokens.Next();
         string.isQuoted && next.IsQuoted() && next.begin == token.end; next = tokens.Next()) {
        string.text += '"' + WithoutReturns(next.text);
        string.isPlain = false;
        string.length = static_cast<std::size_t>(next.end);
        token = next;
    }
    string.isClosed = token.isClosed;
    return string;
}

std::string_view WithoutBlanksInFront(std::string_view text) {
    const std::size_t first = std::min(text.find_first_not_of(" \t\r"), text.size());
    return text.substr(first);
}

// What the module gets in place of a text that it would read wrongly: as many bytes, in the box.
std::string PlainText(const ObjectFacts& facts) {
    std::string text = "Text \"" + std::string(std::max<std::size_t>(facts.text.size(), 1), 'x');
    text += "\"\n";
    for (std::size_t i = 0; i < 4; ++i) {
        text += (i == 0 ? "" : " ") + NumberAsText(facts.numbers[i]);
    }
    return text + "\n";
}

}  // namespace

// Text "string", the corners of its box on the next line. The string may be on a line of its
// own.
void ObjectPass::ReadText(ObjectFacts& facts) {
    const std::uint64_t begin = lines_.Peek()->begin;
    const MifLine keyword = *lines_.Peek();
    std::string_view rest;  // of the line of the string
    const bool isPlainString = ReadTextString(facts, rest);
    const MifLine* next = lines_.Peek();
    const bool isPlainBox = keyword.lineEnd != LineEnd::LoneCr && next != nullptr &&
                            next->lineEnd != LineEnd::LoneCr && HoldsNumbers(next->raw, 4);
    static_cast<void>(SkipBlankLines());
    facts.hasNumbers = ReadTextBox(facts, keyword, rest);
    if (!facts.hasNumbers) {
        return;  // an object without a place
    }
    facts.isOwn = false;
    facts.handedOver = 1;
    if (!isPlainString || !isPlainBox || !rest.empty()) {
        sink_.Cut(begin, lines_.Here().offset, PlainText(facts));
    }
}

// Takes the line of the string away, and the one before when the string is alone on its line.
// True when the module reads the string right.
bool ObjectPass::ReadTextString(ObjectFacts& facts, std::string_view& rest) {
    MifLine line = *lines_.Peek();
    const std::uint64_t from = MifTokens(line.raw, line.begin).Next().end;
    TextString string = StringAt(line.raw.substr(from - line.begin));
    rest = line.raw.substr(std::min(from - line.begin + string.length, line.raw.size()));
    lines_.Skip();
    const MifLine* const next = lines_.Peek();
    const bool isAlone = WithoutBlanksInFront(line.raw.substr(from - line.begin)).empty();
    bool isOnNextLine = false;
    if (isAlone && next != nullptr && !next->IsBlank()) {
        const MifToken first = MifTokens(next->raw).Next();
        const bool looksNumeric =
            first.kind == TokenKind::Word &&
            (IsByte(first.text[0], kFractionByte) || first.text[0] == '-' || first.text[0] == '+');
        isOnNextLine = first.IsQuoted() || (!looksNumeric && !IsObjectOrClause(first));
    }
    if (isOnNextLine) {
        line = *next;
        string = StringAt(line.raw);
        rest = line.raw.substr(std::min(string.length, line.raw.size()));
        lines_.Skip();
    }
    rest = WithoutBlanksInFront(rest);
    facts.text = string.text;
    if (string.text.empty()) {
        ++counts_.emptyTexts;
        report_.Add(FindingCode::TextEmpty, At(line.number),
                    isOnNextLine ? "the Text has no text; the reader drops it and takes no row"
                                 : "no text follows Text; the reader takes the first word of the "
                                   "next line for it");
    } else if (!string.isClosed) {
        report_.Add(FindingCode::QuoteUnclosed, At(line.number),
                    "the text has no closing quote; the reader ends it at the line end");
    }
    return string.isPlain && line.lineEnd != LineEnd::LoneCr;
}

// The box is on the next line, or behind the string. A clause may follow the string, too.
bool ObjectPass::ReadTextBox(ObjectFacts& facts, const MifLine& line, std::string_view rest) {
    const MifToken first = MifTokens(rest).Next();
    if (first.kind == TokenKind::Word && IsClauseKeyword(first.text)) {
        lineClause_ = rest;
        report_.Add(FindingCode::ClauseOnObjectLine, At(line.number),
                    "the clause " + std::string(first.text) +
                        " is on the line of the object; the reader skips it");
        rest = {};
    }
    const MifLine* const next = lines_.Peek();
    std::vector<double> numbers;
    std::uint64_t boxLine = line.number;
    if (CountNumbers(rest) >= 4) {
        numbers = ReadOddNumbers(rest, line.begin, 4, At(line.number), report_);
    } else if (next != nullptr && !next->IsBlank() &&
               !IsObjectOrClause(MifTokens(next->raw).Next()) &&
               !MifTokens(next->raw).Next().IsQuoted()) {
        numbers = NumbersOf(*next, next->begin, 4);
        boxLine = next->number;
        lines_.Skip();
    } else {
        if (!facts.text.empty()) {
            report_.Add(FindingCode::NumberMissing, At(line.number),
                        "the box of the text is missing");
        }
        return false;
    }
    std::ranges::copy(numbers, facts.numbers.begin());
    points_ = {{numbers[0], numbers[1]}};
    pointLines_ = {boxLine};
    parts_.push_back({PartShape::Corners, 0, 1, line.number, 0});
    return true;
}

void ObjectPass::OfferPolyline(const MifLine& first, const MifLine& last,
                               const std::array<double, 6>& numbers) {
    if (!report_.HasSink() ||
        !std::ranges::all_of(numbers, [](double number) { return std::isfinite(number); })) {
        return;
    }
    const shr::Box2d box{std::min(numbers[0], numbers[2]), std::min(numbers[1], numbers[3]),
                         std::max(numbers[0], numbers[2]), std::max(numbers[1], numbers[3])};
    const std::vector<shr::Vec2d> points = ArcPoints(box, numbers[4], numbers[5]);
    report_.Change(FileOfPair::Mif, {.begin = first.begin,
                                     .end = last.end,
                                     .text = PlineText(points, LineEndText(first.lineEnd)),
                                     .code = FindingCode::ArcMisplaced,
                                     .line = first.number,
                                     .what = "the Arc becomes a Pline of " +
                                             std::to_string(points.size()) + " points"});
}

}  // namespace app
