// Which features, and which of their columns, a conversion lets through.
#pragma once

#include "app/feature/Feature.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace app {

struct FilterSettings {
    std::vector<std::string> columns;    // --select, in this order; empty: all
    std::optional<shr::Box2d> box;       // --bbox, in the coordinates of the output
    std::optional<std::uint64_t> limit;  // --limit

    bool IsEmpty() const { return columns.empty() && !box && !limit; }
};

class FeatureFilter {
public:
    explicit FeatureFilter(FilterSettings settings) : settings_(std::move(settings)) {}

    // The columns that are left of a layer's. Throws Failure, with subject and the names there are,
    // for one that is not among them.
    std::vector<LayerColumn> SelectColumns(const std::vector<LayerColumn>& columns,
                                           const std::string& subject);

    // Whether the box of the feature, or of a member, meets the one that is asked for. A feature
    // without geometry meets none.
    bool Wants(const Feature& feature) const;

    // Leaves the selected values in the feature.
    void SelectValues(Feature& feature) const;

    // Counts a feature that was written. True when that was the last one.
    bool CountIsLast() { return settings_.limit && ++count_ >= *settings_.limit; }
    bool IsEmpty() const { return settings_.limit && *settings_.limit == 0; }

private:
    FilterSettings settings_;
    std::vector<std::size_t> selected_;  // positions in the layer's columns; unused without columns
    std::uint64_t count_ = 0;
};

}  // namespace app
