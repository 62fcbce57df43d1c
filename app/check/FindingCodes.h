// The one list of all finding codes: stable id, name, severity, meaning, advice.
//
// docs/findings.md is made from this table (qolf check --codes prints it); a test keeps them equal.
// An id is never given to another finding, also after its own has gone.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace app::check {

// Error: the import stops, or the files contradict themselves, so that values come out wrong.
// Warning: the import goes on, but something is taken otherwise than it says, or looks wrong.
// Note: nothing is wrong, but worth knowing.
enum class Severity { Error, Warning, Note };

enum class Code {
    // Files
    FileUnreadable,
    ByteOrderMark,
    LoneCarriageReturn,
    Utf16,
    NulByte,
    LineTooLong,
    FinalLineEndMissing,
    // Header
    HeaderLineSkipped,
    VersionMissing,
    VersionInvalid,
    VersionUnsupported,
    HeaderIncomplete,
    DataMissing,
    HeaderTooLong,
    CharsetMissing,
    CharsetUnknown,
    DelimiterIgnored,
    DelimiterEmpty,
    DelimiterMissing,
    ColumnCount,
    ColumnType,
    ColumnRepeated,
    ClauseRepeated,
    UniqueClause,
    TransformIgnored,
    BoundsUnreadable,
    BoundsReversed,
    HeaderRestIgnored,
    // Coordinate system
    ProjectionUnknown,
    CoordSysMalformed,
    DatumUnknown,
    EllipsoidUnknown,
    UnitIgnored,
    UnitIsNumber,
    ParametersMissing,
    CoordSysBoundsIgnored,
    AffineIgnored,
    RangeIgnored,
    AlbersDisplaced,
    NzmgDisplaced,
    CoordSysKindIgnored,
    CoordSysRestIgnored,
    CoordSysMissing,
    LineSwallowed,
    DataSwallowed,
    BlankInIgnoredBounds,
    LineLost,
    // Objects
    ObjectUnknown,
    CountMismatch,
    CountInvalid,
    CountOnNextLine,
    EmptyLineInObject,
    NumberUnreadable,
    NumberMissing,
    DecimalComma,
    BlankAfterMinus,
    CommaInNumbers,
    RestIgnored,
    OneVertexLine,
    CollectionTakesRows,
    TextEmpty,
    QuoteUnclosed,
    StyleUnreadable,
    StyleIncomplete,
    AngleTruncated,
    ArcMisplaced,
    ClauseWithoutEffect,
    NoObjects,
    LastObjectLost,
    // Geometry
    RingNotClosed,
    RingCrossesItself,
    RingTouchesItself,
    RingTooSmall,
    DuplicateVertices,
    OutsideBounds,
    OutsideEarth,
    RingNotTested,
    // Rows
    MidMissing,
    MidNameCase,
    ObjectWithoutRow,
    RowWithoutObject,
    RowTooShort,
    RowTooLong,
    RowTrailingDelimiter,
    RowEmpty,
    LineBreakInValue,
    RowQuoteUnclosed,
    DoubledQuote,
    EmptyFieldUnderTab,
    ValueNotOfType,
    ValueTooWide,
    RowsWithoutColumns,
    DecimalCommaInValue,
    // Characters
    OutsideCharset,
    LooksLikeUtf8,
    NeutralBytes,
    // The module's own run
    ModuleWarning,
    ModuleError,
};

struct CodeInfo {
    Code code;
    const char* id;    // "MIF-H004"
    const char* name;  // "header-line-skipped"
    Severity severity;
    bool isFixable;  // --fix repairs it, at least in the cases that have one right repair
    const char* meaning;
    const char* advice;
};

// All codes in the order of their enumerators.
std::span<const CodeInfo> AllCodes();
const CodeInfo& InfoOf(Code code);

// "error", "warning" or "note".
std::string_view SeverityName(Severity severity);

// The text of docs/findings.md.
std::string CodesAsMarkdown();

}  // namespace app::check
