#include "app/convert/FeatureFilter.h"

#include "app/base/Errors.h"

#include <algorithm>
#include <utility>

namespace app {

namespace {

[[noreturn]] void FailForColumn(const std::string& subject, const std::string& wanted,
                                const std::vector<LayerColumn>& columns) {
    std::string names;
    for (const LayerColumn& column : columns) {
        names.append(names.empty() ? "" : ", ").append(column.name);
    }
    throw UsageError(subject + ": there is no column \"" + wanted +
                     "\"; the columns are: " + names);
}

}  // namespace

std::vector<LayerColumn> FeatureFilter::SelectColumns(const std::vector<LayerColumn>& columns,
                                                      const std::string& subject) {
    if (settings_.columns.empty()) {
        return columns;
    }
    std::vector<LayerColumn> left;
    selected_.clear();
    for (const std::string& wanted : settings_.columns) {
        const auto at =
            std::find_if(columns.begin(), columns.end(),
                         [&](const LayerColumn& column) { return column.name == wanted; });
        if (at == columns.end()) {
            FailForColumn(subject, wanted, columns);
        }
        selected_.push_back(static_cast<std::size_t>(at - columns.begin()));
        left.push_back(*at);
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
