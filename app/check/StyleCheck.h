// Checks the clauses behind an object: pens, brushes, symbols, fonts.
#pragma once

#include "app/check/Report.h"
#include "app/mif/LineReader.h"

#include <string_view>

namespace app::check {

bool IsClause(std::string_view word);

// line begins with a clause.
void CheckClauseLine(const MifLine& line, const Place& place, Report& report);

}  // namespace app::check
