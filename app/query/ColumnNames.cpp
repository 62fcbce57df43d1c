#include "app/query/ColumnNames.h"

#include "app/base/Suggestion.h"
#include "app/base/Utf8.h"

#include <algorithm>
#include <vector>

namespace app {

std::optional<std::size_t> FindColumn(std::span<const LayerColumn> columns,
                                      const std::string& wanted) {
    auto found = std::ranges::find(columns, wanted, &LayerColumn::name);
    if (found == columns.end()) {
        const std::u32string folded = FoldedCase(wanted);
        found = std::ranges::find_if(columns, [&folded](const LayerColumn& column) {
            return FoldedCase(column.name) == folded;
        });
    }
    return found == columns.end()
               ? std::nullopt
               : std::optional(static_cast<std::size_t>(found - columns.begin()));
}

std::string NoSuchColumn(std::span<const LayerColumn> columns, const std::string& wanted) {
    std::vector<std::string> names;
    std::string list;
    for (const LayerColumn& column : columns) {
        names.push_back(column.name);
        list.append(list.empty() ? "" : ", ").append(column.name);
    }
    const std::optional<std::string> nearest = NearestName(wanted, names);
    return "there is no column \"" + wanted + "\"; " +
           (columns.empty() ? "there are no columns at all"
            : nearest       ? "did you mean \"" + *nearest + "\"? The columns are: " + list
                            : "the columns are: " + list);
}

}  // namespace app
