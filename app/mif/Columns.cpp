#include "app/mif/Columns.h"

#include "app/mif/Words.h"

#include <array>

namespace app {
namespace {

struct KindRow {
    const char* name;
    ColumnKind kind;
};

constexpr std::array<KindRow, 11> kKinds{{
    {"Char", ColumnKind::Char},
    {"Integer", ColumnKind::Integer},
    {"SmallInt", ColumnKind::SmallInt},
    {"LargeInt", ColumnKind::LargeInt},
    {"Decimal", ColumnKind::Decimal},
    {"Float", ColumnKind::Float},
    {"Date", ColumnKind::Date},
    {"Time", ColumnKind::Time},
    {"DateTime", ColumnKind::DateTime},
    {"Logical", ColumnKind::Logical},
    {"Other", ColumnKind::Other},
}};

}  // namespace

const char* ColumnKindName(ColumnKind kind) {
    for (const KindRow& row : kKinds) {
        if (row.kind == kind) {
            return row.name;
        }
    }
    return "Other";
}

ColumnKind ColumnKindOf(std::string_view name) {
    for (const KindRow& row : kKinds) {
        if (EqualsIgnoringCase(row.name, name)) {
            return row.kind;
        }
    }
    return ColumnKind::Other;
}

}  // namespace app
