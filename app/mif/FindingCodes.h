// The one list of all finding codes: stable id, name, severity, meaning, advice.
//
// docs/findings.md is made from this table (qolf check --codes prints it); a test keeps them equal.
// An id is never given to another finding, also after its own has gone.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace app {

// Error: the import stops, or the files contradict themselves, so that values come out wrong.
// Warning: the import goes on, but something is taken otherwise than it says, or looks wrong.
// Note: nothing is wrong, but worth knowing.
enum class Severity { Error, Warning, Note };

// Whether convert, draw and info read such files as they were meant. WithClause: when they
// understand this part of the CoordSys clause without a warning.
enum class ReadByCommand { No, Yes, WithClause };

enum class FindingCode {
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
    ColumnNameCut,
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
    UnitMissing,
    ParameterOutOfRange,
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
    ClauseOnObjectLine,
    NumbersOnNextLine,
    CollectionNested,
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
    // Layers of other formats
    GeometryUnreadable,
    CoordinateNotFinite,
    OutsideArea,
    GeometryMissing,
    TextNotUtf8,
    NumberNotFinite,
    ValueLeftOut,
    ColumnOfSeveralTypes,
    // The module's own run
    ModuleWarning,
    ModuleError,
};

struct FindingInfo {
    FindingCode code;
    const char* id;    // "MIF-H004"
    const char* name;  // "header-line-skipped"
    Severity severity;
    bool isFixable;  // --fix repairs it, at least in the cases that have one right repair
    ReadByCommand readBy;
    const char* meaning;
    const char* advice;
};

// All codes in the order of their enumerators.
std::span<const FindingInfo> AllFindings();
const FindingInfo& InfoOf(FindingCode code);

// "error", "warning" or "note".
std::string_view SeverityName(Severity severity);

// The text of docs/findings.md.
std::string FindingsAsMarkdown();

}  // namespace app
