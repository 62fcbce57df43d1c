// Compares the features of two layers: by their order, or by a key.
#pragma once

#include "app/diff/FeatureComparison.h"
#include "app/feature/Feature.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>

namespace app {

// Receives what differs.
class DiffSink {
public:
    virtual ~DiffSink() = default;

    virtual void Removed(const Feature& left) = 0;  // the second layer has no such feature
    virtual void Added(const Feature& right) = 0;   // the first has none
    virtual void Changed(const Feature& left, const Feature& right,
                         const FeatureDifference& difference) = 0;
    virtual void Same() = 0;
};

// Hands the features of a layer over, with the values of the columns that are compared.
using FeatureReader = std::function<void(const std::function<void(const Feature&)>& take)>;

// Compares the first features, the second ones, and so on. The first layer waits in a temporary
// file when it is long: memory does not grow with the layers. Throws Failure.
void DiffByOrder(const FeatureReader& left, const FeatureReader& right, const GeometryRules& rules,
                 DiffSink& sink);

// Compares features of which the column `key` has the same value; of several with one value the
// first with the first. What was added and what has changed comes in the order of the second layer,
// then what was removed in that of the first. The first layer waits in a temporary database.
// Returns how many features of the first layer have a key that another has before them. Throws
// Failure.
std::uint64_t DiffByKey(const FeatureReader& left, const FeatureReader& right, std::size_t key,
                        const GeometryRules& rules, DiffSink& sink);

}  // namespace app
