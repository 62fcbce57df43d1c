// What differs between two features.
#pragma once

#include "app/diff/GeometryComparison.h"
#include "app/feature/Feature.h"

#include <cstddef>
#include <string>
#include <vector>

namespace app {

struct FeatureDifference {
    std::string geometry;             // in words; "" when it is the same
    std::vector<std::size_t> values;  // the columns whose values differ

    bool IsNone() const { return geometry.empty() && values.empty(); }
};

// Compares features that have the values of the same columns, in the same order.
FeatureDifference Compare(const Feature& left, const Feature& right, const GeometryRules& rules);

}  // namespace app
