// Reads the numbers of a line that is not plain, as they were meant.
#pragma once

#include "app/mif/FindingCounter.h"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace app {

// How many numbers a text holds when blanks behind a minus sign, decimal commas, and commas between
// numbers are taken as meant.
std::size_t CountNumbers(std::string_view text);

// Reads exactly `count` numbers from a text that begins at that offset of its file, as they were
// meant; what could not be read is 0. Reports what is wrong, with the repairs that have one right
// form.
std::vector<double> ReadOddNumbers(std::string_view text, std::uint64_t offset, std::size_t count,
                                   const Place& place, FindingCounter& report);

}  // namespace app
