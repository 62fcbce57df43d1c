// Columns that a user names.
#pragma once

#include "app/feature/Values.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string>

namespace app {

// Returns the place of the column: the one of exactly this name, else the first whose name differs
// in the case of letters only.
std::optional<std::size_t> FindColumn(std::span<const LayerColumn> columns,
                                      const std::string& wanted);

// Returns "there is no column "nmae"; did you mean "name"? The columns are: id, name", for a
// message.
std::string NoSuchColumn(std::span<const LayerColumn> columns, const std::string& wanted);

}  // namespace app
