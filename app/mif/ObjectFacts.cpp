#include "app/mif/ObjectFacts.h"

#include "app/mif/Words.h"

namespace app {
namespace {

struct ObjectRow {
    std::string_view keyword;
    ObjectKind kind;
};
// The frequent ones first.
constexpr std::array kObjects = {
    ObjectRow{"point", ObjectKind::Point},
    ObjectRow{"pline", ObjectKind::Pline},
    ObjectRow{"region", ObjectKind::Region},
    ObjectRow{"line", ObjectKind::Line},
    ObjectRow{"text", ObjectKind::Text},
    ObjectRow{"none", ObjectKind::None},
    ObjectRow{"rect", ObjectKind::Rect},
    ObjectRow{"arc", ObjectKind::Arc},
    ObjectRow{"ellipse", ObjectKind::Ellipse},
    ObjectRow{"multipoint", ObjectKind::Multipoint},
    ObjectRow{"collection", ObjectKind::Collection},
    ObjectRow{"roundrect", ObjectKind::RoundRect},
};

}  // namespace

ObjectKind ObjectKindOf(std::string_view word) {
    for (const ObjectRow& row : kObjects) {
        if (row.keyword.size() == word.size() && EqualsIgnoringCase(row.keyword, word)) {
            return row.kind;
        }
    }
    return ObjectKind::Skipped;
}

}  // namespace app
