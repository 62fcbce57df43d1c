#include "app/mif/FindingCodes.h"

#include <array>
#include <cassert>
#include <cstddef>

namespace app {
namespace {

constexpr Severity E = Severity::Error;
constexpr Severity W = Severity::Warning;
constexpr Severity N = Severity::Note;
constexpr bool kFix = true;
constexpr bool kNoFix = false;
constexpr ReadByCommand kRead = ReadByCommand::Yes;
constexpr ReadByCommand kNotRead = ReadByCommand::No;
constexpr ReadByCommand kByClause = ReadByCommand::WithClause;

// clang-format off
constexpr std::array kCodes = {
    FindingInfo{FindingCode::FileUnreadable, "MIF-F001", "file-unreadable", E, kNoFix, kNotRead,
             "The file cannot be opened or read, or is no MIF file.", "Check the name and the permissions."},
    FindingInfo{FindingCode::ByteOrderMark, "MIF-F002", "byte-order-mark", E, kFix, kRead,
             "The file begins with the UTF-8 byte-order mark. The reader takes it as a part of the first word, so the first header line, or the first value of the .mid, is not recognised.",
             "Remove the three bytes; --fix does."},
    FindingInfo{FindingCode::LoneCarriageReturn, "MIF-F003", "lone-carriage-return", E, kFix, kRead,
             "Lines end with a carriage return alone. The reader drops that character, so the lines run together.",
             "Convert the line ends; --fix does."},
    FindingInfo{FindingCode::Utf16, "MIF-F004", "utf-16", E, kNoFix, kNotRead,
             "The file is encoded in UTF-16, which the reader cannot take: it reads single bytes.",
             "Save the file in UTF-8 without a byte-order mark, or in the code page of its Charset clause."},
    FindingInfo{FindingCode::NulByte, "MIF-F005", "nul-byte", E, kNoFix, kNotRead,
             "The text holds a NUL byte. The reader ends a word or a row there.",
             "The file is damaged or no text; get a fresh copy."},
    FindingInfo{FindingCode::LineTooLong, "MIF-F006", "line-too-long", W, kNoFix, kNotRead,
             "A line is longer than 1 MiB. The check looks at its beginning only.",
             "Look whether line ends are missing."},
    FindingInfo{FindingCode::FinalLineEndMissing, "MIF-F007", "final-line-end-missing", W, kFix, kRead,
             "The last line has no line end.", "Add one; --fix does."},

    FindingInfo{FindingCode::HeaderLineSkipped, "MIF-H001", "header-line-skipped", W, kNoFix, kNotRead,
             "A header line begins with an unknown word. The reader skips the line.",
             "Correct the spelling or remove the line."},
    FindingInfo{FindingCode::VersionMissing, "MIF-H002", "version-missing", E, kNoFix, kRead,
             "The header has no Version clause; the import stops.",
             "Add the line \"Version 300\" at the top."},
    FindingInfo{FindingCode::VersionInvalid, "MIF-H003", "version-invalid", E, kNoFix, kRead,
             "The reader does not take the version number (it takes 1, 2 and 300 to 2999); the import stops.",
             "Write the version of the program that made the file, or 300."},
    FindingInfo{FindingCode::VersionUnsupported, "MIF-H004", "version-unsupported", W, kNoFix, kRead,
             "The version lies between 1101 and 2999. The reader warns and goes on.",
             "Save the file in an older version if parts of it are missing afterwards."},
    FindingInfo{FindingCode::HeaderIncomplete, "MIF-H005", "header-incomplete", E, kNoFix, kRead,
             "The header has none of Charset, Delimiter, CoordSys, Bounds and Columns; the import stops.",
             "Add at least a Charset line."},
    FindingInfo{FindingCode::DataMissing, "MIF-H006", "data-missing", E, kNoFix, kNotRead,
             "The file ends before a Data line; the import stops.",
             "Add the line \"Data\" after the header; if there is no header, this is no .mif file."},
    FindingInfo{FindingCode::HeaderTooLong, "MIF-H007", "header-too-long", E, kNoFix, kRead,
             "The Data line does not come within the first 65,536 bytes; the import stops.",
             "Remove what is before or inside the header."},
    FindingInfo{FindingCode::CharsetMissing, "MIF-H008", "charset-missing", N, kNoFix, kNotRead,
             "The header has no Charset clause, so nothing says how to read letters beyond ASCII.",
             "Add a Charset line, for example: Charset \"WindowsLatin1\"."},
    FindingInfo{FindingCode::CharsetUnknown, "MIF-H009", "charset-unknown", W, kNoFix, kNotRead,
             "The name after Charset is unknown, so the characters cannot be checked.",
             "Correct the name."},
    FindingInfo{FindingCode::DelimiterIgnored, "MIF-H010", "delimiter-ignored", W, kNoFix, kRead,
             "The delimiter has three or more characters. The reader ignores it and splits rows at tabs, or at the delimiter named before.",
             "Name one character in quotes, for example: Delimiter \",\"."},
    FindingInfo{FindingCode::DelimiterEmpty, "MIF-H011", "delimiter-empty", E, kNoFix, kRead,
             "The Delimiter clause names no character, so the reader cannot split the rows.",
             "Name one character in quotes, for example: Delimiter \",\"."},
    FindingInfo{FindingCode::DelimiterMissing, "MIF-H012", "delimiter-missing", N, kNoFix, kNotRead,
             "The header has no Delimiter clause. The reader splits rows at tabs.",
             "Add a Delimiter line if the rows are separated otherwise."},
    FindingInfo{FindingCode::ColumnCount, "MIF-H013", "column-count", E, kFix, kRead,
             "The number after Columns does not match the column lines that follow. The reader takes other header lines for columns, or skips columns.",
             "Correct the number; --fix does when it is off by one."},
    FindingInfo{FindingCode::ColumnType, "MIF-H014", "column-type", W, kNoFix, kRead,
             "A column has no type, or one that is not known, so its values cannot be checked.",
             "Use Char(n), Integer, SmallInt, LargeInt, Float, Decimal(w,d), Date, Time, DateTime or Logical."},
    FindingInfo{FindingCode::ColumnRepeated, "MIF-H015", "column-repeated", W, kNoFix, kRead,
             "Two columns have the same name. The value of the later one replaces that of the earlier one.",
             "Rename one of them."},
    FindingInfo{FindingCode::ClauseRepeated, "MIF-H016", "clause-repeated", W, kNoFix, kRead,
             "A header clause occurs twice. The reader keeps the last one; of Columns it adds the names of both.",
             "Remove one of them."},
    FindingInfo{FindingCode::UniqueClause, "MIF-H017", "unique-clause", W, kNoFix, kNotRead,
             "The header has a Unique clause. The reader warns that it does not support related tables, and goes on.",
             "Nothing is lost but the relation."},
    FindingInfo{FindingCode::TransformIgnored, "MIF-H018", "transform-ignored", W, kNoFix, kRead,
             "The header has a Transform clause. The reader stores its numbers but does not apply them to the coordinates.",
             "Save the file with transformed coordinates and without the clause."},
    FindingInfo{FindingCode::BoundsUnreadable, "MIF-H019", "bounds-unreadable", W, kNoFix, kNotRead,
             "The Bounds clause does not read (x1, y1) (x2, y2). The reader keeps the numbers before the fault and takes 0 for the others.",
             "Correct the clause."},
    FindingInfo{FindingCode::BoundsReversed, "MIF-H020", "bounds-reversed", W, kNoFix, kNotRead,
             "The first corner of the bounds is not below and left of the second.",
             "Give the lower left corner first."},
    FindingInfo{FindingCode::HeaderRestIgnored, "MIF-H021", "header-rest-ignored", W, kNoFix, kNotRead,
             "More text follows a header clause on its line. The reader skips it.",
             "Put each clause on a line of its own."},
    FindingInfo{FindingCode::ColumnNameCut, "MIF-H022", "column-name-cut", W, kNoFix, kRead,
             "A column's name has blanks and no quotes. The reader takes its first word, and what follows for the type.",
             "Put the name in quotes, or underscores for the blanks."},

    FindingInfo{FindingCode::ProjectionUnknown, "MIF-C001", "projection-unknown", E, kFix, kByClause,
             "The reader does not know the projection code; the import stops. --fix rewrites the codes that have an exact equal: 2000 + n, which only announces Bounds, is n, and 34 is 8.",
             "Save the file with a projection that the reader knows."},
    FindingInfo{FindingCode::CoordSysMalformed, "MIF-C002", "coordsys-malformed", E, kNoFix, kByClause,
             "There is no comma after the projection code; the import stops.",
             "Correct the clause: CoordSys Earth Projection 1, 104."},
    FindingInfo{FindingCode::DatumUnknown, "MIF-C003", "datum-unknown", W, kNoFix, kByClause,
             "The reader does not know the datum code. The objects come without a datum.",
             "Name the coordinate system with 'qolf convert --assume-crs EPSG:…'."},
    FindingInfo{FindingCode::EllipsoidUnknown, "MIF-C004", "ellipsoid-unknown", W, kNoFix, kByClause,
             "The reader does not know the ellipsoid code of the custom datum and takes Clarke 1866 instead. This happens with code 0 (GRS 80), too.",
             "Give the code of an ellipsoid that the reader knows: 28 (WGS 84) is 0.1 mm from GRS 80."},
    FindingInfo{FindingCode::UnitIgnored, "MIF-C005", "unit-ignored", W, kFix, kByClause,
             "The reader does not know the unit name and takes the coordinates as metres.",
             "Give the number of units per metre in quotes; --fix does for mi, km, in, ft, yd, mm, cm, nmi, li, ch and rd (the last three of survey feet)."},
    FindingInfo{FindingCode::UnitIsNumber, "MIF-C006", "unit-is-number", N, kNoFix, kByClause,
             "The unit is a number. The reader takes it as the number of units per metre, while some programs number the units.",
             "Make sure that units per metre are meant."},
    FindingInfo{FindingCode::ParametersMissing, "MIF-C007", "parameters-missing", E, kNoFix, kByClause,
             "The clause has fewer parameters than its projection takes. The reader takes what follows in the next lines, or 0, for the missing ones, and swallows those lines; the other subcommands take 0 for all, as long as --as-is is not given.",
             "Complete the clause."},
    FindingInfo{FindingCode::CoordSysBoundsIgnored, "MIF-C008", "coordsys-bounds-ignored", N, kNoFix, kRead,
             "The reader ignores Bounds on the CoordSys line. It knows only a Bounds clause on a line of its own.",
             "Nothing is lost; add a Bounds line if pen widths and text heights should follow from it."},
    FindingInfo{FindingCode::AffineIgnored, "MIF-C009", "affine-ignored", W, kNoFix, kByClause,
             "The reader ignores the Affine part of the clause. The coordinates come out untransformed.",
             "Save the file without an affine transformation."},
    FindingInfo{FindingCode::RangeIgnored, "MIF-C010", "range-ignored", N, kNoFix, kByClause,
             "The reader ignores the range of an azimuthal projection, which only says how much of the Earth is shown.",
             "Nothing to do."},
    FindingInfo{FindingCode::AlbersDisplaced, "MIF-C011", "albers-displaced", W, kNoFix, kByClause,
             "The reader expects an azimuth before the false easting of the Albers projection. It takes the false easting for the azimuth and the false northing for the false easting.",
             "Put an azimuth of 0 before the false easting."},
    FindingInfo{FindingCode::NzmgDisplaced, "MIF-C012", "nzmg-displaced", W, kNoFix, kByClause,
             "The reader expects only the false easting and the false northing of the New Zealand Map Grid. It takes the origin's longitude and latitude for them.",
             "Name the coordinate system in the other program: it is EPSG:27200."},
    FindingInfo{FindingCode::CoordSysKindIgnored, "MIF-C013", "coordsys-kind-ignored", N, kNoFix, kByClause,
             "The clause names neither an Earth projection nor NonEarth. The reader takes the coordinates as plain numbers.",
             "Name the coordinate system with 'qolf convert --assume-crs EPSG:…' if it is known."},
    FindingInfo{FindingCode::CoordSysRestIgnored, "MIF-C014", "coordsys-rest-ignored", W, kNoFix, kByClause,
             "The CoordSys line holds more than its projection takes. The reader ignores the rest.",
             "Check that the projection code is the right one."},
    FindingInfo{FindingCode::CoordSysMissing, "MIF-C015", "coordsys-missing", N, kNoFix, kNotRead,
             "The header has no CoordSys clause. By custom that means longitude and latitude; the reader takes plain numbers.",
             "Add the clause, or use 'qolf convert --assume-crs EPSG:4326'."},
    FindingInfo{FindingCode::LineSwallowed, "MIF-C016", "line-swallowed", N, kFix, kRead,
             "The CoordSys clause ends early, and the reader takes the next header line as its continuation. A Columns line would be lost with all names of the columns; the other subcommands take care of it, as long as --as-is is not given.",
             "Put an empty line after the clause for other programs that use the reader; --fix does."},
    FindingInfo{FindingCode::DataSwallowed, "MIF-C017", "data-swallowed", W, kFix, kRead,
             "The CoordSys clause ends early, and the reader takes the Data line as its continuation, which would stop the import; the other subcommands take care of it, as long as --as-is is not given.",
             "Put an empty line after the clause; --fix does."},
    FindingInfo{FindingCode::BlankInIgnoredBounds, "MIF-C018", "blank-in-ignored-bounds", N, kFix, kNotRead,
             "A blank is between a minus sign and its digits in the Bounds of the CoordSys line. The reader ignores these; other programs may not.",
             "Remove the blank; --fix does."},
    FindingInfo{FindingCode::LineLost, "MIF-C019", "line-lost", W, kFix, kRead,
             "The reader looks for more of the CoordSys clause in the next header line and loses that line: a Columns line with all names of the columns, or the Data line, without which the import stops. This happens when nothing follows Earth, and when an Albers clause has no azimuth and nothing behind its parameters. The other subcommands take care of it, as long as --as-is is not given.",
             "Put an empty line after the clause for other programs that use the reader; --fix does."},
    FindingInfo{FindingCode::UnitMissing, "MIF-C020", "unit-missing", W, kNoFix, kByClause,
             "The clause has no unit where it should be. The reader takes the next number for it.",
             "Write the unit behind the datum, for example \"m\"."},
    FindingInfo{FindingCode::ParameterOutOfRange, "MIF-C021", "parameter-out-of-range", W, kNoFix, kByClause,
             "A number of the clause is missing or out of range, so that there is no such coordinate system. The reader does not notice.",
             "Correct the clause."},

    FindingInfo{FindingCode::ObjectUnknown, "MIF-O001", "object-unknown", E, kNoFix, kNotRead,
             "A line begins with a word that names no object; the import stops there. The check goes on at the next object.",
             "Correct or remove the line."},
    FindingInfo{FindingCode::CountMismatch, "MIF-O002", "count-mismatch", E, kFix, kRead,
             "The count differs from what follows it. The reader takes other lines for vertices, or vertices for other lines.",
             "Correct the count; --fix does when it is off by one."},
    FindingInfo{FindingCode::CountInvalid, "MIF-O003", "count-invalid", E, kNoFix, kRead,
             "The count is no whole number of 1 or more. The reader takes it as the number it begins with, or 0; below 1 the import stops (a Collection is taken to have 3 parts).",
             "Write the number of vertices or parts that follow."},
    FindingInfo{FindingCode::CountOnNextLine, "MIF-O004", "count-on-next-line", E, kFix, kRead,
             "The count is on the line after its keyword. The reader takes it as 0, and the import stops.",
             "Put it on the line of the keyword; --fix does."},
    FindingInfo{FindingCode::EmptyLineInObject, "MIF-O005", "empty-line-in-object", E, kFix, kRead,
             "An empty line is inside an object. The reader takes it as a vertex or a count of 0.",
             "Remove the line; --fix does."},
    FindingInfo{FindingCode::NumberUnreadable, "MIF-O006", "number-unreadable", E, kNoFix, kNotRead,
             "A coordinate is no number, or one too large to hold. The reader takes it as the number it begins with, or 0.",
             "Correct the number."},
    FindingInfo{FindingCode::NumberMissing, "MIF-O007", "number-missing", E, kNoFix, kNotRead,
             "A line has fewer numbers than its object needs. The reader takes the missing ones as 0.",
             "Complete the line."},
    FindingInfo{FindingCode::DecimalComma, "MIF-O008", "decimal-comma", E, kFix, kRead,
             "Numbers have decimal commas. The reader cuts them at the comma.",
             "Use full stops; --fix does."},
    FindingInfo{FindingCode::BlankAfterMinus, "MIF-O009", "blank-after-minus", E, kFix, kRead,
             "A blank is between a minus sign and its digits. The reader takes the sign as a number of its own, 0.",
             "Remove the blank; --fix does."},
    FindingInfo{FindingCode::CommaInNumbers, "MIF-O010", "comma-in-numbers", E, kNoFix, kRead,
             "Commas are between the numbers, and they can be separators or decimal commas. The reader takes each as 0.",
             "Separate coordinates by blanks and use full stops."},
    FindingInfo{FindingCode::RestIgnored, "MIF-O011", "rest-ignored", W, kNoFix, kNotRead,
             "A line holds more than the object needs. The reader skips the rest.",
             "Put each vertex and each clause on a line of its own."},
    FindingInfo{FindingCode::OneVertexLine, "MIF-O012", "one-vertex-line", W, kNoFix, kNotRead,
             "A polyline or a section of one has one vertex only. The reader drops it.",
             "Use a Point, or remove it."},
    FindingInfo{FindingCode::CollectionTakesRows, "MIF-O013", "collection-takes-rows", W, kNoFix, kRead,
             "The .mid has one row for each Collection, but the reader takes one row for each part. Every object after the first Collection gets a wrong row.",
             "Split the collections before the import, one row for each part."},
    FindingInfo{FindingCode::TextEmpty, "MIF-O014", "text-empty", E, kNoFix, kRead,
             "A Text has no text. Behind the keyword, the reader takes the first word of the next line for it, and its box from the line after that. On a line of its own, it drops the object without taking its row, so later objects get the row of the object before them.",
             "Write a blank between the quotes, or remove the object and its row."},
    FindingInfo{FindingCode::QuoteUnclosed, "MIF-O015", "quote-unclosed", W, kNoFix, kNotRead,
             "A quoted text has no closing quote on its line. The reader ends it at the line end.",
             "Add the quote."},
    FindingInfo{FindingCode::StyleUnreadable, "MIF-O016", "style-unreadable", W, kNoFix, kNotRead,
             "A value of a style clause is no whole number. The reader takes it as the number it begins with, or 0.",
             "Correct the clause."},
    FindingInfo{FindingCode::StyleIncomplete, "MIF-O017", "style-incomplete", W, kNoFix, kNotRead,
             "A style clause has fewer values than it needs. The reader may take the next line for them.",
             "Complete the clause."},
    FindingInfo{FindingCode::AngleTruncated, "MIF-O018", "angle-truncated", N, kNoFix, kRead,
             "The angle of a text has a fraction. The reader cuts it off.",
             "Nothing to do if a degree does not matter."},
    FindingInfo{FindingCode::ArcMisplaced, "MIF-O019", "arc-misplaced", W, kFix, kRead,
             "The reader computes the ends of an Arc in a way of its own and misses the true curve.",
             "Store the arc as a polyline; --fix does."},
    FindingInfo{FindingCode::ClauseWithoutEffect, "MIF-O020", "clause-without-effect", N, kNoFix, kRead,
             "The reader skips the clauses Smooth, Spacing and Label.",
             "Nothing to do if the look does not matter."},
    FindingInfo{FindingCode::NoObjects, "MIF-O021", "no-objects", N, kNoFix, kNotRead,
             "No object follows the Data line.", "Make sure that the file is complete."},
    FindingInfo{FindingCode::LastObjectLost, "MIF-O022", "last-object-lost", E, kFix, kRead,
             "The file ends right after a keyword without a line end. The reader takes that as the end and drops the last object with its row.",
             "Add a line end; --fix does."},
    FindingInfo{FindingCode::ClauseOnObjectLine, "MIF-O023", "clause-on-object-line", W, kNoFix, kRead,
             "A style clause is on the line of its object. The reader skips it.",
             "Put each clause on a line of its own."},
    FindingInfo{FindingCode::NumbersOnNextLine, "MIF-O024", "numbers-on-next-line", E, kNoFix, kRead,
             "The coordinates of an object are on the line after its keyword. The reader takes them as 0, and the import stops at their line.",
             "Put them on the line of the keyword."},
    FindingInfo{FindingCode::CollectionNested, "MIF-O025", "collection-nested", W, kNoFix, kRead,
             "A Collection is a part of another Collection, which the format does not have. Its parts are taken for parts of the outer one.",
             "Write one Collection with all parts."},

    FindingInfo{FindingCode::RingNotClosed, "MIF-G001", "ring-not-closed", W, kNoFix, kNotRead,
             "The last vertex of a ring is not the first one. The reader does not close it.",
             "Repeat the first vertex at the end."},
    FindingInfo{FindingCode::RingCrossesItself, "MIF-G002", "ring-crosses-itself", W, kNoFix, kNotRead,
             "The outline of a region crosses itself, so inside and outside are not clear.",
             "Correct the outline at that place."},
    FindingInfo{FindingCode::RingTouchesItself, "MIF-G003", "ring-touches-itself", N, kNoFix, kNotRead,
             "The outline of a region touches itself in a point.",
             "Split the ring there if a program refuses it."},
    FindingInfo{FindingCode::RingTooSmall, "MIF-G004", "ring-too-small", W, kNoFix, kNotRead,
             "A ring has fewer than three different vertices, so it has no area.",
             "Remove the ring."},
    FindingInfo{FindingCode::DuplicateVertices, "MIF-G005", "duplicate-vertices", N, kNoFix, kNotRead,
             "The same point comes twice in a row.", "Nothing to do; remove one if a program refuses it."},
    FindingInfo{FindingCode::OutsideBounds, "MIF-G006", "outside-bounds", W, kNoFix, kNotRead,
             "A coordinate lies outside the bounds that the header declares.",
             "Check the coordinate, or enlarge the bounds."},
    FindingInfo{FindingCode::OutsideEarth, "MIF-G007", "outside-earth", W, kNoFix, kNotRead,
             "A coordinate cannot lie on the Earth in the declared coordinate system.",
             "Check the coordinate, the order of x and y, and the CoordSys clause."},
    FindingInfo{FindingCode::RingNotTested, "MIF-G008", "ring-not-tested", N, kNoFix, kNotRead,
             "A ring has too many vertices, or coordinates that are no numbers, and was not tested for self-crossing.",
             "Split the ring if it has to be tested."},

    FindingInfo{FindingCode::MidMissing, "MIF-R001", "mid-missing", W, kNoFix, kNotRead,
             "The header declares columns, but there is no .mid file. The objects come without attributes.",
             "Put the .mid file beside the .mif file."},
    FindingInfo{FindingCode::MidNameCase, "MIF-R002", "mid-name-case", N, kNoFix, kNotRead,
             "The .mid file exists only under a name with other capitals. Programs that tell capitals apart do not find it.",
             "Rename it."},
    FindingInfo{FindingCode::ObjectWithoutRow, "MIF-R003", "object-without-row", E, kNoFix, kNotRead,
             "The .mid has fewer rows than the .mif has objects. The last objects come without attributes, or all rows are shifted.",
             "Find the missing row or the surplus object."},
    FindingInfo{FindingCode::RowWithoutObject, "MIF-R004", "row-without-object", E, kNoFix, kNotRead,
             "The .mid has more rows than the .mif has objects. The last rows are not read, or all rows are shifted.",
             "Find the surplus row; an object without geometry needs the line None."},
    FindingInfo{FindingCode::RowTooShort, "MIF-R005", "row-too-short", E, kNoFix, kNotRead,
             "A row has fewer values than there are columns. The reader leaves the others empty.",
             "Check the delimiter, and the quotes of the row."},
    FindingInfo{FindingCode::RowTooLong, "MIF-R006", "row-too-long", E, kNoFix, kNotRead,
             "A row has more values than there are columns. The reader drops the rest; values may be in wrong columns.",
             "Put values that hold the delimiter in quotes."},
    FindingInfo{FindingCode::RowTrailingDelimiter, "MIF-R007", "row-trailing-delimiter", N, kNoFix, kRead,
             "A row ends with one delimiter too many. The reader ignores it.", "Nothing to do."},
    FindingInfo{FindingCode::RowEmpty, "MIF-R008", "row-empty", W, kNoFix, kNotRead,
             "An empty line is between the rows. The reader gives it to an object, which then has no attributes.",
             "Remove the line if no object belongs to it."},
    FindingInfo{FindingCode::LineBreakInValue, "MIF-R009", "line-break-in-value", E, kFix, kRead,
             "A quoted value holds a line break. The reader ends the row there, and all later rows are shifted.",
             "Replace the line break by a blank; --fix does."},
    FindingInfo{FindingCode::RowQuoteUnclosed, "MIF-R010", "row-quote-unclosed", E, kNoFix, kNotRead,
             "A row has a quote without its partner. The reader takes the delimiters after it as text.",
             "Add or remove the quote."},
    FindingInfo{FindingCode::DoubledQuote, "MIF-R011", "doubled-quote", W, kNoFix, kRead,
             "A quoted value holds a doubled quote. The reader ends the value at the first of the two.",
             "Use another character for the quotes inside."},
    FindingInfo{FindingCode::EmptyFieldUnderTab, "MIF-R012", "empty-field-under-tab", W, kFix, kRead,
             "A value between two tabs is empty. The reader skips all tabs and takes the next value for it.",
             "Use commas and quotes; --fix does."},
    FindingInfo{FindingCode::ValueNotOfType, "MIF-R013", "value-not-of-type", W, kNoFix, kNotRead,
             "A value is not of the type of its column. The reader hands it on as text.",
             "Correct the value or the type of the column."},
    FindingInfo{FindingCode::ValueTooWide, "MIF-R014", "value-too-wide", W, kNoFix, kNotRead,
             "A value is wider than its column, or has more decimals. The reader hands it on whole; other programs cut it.",
             "Shorten the value or widen the column."},
    FindingInfo{FindingCode::RowsWithoutColumns, "MIF-R015", "rows-without-columns", N, kNoFix, kNotRead,
             "The .mid has rows, but the header declares no columns. The reader drops the rows.",
             "Add a Columns clause if the values matter."},
    FindingInfo{FindingCode::DecimalCommaInValue, "MIF-R016", "decimal-comma-in-value", W, kFix, kNotRead,
             "A number in the .mid has a decimal comma.", "Use a full stop; --fix does."},

    FindingInfo{FindingCode::OutsideCharset, "MIF-T001", "outside-charset", W, kNoFix, kNotRead,
             "A line holds bytes that are no characters of the declared charset.",
             "Correct the Charset clause or convert the file."},
    FindingInfo{FindingCode::LooksLikeUtf8, "MIF-T002", "looks-like-utf-8", W, kNoFix, kRead,
             "The file declares another charset, but its letters beyond ASCII form valid UTF-8.",
             "Correct the Charset clause: UTF-8."},
    FindingInfo{FindingCode::NeutralBytes, "MIF-T003", "neutral-bytes", N, kNoFix, kNotRead,
             "The charset is Neutral, which says nothing of letters beyond ASCII, and there are such letters.",
             "Name the charset."},

    FindingInfo{FindingCode::GeometryUnreadable, "LYR-001", "geometry-unreadable", E, kNoFix, kNotRead,
             "The geometry of a feature is not as its format asks: its bytes, its nesting or its numbers are wrong. A conversion stops there.",
             "Write the feature again with the program that made it, or remove it."},
    FindingInfo{FindingCode::CoordinateNotFinite, "LYR-002", "coordinate-not-finite", E, kNoFix, kNotRead,
             "A coordinate is infinite or not a number, so the feature has no place there.",
             "Correct the coordinate, or remove the feature."},
    FindingInfo{FindingCode::OutsideArea, "LYR-003", "outside-area", W, kNoFix, kNotRead,
             "A coordinate lies outside the area that the coordinate system is made for by more than a tenth of that area.",
             "Check the coordinate, the order of x and y, and whether the coordinate system is the right one."},
    FindingInfo{FindingCode::GeometryMissing, "LYR-004", "geometry-missing", N, kNoFix, kNotRead,
             "Features have no geometry.", "Nothing to do if they are rows without a place."},
    FindingInfo{FindingCode::TextNotUtf8, "LYR-005", "text-not-utf-8", W, kNoFix, kNotRead,
             "A text in a GeoPackage is not UTF-8. Each wrong byte is read as U+FFFD.",
             "Write the text again, in UTF-8."},
    FindingInfo{FindingCode::NumberNotFinite, "LYR-006", "number-not-finite", W, kNoFix, kNotRead,
             "A value is infinite. Other formats have no such number.", "Correct the value."},
    FindingInfo{FindingCode::ValueLeftOut, "LYR-007", "value-left-out", W, kNoFix, kNotRead,
             "A value consists of bytes that are neither text nor number. Conversions leave it out.",
             "Store it as a text or a number if it matters."},
    FindingInfo{FindingCode::ColumnOfSeveralTypes, "LYR-008", "column-of-several-types", N, kNoFix, kNotRead,
             "The values of a property have several types. They become a column of texts.",
             "Nothing to do if texts will do."},

    FindingInfo{FindingCode::ModuleWarning, "MIF-M001", "module-warning", W, kNoFix, kNotRead,
             "The import gave this warning.", "See the other findings for its place."},
    FindingInfo{FindingCode::ModuleError, "MIF-M002", "module-error", E, kNoFix, kNotRead,
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

const char* ReaderInWords(ReadByCommand readBy) {
    switch (readBy) {
    case ReadByCommand::Yes:
        return "qolf";
    case ReadByCommand::WithClause:
        return "qolf, by the clause";
    case ReadByCommand::No:
        break;
    }
    return "";
}

}  // namespace

std::span<const FindingInfo> AllFindings() {
    return kCodes;
}

const FindingInfo& InfoOf(FindingCode code) {
    const FindingInfo& info = kCodes[static_cast<std::size_t>(code)];
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

std::string FindingsAsMarkdown() {
    std::string text =
        "# Findings of `qolf check`\n\n"
        "Each finding has a code that does not change between releases.\n\n"
        "- **error**: the import stops, or the files contradict themselves, so that values come "
        "out wrong.\n"
        "- **warning**: the import goes on, but something is read differently from what the file "
        "says, "
        "or looks wrong.\n"
        "- **note**: nothing is wrong, but worth knowing.\n\n"
        "\"The reader\" is the import filter of the host application, and `--as-is`. Under \"Read "
        "by\", \"qolf\" marks the findings that `qolf convert`, `draw` and `info` read as they "
        "were meant: they matter for other programs only. \"qolf, by the clause\" marks those that "
        "are read so when this part of the CoordSys clause is understood; otherwise the finding "
        "says what is taken instead.\n\n"
        "`--fix` marks the findings that `qolf check --fix OUT.mif` repairs, at least where there "
        "is one right repair.\n\n"
        "This page is printed by `qolf check --codes`.\n\n"
        "| Code | Name | Severity | Repair | Read by | What it means | What to do |\n"
        "|---|---|---|---|---|---|---|\n";
    for (const FindingInfo& info : kCodes) {
        text += "| " + std::string(info.id) + " | " + info.name + " | " +
                std::string(SeverityName(info.severity)) + " | " +
                (info.isFixable ? "`--fix`" : "") + " | " + ReaderInWords(info.readBy) + " | " +
                EscapedForTable(info.meaning) + " | " + EscapedForTable(info.advice) + " |\n";
    }
    return text;
}

}  // namespace app
