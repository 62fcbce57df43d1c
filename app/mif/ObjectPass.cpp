// The plain objects of ObjectPass: those that the module reads right.
#include "app/mif/ObjectPass.h"

#include "app/base/Utf8.h"
#include "app/mif/ByteClasses.h"
#include "app/mif/NumberLines.h"
#include "app/mif/Numbers.h"
#include "app/mif/Words.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <utility>

namespace app {
namespace {

// The clauses of an object that are taken together; more are read line by line.
constexpr std::size_t kMostClauseBytes = std::size_t{1} << 16;

std::string_view WithoutBlanks(std::string_view text) {
    while (!text.empty() && (IsByte(text.front(), kBlankByte))) {
        text.remove_prefix(1);
    }
    while (!text.empty() && (IsByte(text.back(), kBlankByte) || text.back() == '\r')) {
        text.remove_suffix(1);
    }
    return text;
}

// Takes the first word of the text away. Empty when the text begins with anything else.
std::string_view TakeWord(std::string_view& text) {
    while (!text.empty() && IsByte(text.front(), kBlankByte)) {
        text.remove_prefix(1);
    }
    std::size_t length = 0;
    while (length < text.size() && !IsByte(text[length], kEndsWordByte)) {
        ++length;
    }
    const std::string_view word = text.substr(0, length);
    text.remove_prefix(length);
    return word;
}

std::string_view FirstWord(std::string_view line) {
    return TakeWord(line);
}

// The count that a text holds and nothing else; 0 when it holds anything else, or a count that no
// file has room for.
std::uint64_t CountAlone(std::string_view text) {
    constexpr std::size_t kMostDigits = 9;
    const std::string_view digits = WithoutBlanks(text);
    return IsDigits(digits) && digits.size() <= kMostDigits
               ? static_cast<std::uint64_t>(ReadInteger(digits))
               : 0;
}

bool BeginsNumber(std::string_view text) {
    return IsByte(text.front(), kFractionByte) || text.front() == '-' || text.front() == '+';
}

bool AreFinite(std::span<const shr::Vec2d> points) {
    return std::ranges::all_of(points, [](const shr::Vec2d& point) {
        return std::isfinite(point.x) && std::isfinite(point.y);
    });
}

}  // namespace

std::uint64_t MifCounts::Objects() const {
    return std::accumulate(byKind.begin(), byKind.end(), std::uint64_t{0}) -
           Of(ObjectKind::Skipped);
}

ObjectPass::ObjectPass(LineReader& lines, FindingCounter& report, PassSink& sink,
                       std::uint64_t& object)
    : lines_(lines), report_(report), sink_(sink), object_(object),
      wantsPoints_(sink.WantsPoints()),
      atTheEnd_(report.HasSink() ? LineReader::AtTheEnd::StaysAsItIs
                                 : LineReader::AtTheEnd::ClosesLastLine) {}

MifCounts ObjectPass::Run() {
    do {
        TakePlainObjects();
    } while (TakeOddItem());
    if (counts_.Objects() == 0) {
        report_.Add(FindingCode::NoObjects, {}, "no object follows the Data line");
    }
    return counts_;
}

// Takes objects up to the first that is not plain, or to the end of the file.
void ObjectPass::TakePlainObjects() {
    Plain plain = Plain::Yes;
    do {
        LineCursor cursor(lines_, atTheEnd_);
        std::string_view line;
        LineReader::Mark mark = cursor.Here();
        plain = Plain::Yes;
        while (plain == Plain::Yes && cursor.Line(line)) {
            mark = cursor.Here();
            if (WithoutBlanks(line).empty()) {
                cursor.Next();
                continue;
            }
            report_.Settle(FileOfPair::Mif, mark.offset);
            plain = ReadPlainObject(cursor, line);
            if (plain == Plain::Yes) {
                Finish(facts_);
            }
        }
        cursor.LeaveAt(plain == Plain::Yes  ? cursor.Here()
                       : plain == Plain::No ? mark
                                            : behindClauses_);
        if (plain == Plain::ButForItsClauses) {
            ReadClauses(facts_);
            Finish(facts_);
        }
    } while (plain == Plain::ButForItsClauses);
}

// The same for one object, which the reader is at. False, and nothing is taken, when it is not
// plain.
bool ObjectPass::TakeOnePlainObject(ObjectFacts& facts) {
    LineCursor cursor(lines_, atTheEnd_);
    const LineReader::Mark mark = cursor.Here();
    std::string_view line;
    const Plain plain = cursor.Line(line) ? ReadPlainObject(cursor, line) : Plain::No;
    if (plain == Plain::No) {
        cursor.LeaveAt(mark);
        return false;
    }
    cursor.LeaveAt(plain == Plain::Yes ? cursor.Here() : behindClauses_);
    facts = facts_;
    if (plain == Plain::ButForItsClauses) {
        ReadClauses(facts);
    }
    return true;
}

ObjectPass::Plain ObjectPass::ReadPlainObject(LineCursor& cursor, std::string_view line) {
    std::string_view rest = line;
    facts_.kind = ObjectKindOf(TakeWord(rest));
    report_.SetKind(facts_.kind);
    facts_.isMultiple = false;
    facts_.handedOver = facts_.kind == ObjectKind::None ? 0 : 1;
    points_.clear();
    parts_.clear();
    if (!ReadPlainGeometry(cursor, rest)) {
        return Plain::No;
    }
    const Plain plain = ReadPlainClauses(cursor);
    if (plain != Plain::No) {
        object_ = ++numbered_;
    }
    return plain;
}

bool ObjectPass::ReadPlainGeometry(LineCursor& cursor, std::string_view rest) {
    switch (facts_.kind) {
    case ObjectKind::None:
        cursor.Next();
        return WithoutBlanks(rest).empty();
    case ObjectKind::Point:
        return ReadPlainNumbers(cursor, rest, 2);
    case ObjectKind::Line:
    case ObjectKind::Rect:
    case ObjectKind::Ellipse:
        return ReadPlainNumbers(cursor, rest, 4);
    case ObjectKind::RoundRect:
        return ReadPlainRoundRect(cursor, rest);
    case ObjectKind::Pline:
        return ReadPlainPolyline(cursor, rest);
    case ObjectKind::Region: {
        const std::uint64_t rings = CountAlone(rest);
        cursor.Next();
        return rings > 0 && ReadPlainSections(cursor, rings, PartShape::Outline);
    }
    case ObjectKind::Multipoint: {
        const std::uint64_t line = cursor.LineNumber();
        const std::uint64_t count = CountAlone(rest);
        cursor.Next();
        return count > 0 && ReadPlainVertices(cursor, count, PartShape::Points, line);
    }
    default:
        return false;
    }
}

bool ObjectPass::ReadPlainNumbers(LineCursor& cursor, std::string_view rest, unsigned words) {
    if (!HoldsNumbers(rest, words)) {
        return false;
    }
    if (wantsPoints_) {
        ReadNumberLines(rest, points_);
        if (!AreFinite(points_)) {
            return false;  // numbers that are too large to hold
        }
        AddPart(words == 2 ? PartShape::Points : PartShape::Corners, 0, cursor.LineNumber(),
                cursor.LineNumber());
    }
    cursor.Next();
    return true;
}

// The size of the corners follows the box, or alone on the next line.
bool ObjectPass::ReadPlainRoundRect(LineCursor& cursor, std::string_view rest) {
    if (HoldsNumbers(rest, 5)) {
        rest = WithoutBlanks(rest);
        return ReadPlainNumbers(cursor, rest.substr(0, rest.find_last_of(" \t")), 4);
    }
    std::string_view size;
    if (!ReadPlainNumbers(cursor, rest, 4) || !cursor.Line(size) || !HoldsNumbers(size, 1)) {
        return false;
    }
    cursor.Next();
    return true;
}

bool ObjectPass::ReadPlainPolyline(LineCursor& cursor, std::string_view rest) {
    const std::uint64_t line = cursor.LineNumber();
    if (const std::uint64_t count = CountAlone(rest); count > 0) {
        cursor.Next();
        return count > 1 && ReadPlainVertices(cursor, count, PartShape::Section, line);
    }
    if (!EqualsIgnoringCase(TakeWord(rest), "multiple")) {
        return false;
    }
    const std::uint64_t sections = CountAlone(rest);
    facts_.isMultiple = true;
    facts_.handedOver = sections;
    cursor.Next();
    return sections > 0 && ReadPlainSections(cursor, sections, PartShape::Section);
}

// Each section or ring is a count on a line of its own and its vertices. The module drops sections
// of one vertex.
bool ObjectPass::ReadPlainSections(LineCursor& cursor, std::uint64_t count, PartShape shape) {
    const std::uint64_t least = shape == PartShape::Section ? 2 : 1;
    for (; count > 0; --count) {
        std::string_view line;
        const std::uint64_t lineNumber = cursor.LineNumber();
        const std::uint64_t vertices = cursor.Line(line) ? CountAlone(line) : 0;
        if (vertices < least) {
            return false;
        }
        cursor.Next();
        if (!ReadPlainVertices(cursor, vertices, shape, lineNumber)) {
            return false;
        }
    }
    return true;
}

bool ObjectPass::ReadPlainVertices(LineCursor& cursor, std::uint64_t count, PartShape shape,
                                   std::uint64_t line) {
    const std::size_t begin = points_.size();
    const std::uint64_t firstLine = cursor.LineNumber();
    if (cursor.SkipNumbers(count, 2, wantsPoints_ ? &points_ : nullptr) != count) {
        return false;
    }
    if (wantsPoints_) {
        if (!AreFinite(std::span(points_).subspan(begin))) {
            return false;
        }
        AddPart(shape, begin, line, firstLine);
    }
    return true;
}

// Takes the clauses, and looks at what follows them.
ObjectPass::Plain ObjectPass::ReadPlainClauses(LineCursor& cursor) {
    const std::uint64_t begin = cursor.Offset();
    const std::uint64_t firstLine = cursor.LineNumber();
    const bool hasClauses = TakePlainClauses(cursor);
    if (!hasClauses) {
        facts_.clauses.clear();
    } else if (facts_.clauses != clauses_) {
        facts_.clauses = clauses_;
    }
    behindClauses_ = cursor.Here();
    const Plain plain = LookBehindClauses(cursor);
    if (hasClauses && plain != Plain::No) {
        // The module takes a clause behind None for an object.
        if (!areClausesSafe_ || facts_.kind == ObjectKind::None) {
            sink_.Cut(begin, behindClauses_.offset, {});
        }
        if (report_.HasSink()) {
            object_ = numbered_ + 1;
            CheckPlainClauses(firstLine);
        }
    }
    return plain;
}

bool ObjectPass::TakePlainClauses(LineCursor& cursor) {
    bool hasClauses = !clauses_.empty() && cursor.StartsWith(clauses_);
    if (hasClauses) {
        cursor.Skip(clauses_.size(), clauseLines_);
    }
    std::string_view line;
    if (!cursor.Line(line) || !IsClauseKeyword(FirstWord(line))) {
        return hasClauses;
    }
    if (!hasClauses) {
        clauses_.clear();
        clauseLines_ = 0;
    }
    while (clauses_.size() < kMostClauseBytes && cursor.Line(line) &&
           IsClauseKeyword(FirstWord(line)) && !HasOddBytes(line)) {
        clauses_.append(line) += '\n';
        ++clauseLines_;
        cursor.Next();
    }
    areClausesSafe_ = safety_.IsSafe(clauses_);
    return !clauses_.empty();
}

// A carriage return inside may be a line end; and whoever wants to know what is wrong with the file
// looks at the letters of such lines. They are read one by one.
bool ObjectPass::HasOddBytes(std::string_view line) const {
    return HasLoneReturn(line) || line.find('\0') != std::string_view::npos ||
           (report_.HasSink() && !IsAscii(line));
}

// Whether an object or the end of the file follows, behind empty lines or not.
ObjectPass::Plain ObjectPass::LookBehindClauses(LineCursor& cursor) {
    std::string_view line;
    while (cursor.Line(line)) {
        const std::string_view text = WithoutBlanks(line);
        if (!text.empty()) {
            if (BeginsNumber(text)) {
                return Plain::No;  // a vertex too many, or something that only looks like one
            }
            return ObjectKindOf(FirstWord(text)) == ObjectKind::Skipped ? Plain::ButForItsClauses
                                                                        : Plain::Yes;
        }
        cursor.Next();
    }
    return cursor.IsAtEnd() ? Plain::Yes : Plain::ButForItsClauses;
}

void ObjectPass::CheckPlainClauses(std::uint64_t firstLine) {
    std::string_view rest = clauses_;
    for (std::uint64_t i = 0; i < clauseLines_; ++i) {
        const std::size_t end = rest.find('\n');
        CheckClauseLine(rest.substr(0, end), At(firstLine + i), report_);
        rest.remove_prefix(end + 1);
    }
}

void ObjectPass::AddPart(PartShape shape, std::size_t begin, std::uint64_t line,
                         std::uint64_t firstLine) {
    parts_.push_back({shape, begin, points_.size() - begin, line, firstLine});
}

void ObjectPass::FinishPoints() {
    for (const Part& part : parts_) {
        const std::span<const shr::Vec2d> points(points_);
        const std::span<const std::uint64_t> lines(pointLines_);
        sink_.TakePoints({.shape = part.shape,
                          .points = points.subspan(part.begin, part.count),
                          .object = object_,
                          .line = part.line,
                          .firstLine = part.firstLine,
                          .lines = part.firstLine == 0 ? lines.subspan(part.begin, part.count)
                                                       : std::span<const std::uint64_t>()});
    }
    parts_.clear();
}

void ObjectPass::Finish(ObjectFacts& facts) {
    FinishPoints();
    ++counts_.byKind[static_cast<std::size_t>(facts.kind)];
    sink_.Take(facts);
}

}  // namespace app
