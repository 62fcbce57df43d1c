// The columns of several layers as those of one.
#pragma once

#include "app/feature/Values.h"

#include <cstddef>
#include <string>
#include <vector>

namespace app {

// Columns of one name, in any case, become one; its type holds the values of all.
class MergedColumns {
public:
    // Adds the columns of the next layer.
    void Add(const std::vector<LayerColumn>& layer);

    // Adds a column that no layer has, under a name that no other has: `wanted`, `wanted`_2, ...
    // Called behind the last Add. Its value is the last of a feature.
    void AddOwn(const std::string& wanted);

    const std::vector<LayerColumn>& All() const { return columns_; }

    // Returns the values of a feature of the layer, counted from 0, in the order of All and in its
    // types; null where the layer has no such column.
    std::vector<Value> Arranged(std::size_t layer, std::vector<Value> values) const;

    // What a user should know: columns whose type was widened, and columns that a layer lacks.
    std::vector<std::string> Notes() const;

private:
    std::vector<LayerColumn> columns_;
    std::vector<std::vector<std::size_t>> places_;  // by layer: where its columns are in columns_
    std::vector<std::string> types_;                // by column: "Integer, Float"
};

}  // namespace app
