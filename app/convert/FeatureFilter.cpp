#include "app/convert/FeatureFilter.h"

#include "app/base/Errors.h"
#include "app/query/ColumnNames.h"

#include <algorithm>
#include <utility>

namespace app {

std::vector<LayerColumn> FeatureFilter::BeginLayer(const std::vector<LayerColumn>& columns,
                                                   const std::string& subject) {
    question_.reset();
    if (!settings_.where.empty()) {
        try {
            question_.emplace(settings_.where, columns, subject);
        } catch (const Failure& failure) {
            throw UsageError(failure.what());
        }
    }
    return SelectColumns(columns, subject);
}

std::vector<LayerColumn> FeatureFilter::SelectColumns(const std::vector<LayerColumn>& columns,
                                                      const std::string& subject) {
    if (settings_.columns.empty()) {
        return columns;
    }
    std::vector<LayerColumn> left;
    selected_.clear();
    for (const std::string& wanted : settings_.columns) {
        const std::optional<std::size_t> at = FindColumn(columns, wanted);
        if (!at) {
            throw UsageError(subject + ": --select: " + NoSuchColumn(columns, wanted));
        }
        selected_.push_back(*at);
        left.push_back(columns[*at]);
    }
    return left;
}

bool FeatureFilter::Wants(const Feature& feature) const {
    if (!settings_.box) {
        return true;
    }
    const shr::Box2d& wanted = *settings_.box;
    const auto meets = [&wanted](const Geometry& geometry) {
        const shr::Box2d box = BoxOf(geometry);
        return box.minX <= wanted.maxX && box.maxX >= wanted.minX && box.minY <= wanted.maxY &&
               box.maxY >= wanted.minY;
    };
    return meets(feature.geometry) || std::ranges::any_of(feature.members, meets);
}

void FeatureFilter::SelectValues(Feature& feature) const {
    if (settings_.columns.empty()) {
        return;
    }
    std::vector<Value> values;
    values.reserve(selected_.size());
    for (const std::size_t position : selected_) {
        values.push_back(position < feature.values.size() ? feature.values[position] : Value());
    }
    feature.values = std::move(values);
}

}  // namespace app
