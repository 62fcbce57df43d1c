// One pass over the objects of a .mif file: what they mean, and what the module would make of it.
//
// Plain objects, which the module reads right, are only walked over. All others are read here, as
// their author meant them: counts that differ from what follows, decimal commas, clauses on the
// line of their object, lines that are no object at all.
#pragma once

#include "app/mif/Clauses.h"
#include "app/mif/FindingCounter.h"
#include "app/mif/LineCursor.h"
#include "app/mif/LineReader.h"
#include "app/mif/MifTokens.h"
#include "app/mif/ObjectFacts.h"
#include "app/mif/PassSink.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace app {

// How many objects there are.
struct MifCounts {
    // By kind; the members of collections are counted apart.
    std::array<std::uint64_t, static_cast<std::size_t>(ObjectKind::Skipped) + 1> byKind{};
    std::uint64_t members = 0;     // of collections
    std::uint64_t emptyTexts = 0;  // Text objects without a text, members included

    std::uint64_t Of(ObjectKind kind) const { return byKind[static_cast<std::size_t>(kind)]; }

    // All objects; a collection is one, and what is no object does not count.
    std::uint64_t Objects() const;
};

class ObjectPass {
public:
    // Everything must outlive the pass. `object` is kept at the number of the object that is being
    // read, for findings made elsewhere meanwhile: the members of a collection have numbers of
    // their own, and the collection has none.
    ObjectPass(LineReader& lines, FindingCounter& report, PassSink& sink, std::uint64_t& object);

    // Reads from the line behind Data to the end of the file.
    MifCounts Run();

private:
    enum class Plain { Yes, No, ButForItsClauses };

    // Where the points of a part lie in points_.
    struct Part {
        PartShape shape;
        std::size_t begin;
        std::size_t count;
        std::uint64_t line;
        std::uint64_t firstLine;
    };

    // A count as in the file.
    struct Count {
        std::uint64_t declared = 0;  // 0 for what is no count
        std::string text;
        std::uint64_t begin = 0;  // offsets of the text
        std::uint64_t end = 0;
        std::uint64_t line = 0;
        bool isWhole = false;
    };

    // Plain objects.
    void TakePlainObjects();
    bool TakeOnePlainObject(ObjectFacts& facts);
    Plain ReadPlainObject(LineCursor& cursor, std::string_view line);
    bool ReadPlainGeometry(LineCursor& cursor, std::string_view rest);
    bool ReadPlainNumbers(LineCursor& cursor, std::string_view rest, unsigned words);
    bool ReadPlainRoundRect(LineCursor& cursor, std::string_view rest);
    bool ReadPlainPolyline(LineCursor& cursor, std::string_view rest);
    bool ReadPlainSections(LineCursor& cursor, std::uint64_t count, PartShape shape);
    bool ReadPlainVertices(LineCursor& cursor, std::uint64_t count, PartShape shape,
                           std::uint64_t line);
    Plain ReadPlainClauses(LineCursor& cursor);
    bool TakePlainClauses(LineCursor& cursor);
    bool HasOddBytes(std::string_view line) const;
    static Plain LookBehindClauses(LineCursor& cursor);
    void CheckPlainClauses(std::uint64_t firstLine);

    // All others.
    bool TakeOddItem();
    void TakeObject(ObjectFacts& facts, int depth);
    void ReadOddObject(ObjectFacts& facts);
    void ReadOddGeometry(ObjectFacts& facts);
    void TakeUnknown();
    void SkipUnknown();
    bool IsUnknownObject(std::size_t ahead);
    void ReadCollection(ObjectFacts& facts, int depth);
    void ReadNumberObject(ObjectFacts& facts, std::size_t count);
    void ReadRoundRect(ObjectFacts& facts);
    void ReadArc(ObjectFacts& facts);
    void ReadText(ObjectFacts& facts);
    bool ReadTextString(ObjectFacts& facts, std::string_view& rest);
    bool ReadTextBox(ObjectFacts& facts, const MifLine& line, std::string_view rest);
    void ReadPolyline(ObjectFacts& facts);
    void ReadSections(ObjectFacts& facts, const Count& sections, const char* what);
    void ReadVertices(ObjectFacts& facts, const Count& count, bool isMoreToCome);
    std::vector<double> NumbersOf(const MifLine& line, std::uint64_t from, std::size_t count);
    Count TakeCount(std::size_t tokenAt, const char* what);
    static Count CountIn(const MifLine& line, std::size_t tokenAt);
    void ReportCount(const Count& count, std::uint64_t found, const std::string& message);
    bool SkipBlankLines();
    bool SkipLinesBeforeClause();
    bool TakesVertex(const MifLine& line, std::uint64_t taken, std::uint64_t declared,
                     bool isMoreToCome);
    void ReadClauses(ObjectFacts& facts);
    std::string_view WithoutClause(const MifLine& line);
    void OfferPolyline(const MifLine& first, const MifLine& last,
                       const std::array<double, 6>& numbers);

    void AddPart(PartShape shape, std::size_t begin, std::uint64_t line, std::uint64_t firstLine);
    void FinishPoints();
    void Finish(ObjectFacts& facts);
    Place At(std::uint64_t line) const { return {FileOfPair::Mif, line, object_}; }

    LineReader& lines_;
    FindingCounter& report_;
    PassSink& sink_;
    std::uint64_t& object_;
    std::uint64_t numbered_ = 0;  // objects that have a number
    MifCounts counts_;
    bool wantsPoints_;
    LineReader::AtTheEnd atTheEnd_;

    ObjectFacts facts_;  // of the plain object; reused
    std::vector<shr::Vec2d> points_;
    std::vector<Part> parts_;
    std::vector<std::uint64_t> pointLines_;  // of points_, for odd objects
    ClauseSafety safety_;
    std::string clauses_;            // of the plain object that had some last
    std::uint64_t clauseLines_ = 0;  // in clauses_
    bool areClausesSafe_ = true;
    LineReader::Mark behindClauses_;
    std::string lineClause_;  // a clause on the line of the odd object's keyword
};

}  // namespace app
