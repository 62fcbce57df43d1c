// The attribute columns of an export: their names, the longest value seen in each, the rows of
// the .mid file and the COLUMNS block of the .mif file.
#pragma once

#include "host/shr/CParamList.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace mif {

class AttributeColumns {
public:
    // Replaces all columns; each new one is 1 wide.
    void Replace(const std::vector<std::wstring>& names);

    // Adds the one column that a file without attributes has.
    void AppendDefault();

    // Appends one row with its line end and widens the columns. A missing attribute is an empty
    // value.
    void AppendRow(std::string& text, const shr::CParamList& attributes);

    // Appends the COLUMNS line and one line a column. The length of the block depends on the
    // names alone, as long as no width needs more than 5 digits.
    void AppendBlock(std::string& text) const;

    // What a reader of the file may stumble over; null when there is nothing.
    const wchar_t* LimitWarning() const;

    std::size_t size() const { return columns_.size(); }

private:
    struct Column {
        std::wstring name;
        std::uint64_t width = 1;  // characters of the longest value, at least 1
    };

    std::vector<Column> columns_;
    std::wstring value_;  // kept for its memory: rows are many and alike
};

}  // namespace mif
