#include "app/convert/MergedColumns.h"

#include "app/feature/ColumnTypes.h"
#include "app/query/ColumnNames.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace app {

void MergedColumns::Add(const std::vector<LayerColumn>& layer) {
    std::vector<std::size_t>& places = places_.emplace_back();
    for (const LayerColumn& column : layer) {
        const std::optional<std::size_t> same = FindColumn(columns_, column.name);
        // The layer itself may have several columns of one name.
        const bool isNew = !same || std::ranges::count(places, *same) > 0;
        const std::size_t place = isNew ? columns_.size() : *same;
        const std::string type = ColumnKindName(column.kind);
        if (isNew) {
            columns_.push_back(column);
            types_.push_back(type);
        } else {
            columns_[place] = WidenedColumn(columns_[place], column);
            if (types_[place].find(type) == std::string::npos) {
                types_[place] += ", " + type;
            }
        }
        places.push_back(place);
    }
}

void MergedColumns::AddOwn(const std::string& wanted) {
    LayerColumn column{wanted};
    for (int number = 2; FindColumn(columns_, column.name); ++number) {
        column.name = wanted + "_" + std::to_string(number);
    }
    columns_.push_back(column);
    types_.emplace_back(ColumnKindName(column.kind));
}

std::vector<Value> MergedColumns::Arranged(std::size_t layer, std::vector<Value> values) const {
    std::vector<Value> arranged(columns_.size());
    const std::vector<std::size_t>& places = places_[layer];
    for (std::size_t i = 0; i < std::min(places.size(), values.size()); ++i) {
        arranged[places[i]] = WidenedValue(columns_[places[i]], std::move(values[i]));
    }
    return arranged;
}

std::vector<std::string> MergedColumns::Notes() const {
    std::vector<std::string> notes;
    std::string lacking;
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        if (types_[i].find(',') != std::string::npos) {
            notes.push_back("column " + columns_[i].name + ": " + types_[i] + " become " +
                            ColumnKindName(columns_[i].kind));
        }
        const auto haveIt = std::ranges::count_if(
            places_, [i](const auto& places) { return std::ranges::count(places, i) > 0; });
        if (haveIt > 0 && static_cast<std::size_t>(haveIt) < places_.size()) {
            lacking += (lacking.empty() ? "" : ", ") + columns_[i].name;
        }
    }
    if (!lacking.empty()) {
        notes.push_back("columns that are empty where an input lacks them: " + lacking);
    }
    return notes;
}

}  // namespace app
