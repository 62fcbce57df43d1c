#include "app/check/FindingCodes.h"

#include <array>
#include <cassert>
#include <cstddef>

namespace app::check {
namespace {

constexpr Severity E = Severity::Error;
constexpr Severity W = Severity::Warning;
constexpr Severity N = Severity::Note;
constexpr bool kFix = true;
constexpr bool kNoFix = false;

// clang-format off
constexpr std::array kCodes = {
    CodeInfo{Code::FileUnreadable, "MIF-F001", "file-unreadable", E, kNoFix,
             "The file cannot be opened or read.", "Check the name and the permissions."},
    CodeInfo{Code::ByteOrderMark, "MIF-F002", "byte-order-mark", E, kFix,
             "The file begins with the UTF-8 byte-order mark. The reader takes it as a part of the first word, so the first header line, or the first value of the .mid, is not recognised.",
             "Remove the three bytes; --fix does."},
    CodeInfo{Code::LoneCarriageReturn, "MIF-F003", "lone-carriage-return", E, kFix,
             "Lines end with a carriage return alone. The reader drops that character, so the lines run together.",
             "Convert the line ends; --fix does."},
    CodeInfo{Code::Utf16, "MIF-F004", "utf-16", E, kNoFix,
             "The file is encoded in UTF-16, which the reader cannot take: it reads single bytes.",
             "Save the file in UTF-8 without a byte-order mark, or in the code page of its Charset clause."},
    CodeInfo{Code::NulByte, "MIF-F005", "nul-byte", E, kNoFix,
             "The text holds a NUL byte. The reader ends a word or a row there.",
             "The file is damaged or no text; get a fresh copy."},
    CodeInfo{Code::LineTooLong, "MIF-F006", "line-too-long", W, kNoFix,
             "A line is longer than 1 MiB. The check looks at its beginning only.",
             "Look whether line ends are missing."},
    CodeInfo{Code::FinalLineEndMissing, "MIF-F007", "final-line-end-missing", W, kFix,
             "The last line has no line end.", "Add one; --fix does."},

    CodeInfo{Code::HeaderLineSkipped, "MIF-H001", "header-line-skipped", W, kNoFix,
             "A header line begins with a word that is no clause. The reader skips the line.",
             "Correct the spelling or remove the line."},
    CodeInfo{Code::VersionMissing, "MIF-H002", "version-missing", E, kNoFix,
             "The header has no Version clause; the import stops.",
             "Add the line \"Version 300\" at the top."},
    CodeInfo{Code::VersionInvalid, "MIF-H003", "version-invalid", E, kNoFix,
             "The version number is none that the reader takes (1, 2, 300 to 2999); the import stops.",
             "Write the version of the program that made the file, or 300."},
    CodeInfo{Code::VersionUnsupported, "MIF-H004", "version-unsupported", W, kNoFix,
             "The version lies between 1101 and 2999. The reader warns and goes on.",
             "Save the file in an older version if parts of it are missing afterwards."},
    CodeInfo{Code::HeaderIncomplete, "MIF-H005", "header-incomplete", E, kNoFix,
             "The header has none of Charset, Delimiter, CoordSys, Bounds and Columns; the import stops.",
             "Add at least a Charset line."},
    CodeInfo{Code::DataMissing, "MIF-H006", "data-missing", E, kNoFix,
             "The file ends before a Data line; the import stops.",
             "Add the line \"Data\" after the header; if there is no header, this is no .mif file."},
    CodeInfo{Code::HeaderTooLong, "MIF-H007", "header-too-long", E, kNoFix,
             "The Data line does not come within the first 65,536 bytes; the import stops.",
             "Remove what stands before or inside the header."},
    CodeInfo{Code::CharsetMissing, "MIF-H008", "charset-missing", N, kNoFix,
             "The header has no Charset clause, so nothing says how to read letters beyond ASCII.",
             "Add a Charset line, for example: Charset \"WindowsLatin1\"."},
    CodeInfo{Code::CharsetUnknown, "MIF-H009", "charset-unknown", W, kNoFix,
             "The name after Charset is none that is known, so the characters cannot be checked.",
             "Correct the name."},
    CodeInfo{Code::DelimiterIgnored, "MIF-H010", "delimiter-ignored", W, kNoFix,
             "The delimiter has three or more characters. The reader ignores it and splits rows at tabs, or at the delimiter named before.",
             "Name one character in quotes, for example: Delimiter \",\"."},
    CodeInfo{Code::DelimiterEmpty, "MIF-H011", "delimiter-empty", E, kNoFix,
             "The Delimiter clause names no character, so the reader cannot split the rows.",
             "Name one character in quotes, for example: Delimiter \",\"."},
    CodeInfo{Code::DelimiterMissing, "MIF-H012", "delimiter-missing", N, kNoFix,
             "The header has no Delimiter clause. The reader splits rows at tabs.",
             "Add a Delimiter line if the rows are separated otherwise."},
    CodeInfo{Code::ColumnCount, "MIF-H013", "column-count", E, kFix,
             "The number after Columns does not match the column lines that follow. The reader takes other header lines for columns, or skips columns.",
             "Correct the number; --fix does when it is off by one."},
    CodeInfo{Code::ColumnType, "MIF-H014", "column-type", W, kNoFix,
             "A column has no type, or one that is not known, so its values cannot be checked.",
             "Use Char(n), Integer, SmallInt, LargeInt, Float, Decimal(w,d), Date, Time, DateTime or Logical."},
    CodeInfo{Code::ColumnRepeated, "MIF-H015", "column-repeated", W, kNoFix,
             "Two columns have the same name. The value of the later one replaces that of the earlier one.",
             "Rename one of them."},
    CodeInfo{Code::ClauseRepeated, "MIF-H016", "clause-repeated", W, kNoFix,
             "A header clause stands twice. The reader keeps the last one; of Columns it adds the names of both.",
             "Remove one of them."},
    CodeInfo{Code::UniqueClause, "MIF-H017", "unique-clause", W, kNoFix,
             "The header has a Unique clause. The reader warns that it does not support related tables, and goes on.",
             "Nothing is lost but the relation."},
    CodeInfo{Code::TransformIgnored, "MIF-H018", "transform-ignored", W, kNoFix,
             "The header has a Transform clause. The reader stores its numbers but does not apply them to the coordinates.",
             "Save the file with transformed coordinates and without the clause."},
    CodeInfo{Code::BoundsUnreadable, "MIF-H019", "bounds-unreadable", W, kNoFix,
             "The Bounds clause does not read (x1, y1) (x2, y2). The reader keeps the numbers before the fault and takes 0 for the others.",
             "Correct the clause."},
    CodeInfo{Code::BoundsReversed, "MIF-H020", "bounds-reversed", W, kNoFix,
             "The first corner of the bounds is not below and left of the second.",
             "Give the lower left corner first."},
    CodeInfo{Code::HeaderRestIgnored, "MIF-H021", "header-rest-ignored", W, kNoFix,
             "More text follows a header clause on its line. The reader skips it.",
             "Put each clause on a line of its own."},

    CodeInfo{Code::ProjectionUnknown, "MIF-C001", "projection-unknown", E, kFix,
             "The reader does not know the projection code; the import stops. --fix rewrites the codes that have an exact equal: 2000 + n, which only announces Bounds, is n, and 34 is 8.",
             "Read the geometry with 'qolf convert --assume-crs EPSG:…' and name the coordinate system there."},
    CodeInfo{Code::CoordSysMalformed, "MIF-C002", "coordsys-malformed", E, kNoFix,
             "There is no comma after the projection code; the import stops.",
             "Correct the clause: CoordSys Earth Projection 1, 104."},
    CodeInfo{Code::DatumUnknown, "MIF-C003", "datum-unknown", W, kNoFix,
             "The reader does not know the datum code. The objects come without a datum.",
             "Name the coordinate system with 'qolf convert --assume-crs EPSG:…'."},
    CodeInfo{Code::EllipsoidUnknown, "MIF-C004", "ellipsoid-unknown", W, kNoFix,
             "The reader does not know the ellipsoid code of the custom datum and takes Clarke 1866 instead. This happens with code 0 (GRS 80), too.",
             "Name the coordinate system with 'qolf convert --assume-crs EPSG:…'."},
    CodeInfo{Code::UnitIgnored, "MIF-C005", "unit-ignored", W, kFix,
             "The reader does not know the unit name and takes the coordinates as metres.",
             "Give the number of units per metre in quotes; --fix does for mi, km, in, ft, yd, mm, cm, nmi, li, ch and rd (the last three of survey feet)."},
    CodeInfo{Code::UnitIsNumber, "MIF-C006", "unit-is-number", N, kNoFix,
             "The unit is a number. The reader takes it as the number of units per metre, while some programs number the units.",
             "Make sure that units per metre are meant."},
    CodeInfo{Code::ParametersMissing, "MIF-C007", "parameters-missing", E, kNoFix,
             "The clause has fewer parameters than its projection takes. The reader takes what follows in the next lines, or 0, for the missing ones, and swallows those lines; the other subcommands take 0 for all, as long as --as-is is not given.",
             "Complete the clause."},
    CodeInfo{Code::CoordSysBoundsIgnored, "MIF-C008", "coordsys-bounds-ignored", N, kNoFix,
             "The reader ignores Bounds on the CoordSys line. It knows only a Bounds clause on a line of its own.",
             "Nothing is lost; add a Bounds line if pen widths and text heights should follow from it."},
    CodeInfo{Code::AffineIgnored, "MIF-C009", "affine-ignored", W, kNoFix,
             "The reader ignores the Affine part of the clause. The coordinates come out untransformed.",
             "Save the file without an affine transformation."},
    CodeInfo{Code::RangeIgnored, "MIF-C010", "range-ignored", N, kNoFix,
             "The reader ignores the range of an azimuthal projection, which only says how much of the Earth is shown.",
             "Nothing to do."},
    CodeInfo{Code::AlbersDisplaced, "MIF-C011", "albers-displaced", W, kNoFix,
             "The reader expects an azimuth before the false easting of the Albers projection. It takes the false easting for the azimuth and the false northing for the false easting.",
             "Name the coordinate system with 'qolf convert --assume-crs EPSG:…'."},
    CodeInfo{Code::NzmgDisplaced, "MIF-C012", "nzmg-displaced", W, kNoFix,
             "The reader expects only the false easting and the false northing of the New Zealand Map Grid. It takes the origin's longitude and latitude for them.",
             "Use 'qolf convert --assume-crs EPSG:27200'."},
    CodeInfo{Code::CoordSysKindIgnored, "MIF-C013", "coordsys-kind-ignored", N, kNoFix,
             "The clause names neither an Earth projection nor NonEarth. The reader takes the coordinates as plain numbers.",
             "Name the coordinate system with 'qolf convert --assume-crs EPSG:…' if it is known."},
    CodeInfo{Code::CoordSysRestIgnored, "MIF-C014", "coordsys-rest-ignored", W, kNoFix,
             "The CoordSys line holds more than its projection takes. The reader ignores the rest.",
             "Check that the projection code is the right one."},
    CodeInfo{Code::CoordSysMissing, "MIF-C015", "coordsys-missing", N, kNoFix,
             "The header has no CoordSys clause. By custom that means longitude and latitude; the reader takes plain numbers.",
             "Add the clause, or use 'qolf convert --assume-crs EPSG:4326'."},
    CodeInfo{Code::LineSwallowed, "MIF-C016", "line-swallowed", N, kFix,
             "The CoordSys clause ends early, and the reader takes the next header line as its continuation. A Columns line would be lost with all names of the columns; the other subcommands take care of it, as long as --as-is is not given.",
             "Put an empty line after the clause for other programs that use the reader; --fix does."},
    CodeInfo{Code::DataSwallowed, "MIF-C017", "data-swallowed", W, kFix,
             "The CoordSys clause ends early, and the reader takes the Data line as its continuation, which would stop the import; the other subcommands take care of it, as long as --as-is is not given.",
             "Put an empty line after the clause; --fix does."},
    CodeInfo{Code::BlankInIgnoredBounds, "MIF-C018", "blank-in-ignored-bounds", N, kFix,
             "A blank stands between a minus sign and its digits in the Bounds of the CoordSys line. The reader ignores these; other programs may not.",
             "Remove the blank; --fix does."},
    CodeInfo{Code::LineLost, "MIF-C019", "line-lost", W, kFix,
             "The reader looks for more of the CoordSys clause in the next header line and loses that line: a Columns line with all names of the columns, or the Data line, without which the import stops. This happens when nothing follows Earth, and when an Albers clause has no azimuth and nothing behind its parameters. The other subcommands take care of it, as long as --as-is is not given.",
             "Put an empty line after the clause for other programs that use the reader; --fix does."},

    CodeInfo{Code::ObjectUnknown, "MIF-O001", "object-unknown", E, kNoFix,
             "A line begins with a word that is no object; the import stops there. The check goes on at the next object.",
             "Correct or remove the line."},
    CodeInfo{Code::CountMismatch, "MIF-O002", "count-mismatch", E, kFix,
             "The count differs from what follows it. The reader takes other lines for vertices, or vertices for other lines.",
             "Correct the count; --fix does when it is off by one."},
    CodeInfo{Code::CountInvalid, "MIF-O003", "count-invalid", E, kNoFix,
             "The count is no whole number of 1 or more. The reader takes it as the number it begins with, or 0; below 1 the import stops (a Collection is taken to have 3 parts).",
             "Write the number of vertices or parts that follow."},
    CodeInfo{Code::CountOnNextLine, "MIF-O004", "count-on-next-line", E, kFix,
             "The count stands on the line after its keyword. The reader takes it as 0, and the import stops.",
             "Put it on the line of the keyword; --fix does."},
    CodeInfo{Code::EmptyLineInObject, "MIF-O005", "empty-line-in-object", E, kFix,
             "An empty line stands inside an object. The reader takes it as a vertex or a count of 0.",
             "Remove the line; --fix does."},
    CodeInfo{Code::NumberUnreadable, "MIF-O006", "number-unreadable", E, kNoFix,
             "A coordinate is no number, or one too large to hold. The reader takes it as the number it begins with, or 0.",
             "Correct the number."},
    CodeInfo{Code::NumberMissing, "MIF-O007", "number-missing", E, kNoFix,
             "A line has fewer numbers than its object needs. The reader takes the missing ones as 0.",
             "Complete the line."},
    CodeInfo{Code::DecimalComma, "MIF-O008", "decimal-comma", E, kFix,
             "Numbers have decimal commas. The reader cuts them at the comma.",
             "Use full stops; --fix does."},
    CodeInfo{Code::BlankAfterMinus, "MIF-O009", "blank-after-minus", E, kFix,
             "A blank stands between a minus sign and its digits. The reader takes the sign as a number of its own, 0.",
             "Remove the blank; --fix does."},
    CodeInfo{Code::CommaInNumbers, "MIF-O010", "comma-in-numbers", E, kNoFix,
             "Commas stand between the numbers, and they can be separators or decimal commas. The reader takes each as 0.",
             "Separate coordinates by blanks and use full stops."},
    CodeInfo{Code::RestIgnored, "MIF-O011", "rest-ignored", W, kNoFix,
             "A line holds more than the object needs. The reader skips the rest.",
             "Put each vertex and each clause on a line of its own."},
    CodeInfo{Code::OneVertexLine, "MIF-O012", "one-vertex-line", W, kNoFix,
             "A polyline or a section of one has one vertex only. The reader drops it.",
             "Use a Point, or remove it."},
    CodeInfo{Code::CollectionTakesRows, "MIF-O013", "collection-takes-rows", W, kNoFix,
             "The .mid has one row for each Collection, but the reader takes one row for each part. Every object after the first Collection gets a wrong row.",
             "Split the collections before the import, one row for each part."},
    CodeInfo{Code::TextEmpty, "MIF-O014", "text-empty", E, kNoFix,
             "A Text has no text. Behind the keyword, the reader takes the first word of the next line for it, and its box from the line after that. On a line of its own, it drops the object without taking its row, so later objects get the row of the object before them.",
             "Write a blank between the quotes, or remove the object and its row."},
    CodeInfo{Code::QuoteUnclosed, "MIF-O015", "quote-unclosed", W, kNoFix,
             "A quoted text has no closing quote on its line. The reader ends it at the line end.",
             "Add the quote."},
    CodeInfo{Code::StyleUnreadable, "MIF-O016", "style-unreadable", W, kNoFix,
             "A value of a style clause is no whole number. The reader takes it as the number it begins with, or 0.",
             "Correct the clause."},
    CodeInfo{Code::StyleIncomplete, "MIF-O017", "style-incomplete", W, kNoFix,
             "A style clause has fewer values than it needs. The reader may take the next line for them.",
             "Complete the clause."},
    CodeInfo{Code::AngleTruncated, "MIF-O018", "angle-truncated", N, kNoFix,
             "The angle of a text has a fraction. The reader cuts it off.",
             "Nothing to do if a degree does not matter."},
    CodeInfo{Code::ArcMisplaced, "MIF-O019", "arc-misplaced", W, kFix,
             "The reader computes the ends of an Arc in a way of its own and misses the true curve.",
             "Store the arc as a polyline; --fix does."},
    CodeInfo{Code::ClauseWithoutEffect, "MIF-O020", "clause-without-effect", N, kNoFix,
             "The reader skips the clauses Smooth, Spacing and Label.",
             "Nothing to do if the look does not matter."},
    CodeInfo{Code::NoObjects, "MIF-O021", "no-objects", N, kNoFix,
             "No object follows the Data line.", "Make sure that the file is complete."},
    CodeInfo{Code::LastObjectLost, "MIF-O022", "last-object-lost", E, kFix,
             "The file ends right after a keyword without a line end. The reader takes that as the end and drops the last object with its row.",
             "Add a line end; --fix does."},

    CodeInfo{Code::RingNotClosed, "MIF-G001", "ring-not-closed", W, kNoFix,
             "The last vertex of a ring is not the first one. The reader does not close it.",
             "Repeat the first vertex at the end."},
    CodeInfo{Code::RingCrossesItself, "MIF-G002", "ring-crosses-itself", W, kNoFix,
             "The outline of a region crosses itself, so inside and outside are not clear.",
             "Correct the outline at that place."},
    CodeInfo{Code::RingTouchesItself, "MIF-G003", "ring-touches-itself", N, kNoFix,
             "The outline of a region touches itself in a point.",
             "Split the ring there if a program refuses it."},
    CodeInfo{Code::RingTooSmall, "MIF-G004", "ring-too-small", W, kNoFix,
             "A ring has fewer than three different vertices, so it has no area.",
             "Remove the ring."},
    CodeInfo{Code::DuplicateVertices, "MIF-G005", "duplicate-vertices", N, kNoFix,
             "The same point stands twice in a row.", "Nothing to do; remove one if a program refuses it."},
    CodeInfo{Code::OutsideBounds, "MIF-G006", "outside-bounds", W, kNoFix,
             "A coordinate lies outside the bounds that the header declares.",
             "Check the coordinate, or enlarge the bounds."},
    CodeInfo{Code::OutsideEarth, "MIF-G007", "outside-earth", W, kNoFix,
             "A coordinate cannot lie on the Earth in the declared coordinate system.",
             "Check the coordinate, the order of x and y, and the CoordSys clause."},
    CodeInfo{Code::RingNotTested, "MIF-G008", "ring-not-tested", N, kNoFix,
             "A ring has too many vertices, or coordinates that are no numbers, and was not tested for self-crossing.",
             "Split the ring if it has to be tested."},

    CodeInfo{Code::MidMissing, "MIF-R001", "mid-missing", W, kNoFix,
             "The header declares columns, but there is no .mid file. The objects come without attributes.",
             "Put the .mid file beside the .mif file."},
    CodeInfo{Code::MidNameCase, "MIF-R002", "mid-name-case", N, kNoFix,
             "The .mid file exists only under a name with other capitals. Programs that tell capitals apart do not find it.",
             "Rename it."},
    CodeInfo{Code::ObjectWithoutRow, "MIF-R003", "object-without-row", E, kNoFix,
             "The .mid has fewer rows than the .mif has objects. The last objects come without attributes, or all rows are shifted.",
             "Find the missing row or the surplus object."},
    CodeInfo{Code::RowWithoutObject, "MIF-R004", "row-without-object", E, kNoFix,
             "The .mid has more rows than the .mif has objects. The last rows are not read, or all rows are shifted.",
             "Find the surplus row; an object without geometry needs the line None."},
    CodeInfo{Code::RowTooShort, "MIF-R005", "row-too-short", E, kNoFix,
             "A row has fewer values than there are columns. The reader leaves the others empty.",
             "Check the delimiter, and the quotes of the row."},
    CodeInfo{Code::RowTooLong, "MIF-R006", "row-too-long", E, kNoFix,
             "A row has more values than there are columns. The reader drops the rest; values may stand in wrong columns.",
             "Put values that hold the delimiter in quotes."},
    CodeInfo{Code::RowTrailingDelimiter, "MIF-R007", "row-trailing-delimiter", N, kNoFix,
             "A row ends with one delimiter too many. The reader ignores it.", "Nothing to do."},
    CodeInfo{Code::RowEmpty, "MIF-R008", "row-empty", W, kNoFix,
             "An empty line stands between the rows. The reader gives it to an object, which then has no attributes.",
             "Remove the line if no object belongs to it."},
    CodeInfo{Code::LineBreakInValue, "MIF-R009", "line-break-in-value", E, kFix,
             "A quoted value holds a line break. The reader ends the row there, and all later rows are shifted.",
             "Replace the line break by a blank; --fix does."},
    CodeInfo{Code::RowQuoteUnclosed, "MIF-R010", "row-quote-unclosed", E, kNoFix,
             "A row has a quote without its partner. The reader takes the delimiters after it as text.",
             "Add or remove the quote."},
    CodeInfo{Code::DoubledQuote, "MIF-R011", "doubled-quote", W, kNoFix,
             "A quoted value holds a doubled quote. The reader ends the value at the first of the two.",
             "Use another character for the quotes inside."},
    CodeInfo{Code::EmptyFieldUnderTab, "MIF-R012", "empty-field-under-tab", W, kFix,
             "A value between two tabs is empty. The reader skips all tabs and takes the next value for it.",
             "Use commas and quotes; --fix does."},
    CodeInfo{Code::ValueNotOfType, "MIF-R013", "value-not-of-type", W, kNoFix,
             "A value is not of the type of its column. The reader hands it on as text.",
             "Correct the value or the type of the column."},
    CodeInfo{Code::ValueTooWide, "MIF-R014", "value-too-wide", W, kNoFix,
             "A value is wider than its column, or has more decimals. The reader hands it on whole; other programs cut it.",
             "Shorten the value or widen the column."},
    CodeInfo{Code::RowsWithoutColumns, "MIF-R015", "rows-without-columns", N, kNoFix,
             "The .mid has rows, but the header declares no columns. The reader drops the rows.",
             "Add a Columns clause if the values matter."},
    CodeInfo{Code::DecimalCommaInValue, "MIF-R016", "decimal-comma-in-value", W, kFix,
             "A number in the .mid has a decimal comma.", "Use a full stop; --fix does."},

    CodeInfo{Code::OutsideCharset, "MIF-T001", "outside-charset", W, kNoFix,
             "A line holds bytes that are no characters of the declared charset.",
             "Correct the Charset clause or convert the file."},
    CodeInfo{Code::LooksLikeUtf8, "MIF-T002", "looks-like-utf-8", W, kNoFix,
             "The file declares another charset, but its letters beyond ASCII form valid UTF-8.",
             "Correct the Charset clause: UTF-8."},
    CodeInfo{Code::NeutralBytes, "MIF-T003", "neutral-bytes", N, kNoFix,
             "The charset is Neutral, which says nothing of letters beyond ASCII, and there are such letters.",
             "Name the charset."},

    CodeInfo{Code::ModuleWarning, "MIF-M001", "module-warning", W, kNoFix,
             "The import gave this warning.", "See the other findings for its place."},
    CodeInfo{Code::ModuleError, "MIF-M002", "module-error", E, kNoFix,
             "The import stopped with this error.", "See the other findings for its place."},
};
// clang-format on

std::string EscapedForTable(std::string_view text) {
    std::string escaped;
    for (const char c : text) {
        if (c == '|') {
            escaped += '\\';
        }
        escaped += c;
    }
    return escaped;
}

}  // namespace

std::span<const CodeInfo> AllCodes() {
    return kCodes;
}

const CodeInfo& InfoOf(Code code) {
    const CodeInfo& info = kCodes[static_cast<std::size_t>(code)];
    assert(info.code == code);
    return info;
}

std::string_view SeverityName(Severity severity) {
    switch (severity) {
    case Severity::Error:
        return "error";
    case Severity::Warning:
        return "warning";
    case Severity::Note:
        return "note";
    }
    return "note";
}

std::string CodesAsMarkdown() {
    std::string text =
        "# Findings of `qolf check`\n\n"
        "Each finding has a code that does not change between releases.\n\n"
        "- **error**: the import stops, or the files contradict themselves, so that values come "
        "out wrong.\n"
        "- **warning**: the import goes on, but something is taken otherwise than it says, or "
        "looks wrong.\n"
        "- **note**: nothing is wrong, but worth knowing.\n\n"
        "`--fix` stands at those that `qolf check --fix OUT.mif` repairs, at least in the cases "
        "that have one right repair.\n\n"
        "This page is printed by `qolf check --codes`.\n\n"
        "| Code | Name | Severity | Repair | What it means | What to do |\n"
        "|---|---|---|---|---|---|\n";
    for (const CodeInfo& info : kCodes) {
        text += "| " + std::string(info.id) + " | " + info.name + " | " +
                std::string(SeverityName(info.severity)) + " | " +
                (info.isFixable ? "`--fix`" : "") + " | " + EscapedForTable(info.meaning) + " | " +
                EscapedForTable(info.advice) + " |\n";
    }
    return text;
}

}  // namespace app::check
