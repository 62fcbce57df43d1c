// The header of a .mif file, as its author meant it.
#pragma once

#include "app/mif/Columns.h"
#include "app/mif/LineReader.h"
#include "host/shr/Geometry.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace app {

// A Transform clause: coordinates are multiplied, then moved.
struct Transform {
    shr::Vec2d factor{1.0, 1.0};
    shr::Vec2d shift{0.0, 0.0};
};

// A CoordSys clause.
struct CoordSysClause {
    std::string text;         // as in the file, without its last line end; "" for none
    std::uint64_t begin = 0;  // offsets of the text
    std::uint64_t end = 0;
    std::uint64_t line = 0;

    // Of an Earth clause: parts that the module looks for in the lines behind the clause, and
    // swallows. It takes an empty line for one.
    std::size_t lackingParts = 0;
    std::size_t emptyLinesBehind = 0;  // at most as many as parts are lacking
    bool isReadByModule = true;        // an import does not stop at it
};

struct MifHeader {
    FileStart start = FileStart::Plain;
    bool hasVersion = false;
    int version = 300;
    std::string charset;           // "" when absent
    std::string delimiter = "\t";  // one character; "" when the clause names none
    CoordSysClause coordSys;
    std::string coordSysText;                       // the clause on one line, blanks squeezed
    std::optional<std::int64_t> unknownProjection;  // a code that the module does not know
    std::string unitsText;                          // of the clause, without quotes; "" when absent

    // The corners as in the file: of the last Bounds clause, on a line of its own or in
    // the CoordSys one; and of the last one on a line of its own, which is the module's.
    std::optional<shr::Box2d> bounds;
    std::optional<shr::Box2d> ownBounds;
    std::optional<shr::Box2d> possible;  // what coordinates of the declared system can be
    std::optional<Transform> transform;
    std::vector<Column> columns;
    bool hasData = false;          // the keyword Data was found
    std::uint64_t dataOffset = 0;  // bytes from the start: the line after Data
    std::uint64_t dataLine = 0;    // the 1-based line number of that line

    // The module reads this header, up to that line, without an error and without a warning, and
    // finds the same own bounds. Columns and system are not looked at.
    bool isReadByModule = false;
};

// The delimiter of rows: the first character of the header's, or a tab.
char DelimiterOf(const MifHeader& header);

// A header with which the module reads the objects behind it: the own bounds. No coordinate depends
// on the CoordSys clause, at which the import may stop; ReadClause reads it (app/crs).
std::string HeaderForModule(const MifHeader& header);

// What is to be said of the unit of an Earth system: the module knows metres and survey feet by
// name and takes a number as units per metre; any other name leaves metres. Empty when all is well.
std::string UnitProblem(const MifHeader& header);

// Reads the header of a file; of a file that has none, what could be found in its first lines.
// Never fails on contents. Throws Failure when the file can't be opened.
MifHeader ScanHeader(const std::filesystem::path& path);

}  // namespace app
