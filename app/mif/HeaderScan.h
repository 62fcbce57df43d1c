// What the program itself reads from a MIF header: the column types and other things that the
// module does not keep, and whether the header needs care (app/mif/PaddedCopy.h).
#pragma once

#include "app/mif/Columns.h"
#include "app/mif/LineReader.h"
#include "host/shr/Geometry.h"

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace app {

struct MifHeader {
    FileStart start = FileStart::Plain;
    int version = 300;
    std::string charset;  // "" when absent
    std::string delimiter = "\t";
    std::string coordSysText;  // the clause's first line, from the keyword on, blanks squeezed;
                               // "" without one
    std::optional<std::int64_t> unknownProjection;  // a code that stops the import
    std::string unitsText;                          // of the clause, without quotes; "" when absent
    // Of a Bounds clause, on a line of its own or in the CoordSys one; corners as they are written.
    std::optional<shr::Box2d> bounds;
    std::optional<shr::Box2d> ownBounds;  // of the last one on a line of its own: the module's
    std::vector<Column> columns;
    bool hasData = false;          // the keyword Data was found
    std::uint64_t dataOffset = 0;  // bytes from the start: the line after Data
    std::uint64_t dataLine = 0;    // the 1-based line number of that line

    // Offsets (bytes) right behind the line end of each CoordSys clause that lacks something for
    // which the module would take the line that follows: all behind Earth, or the unit and
    // parameters behind the datum. An offset stands as often as empty lines are needed there.
    std::vector<std::uint64_t> careOffsets;
    bool NeedsCare() const { return !careOffsets.empty(); }
};

// What is to be said of the unit of an Earth system: the module knows metres and survey feet by
// name and takes a number as units per metre; any other name leaves metres. Empty when all is well.
std::string UnitProblem(const MifHeader& header);

// Reads the header of a file. When the file is no MIF file, the result has what could be found in
// its first lines; contents never make it fail. Throws Failure when the file can't be opened.
MifHeader ScanHeader(const std::filesystem::path& path);

// The same from an open stream, which stays the caller's; starts at its beginning.
MifHeader ScanHeader(std::FILE* stream);

}  // namespace app
