// The columns that two layers have in common, and those that only one has.
#pragma once

#include "app/feature/Values.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace app {

struct SharedColumns {
    std::vector<std::string> names;    // as in the first layer
    std::vector<std::size_t> inLeft;   // by name: its place in the first layer
    std::vector<std::size_t> inRight;  // and in the second
    std::vector<std::string> onlyInLeft;
    std::vector<std::string> onlyInRight;
    std::optional<std::size_t> key;  // in names; absent without --key
};

struct SharedColumnsRequest {
    std::vector<std::string> select = {};  // the columns to compare; empty: all
    std::string key = {};                  // empty: none
    std::string leftSubject = {};          // for messages
    std::string rightSubject = {};
};

// Columns are found by name, in any case unless one is exact. With `select` no column is in one
// layer only. The key is among the names even when `select` lacks it. Throws Failure for a selected
// column, and for a key, that one of the layers lacks.
SharedColumns ShareColumns(const std::vector<LayerColumn>& left,
                           const std::vector<LayerColumn>& right,
                           const SharedColumnsRequest& request);

// Returns whether both are the same value: null and an empty text; numbers and truth values that
// are equal; dates and times with and without milliseconds of 0 or a Z behind them.
bool IsSameValue(const Value& left, const Value& right);

}  // namespace app
