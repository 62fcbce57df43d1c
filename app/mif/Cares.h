// What reading a pair as it was meant has to tell a user: one sentence for each kind of fault, with
// a count and the first place.
#pragma once

#include "app/mif/FindingCounter.h"
#include "app/mif/LineReader.h"
#include "app/mif/RowReader.h"

#include <cstdint>
#include <string>
#include <vector>

namespace app {

struct Care {
    bool isLoss = false;  // something of the file is missing or wrong afterwards
    std::uint64_t count = 0;
    std::string
        text;  // "330 vertex counts taken from the line after the keyword (first in line 8)"
};

// Of the .mif file. Findings that do not matter to the reading give none.
std::vector<Care> CaresOf(const FindingCounts& findings);

// Of the .mid file, when all its rows are read.
std::vector<Care> CaresOf(const RowCares& rows);

// "1 row", "2 rows (first in line 8)": the subject of a sentence.
std::string CountedFrom(std::uint64_t count, const char* one, const char* many, std::uint64_t line);

}  // namespace app
