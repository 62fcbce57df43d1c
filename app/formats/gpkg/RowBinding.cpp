#include "app/formats/gpkg/RowBinding.h"

#include "app/formats/gpkg/Names.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace app {
namespace {

std::size_t Characters(std::string_view utf8) {
    return static_cast<std::size_t>(
        std::count_if(utf8.begin(), utf8.end(), [](char c) { return (c & 0xC0) != 0x80; }));
}

bool IsIso(std::string_view text, std::string_view pattern) {
    return text.size() >= pattern.size() &&
           std::equal(pattern.begin(), pattern.end(), text.begin(), [](char wanted, char c) {
               return wanted == '0' ? c >= '0' && c <= '9' : c == wanted;
           });
}

// Whether a column of that kind may hold texts.
bool Fits(const LayerColumn& column, std::string_view text) {
    switch (column.kind) {
    case ColumnKind::Char: {
        const auto width = static_cast<std::size_t>(std::max(column.width, 0));
        return width == 0 || text.size() <= width || Characters(text) <= width;
    }
    case ColumnKind::Time:
    case ColumnKind::Other:
        return true;
    case ColumnKind::Date:
        return text.size() == 10 && IsIso(text, "0000-00-00");
    case ColumnKind::DateTime:
        return IsIso(text, "0000-00-00T00:00:00");
    default:
        return false;
    }
}

// Times of MIF files have no zone; those of a package must have a zone and milliseconds.
std::string DateTimeText(std::string text) {
    if (text.ends_with('Z')) {
        return text;
    }
    return text + (text.find('.') == std::string::npos ? ".000Z" : "Z");
}

}  // namespace

void RowBinding::BindValue(SqliteStatement& insert, int parameter, TableColumn& column,
                           const Value& value) {
    if (const auto* text = std::get_if<std::string>(&value)) {
        texts_.push_back(CleanText(*text));
        if (!Fits(column.source, texts_.back())) {
            ++column.mismatchCount;
        } else if (column.source.kind == ColumnKind::DateTime) {
            texts_.back() = DateTimeText(std::move(texts_.back()));
        }
        insert.BindText(parameter, texts_.back());
    } else if (const auto* whole = std::get_if<std::int64_t>(&value)) {
        insert.BindWhole(parameter, *whole);
    } else if (const auto* real = std::get_if<double>(&value)) {
        insert.BindReal(parameter, *real);
    } else if (const auto* truth = std::get_if<bool>(&value)) {
        insert.BindWhole(parameter, *truth ? 1 : 0);
    } else {
        insert.BindNull(parameter);
    }
}

void RowBinding::BindText(SqliteStatement& insert, int parameter, std::string text) {
    texts_.push_back(CleanText(std::move(text)));
    insert.BindText(parameter, texts_.back());
}

void RowBinding::BindPlacement(SqliteStatement& insert, int first, const Geometry& geometry) {
    int parameter = first;
    if (geometry.kind != GeometryKind::Text) {
        for (std::size_t i = 0; i < kPlacementColumns.size(); ++i) {
            insert.BindNull(parameter++);
        }
        return;
    }
    constexpr std::array<const char*, 3> kJustify{"left", "center", "right"};
    const TextPlacement& text = geometry.placement;
    const std::optional<Font>& font = geometry.style.font;
    BindText(insert, parameter++, text.text);
    insert.BindReal(parameter++, text.angleDegrees);
    insert.BindReal(parameter++, text.height);
    BindText(insert, parameter++, font ? font->name : "");
    insert.BindText(parameter, kJustify[static_cast<std::size_t>(text.justify)]);
}

}  // namespace app
