// Which features, and which of their values, a conversion lets through.
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

    // Returns those of a layer's columns that are selected, and remembers their places. Throws
    // UsageError, with `subject` and the names there are, for a selected column that the layer lacks.
    std::vector<LayerColumn> SelectColumns(const std::vector<LayerColumn>& columns,
                                           const std::string& subject);

    // Returns whether the box of the feature, or of one of its members, touches the wanted box. A
    // feature without geometry touches no box.
    bool Wants(const Feature& feature) const;

    // Leaves only the selected values in the feature, in the order of the selection.
    void SelectValues(Feature& feature) const;

    // Counts a written feature. Returns true when it was the last one that the limit allows.
    bool CountIsLast() { return settings_.limit && ++count_ >= *settings_.limit; }

    // Whether the limit lets nothing through at all.
    bool IsEmpty() const { return settings_.limit && *settings_.limit == 0; }

private:
    FilterSettings settings_;
    std::vector<std::size_t> selected_;  // positions in the layer's columns; unused without columns
    std::uint64_t count_ = 0;
};

}  // namespace app
