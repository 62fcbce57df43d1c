// The kinds of attribute columns that a MIF header can declare.
#pragma once

#include <string>
#include <string_view>

namespace app {

enum class ColumnKind {
    Char,
    Integer,
    SmallInt,
    LargeInt,
    Decimal,
    Float,
    Date,
    Time,
    DateTime,
    Logical,
    Other,  // a type that the format does not know; its values are text
};

// The name of a kind as MIF files write it: "Char", "Integer", ...; "Other" for Other.
const char* ColumnKindName(ColumnKind kind);

// The kind of a name, in any ASCII case; Other for a name that the format does not know.
ColumnKind ColumnKindOf(std::string_view name);

// One column line of a header.
struct Column {
    std::string name;  // bytes of the file's character set
    ColumnKind kind = ColumnKind::Other;
    int width = 0;  // Char(width), Decimal(width, decimals)
    int decimals = 0;
    std::string typeText;         // as written, without blanks: "Decimal(10,2)"
    bool hasBlankInName = false;  // and no quotes around it
};

}  // namespace app
