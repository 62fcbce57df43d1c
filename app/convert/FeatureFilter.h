// Which features, and which of their values, a conversion lets through.
#pragma once

#include "app/feature/Feature.h"
#include "app/query/Question.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace app {

struct FilterSettings {
    std::vector<std::string> columns;    // --select, in this order; empty: all
    std::string where;                   // --where; empty: no question is asked
    std::optional<shr::Box2d> box;       // --bbox, in the coordinates of the output
    std::optional<std::uint64_t> limit;  // --limit
};

class FeatureFilter {
public:
    explicit FeatureFilter(FilterSettings settings) : settings_(std::move(settings)) {}

    // Prepares the selection and the question for a layer with these columns, and returns those
    // that are selected. Throws UsageError for a question that is no expression and, with `subject`
    // and the names there are, for a column that the layer lacks.
    std::vector<LayerColumn> BeginLayer(const std::vector<LayerColumn>& columns,
                                        const std::string& subject);

    // Returns whether the question holds for the feature, which has the values of all columns.
    bool Answers(const Feature& feature) { return !question_ || question_->Holds(feature); }

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
    std::vector<LayerColumn> SelectColumns(const std::vector<LayerColumn>& columns,
                                           const std::string& subject);

    FilterSettings settings_;
    std::optional<Question> question_;   // absent: every feature will do
    std::vector<std::size_t> selected_;  // positions in the layer's columns; unused without columns
    std::uint64_t count_ = 0;
};

}  // namespace app
