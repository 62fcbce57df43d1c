#include "app/diff/FeatureComparison.h"

#include "app/diff/SharedColumns.h"

#include <algorithm>

namespace app {

FeatureDifference Compare(const Feature& left, const Feature& right, const GeometryRules& rules) {
    FeatureDifference difference;
    difference.geometry = GeometryDifferenceOf(left, right, rules);
    for (std::size_t i = 0; i < std::min(left.values.size(), right.values.size()); ++i) {
        if (!IsSameValue(left.values[i], right.values[i])) {
            difference.values.push_back(i);
        }
    }
    return difference;
}

}  // namespace app
