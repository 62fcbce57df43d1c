// Values of features as those of a table's rows.
#pragma once

#include "app/feature/Feature.h"
#include "app/feature/Values.h"
#include "app/sqlite/Sqlite.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace app {

// A column of a table, and the column of features whose values it gets.
struct TableColumn {
    std::string name;
    LayerColumn source;
    std::uint64_t mismatchCount = 0;  // values that do not have the column's type, kept as texts
};

// A column that says where a text is and how it looks: of a layer with texts, behind its others.
struct PlacementColumn {
    const char* name;
    const char* sqlType;
};
inline constexpr std::array<PlacementColumn, 5> kPlacementColumns{{{"text", "TEXT"},
                                                                   {"angle", "DOUBLE"},
                                                                   {"height", "DOUBLE"},
                                                                   {"font", "TEXT"},
                                                                   {"justify", "TEXT"}}};

// Binds the values of one row after another to an insertion's parameters.
class RowBinding {
public:
    // `parameters` is how many the insertion has.
    void Prepare(std::size_t parameters) { texts_.reserve(parameters); }

    void BeginRow() { texts_.clear(); }

    // Counts a value that does not have the column's type.
    void BindValue(SqliteStatement& insert, int parameter, TableColumn& column, const Value& value);

    // The text stays until the next row begins.
    void BindText(SqliteStatement& insert, int parameter, std::string text);

    // Binds the values of kPlacementColumns to as many parameters from the first on: NULLs for what
    // is not a text.
    void BindPlacement(SqliteStatement& insert, int first, const Geometry& geometry);

private:
    std::vector<std::string> texts_;  // never moves: no more than the insertion's parameters
};

}  // namespace app
