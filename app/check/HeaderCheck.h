// Checks the header of a .mif file, up to and with the Data line.
#pragma once

#include "app/check/HeaderFacts.h"
#include "app/check/Report.h"
#include "app/mif/LineReader.h"

namespace app::check {

// What the checks hand on as edits beside the faults themselves.
enum class TabRewriting { Off, On };  // On: tab-separated rows become comma-separated ones

// Reads from the first line of lines. The answer's hasData is false when the file ends before.
// header is filled as the clauses come, so that a line seen later can be tested against it.
void CheckHeader(LineReader& lines, Report& report, TabRewriting rewriting, CheckedHeader& header);

}  // namespace app::check
