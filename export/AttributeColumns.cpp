#include "export/AttributeColumns.h"

#include "host/iolib/Styles.h"
#include "host/shr/Text.h"

#include <algorithm>
#include <utility>

namespace mif {

namespace {

// Kept: a blank stands before the comma. Programs that take these rows apart by the text between
// two quotes have learned this one.
constexpr const char* kValueSeparator = " ,";

constexpr std::size_t kWidthFieldCharacters = 7;  // the declared "(n)" is padded to this

constexpr std::size_t kMostColumns = 250;
constexpr std::uint64_t kWidestColumn = 254;
constexpr std::uint64_t kWidestRow = 4000;

constexpr const wchar_t* kTooManyColumns =
    L"Exported file contains more than 250 attribute columns.  MapInfo might not be able to read "
    L"it.  Try reducing the number of attributes before exporting.";
constexpr const wchar_t* kTooWideColumn =
    L"Exported file contains one or more attributes with more than 254 characters.  MapInfo might "
    L"not be able to read it.  Try reducing the number of characters before exporting.";
constexpr const wchar_t* kTooWideRow =
    L"One or more of the exported objects has more than 4000 characters of attribute information. "
    L" MapInfo might not be able to read the exported file.  Try reducing the number of attributes "
    L"and/or the number of characters used in each attribute before exporting.";

bool IsDigit(char character) {
    return character >= '0' && character <= '9';
}

bool IsNameCharacter(char character) {
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z') ||
           IsDigit(character) || character == '_';
}

// A name that MIF takes: ASCII letters, digits and underscores, not beginning with a digit.
std::string SafeName(const std::wstring& name) {
    std::string safe = shr::WtoAN(name, 0);
    std::replace_if(
        safe.begin(), safe.end(), [](char character) { return !IsNameCharacter(character); }, '_');
    if (!safe.empty() && IsDigit(safe.front())) {
        safe.insert(safe.begin(), '_');
    }
    return safe;
}

}  // namespace

void AttributeColumns::Replace(const std::vector<std::wstring>& names) {
    std::vector<Column> columns;
    columns.reserve(names.size());
    for (const std::wstring& name : names) {
        columns.push_back({.name = name});
    }
    columns_ = std::move(columns);
}

void AttributeColumns::AppendDefault() {
    columns_.push_back({.name = L"ID1"});
}

void AttributeColumns::AppendRow(std::string& text, const shr::CParamList& attributes) {
    bool isFirst = true;
    for (Column& column : columns_) {
        if (!isFirst) {
            text += kValueSeparator;
        }
        isFirst = false;

        if (!attributes.Get(column.name, value_)) {
            value_.clear();
        }
        value_ = iolib::ReplaceCertainCharsInString(value_, iolib::g_UnsafeCharacters, L'_');
        text += '"';
        text += shr::WtoAN(value_, 0);
        text += '"';
        column.width = std::max<std::uint64_t>(column.width, value_.size());
    }
    text += '\n';
}

void AttributeColumns::AppendBlock(std::string& text) const {
    text += "COLUMNS " + std::to_string(columns_.size()) + '\n';
    for (const Column& column : columns_) {
        // Kept: a width of 100000 and more outgrows its field, so the block that is written at the
        // end runs into the lines behind it. Readers of such files make do.
        std::string width = '(' + std::to_string(column.width) + ')';
        width.resize(std::max(width.size(), kWidthFieldCharacters), ' ');
        text += "  " + SafeName(column.name) + " char " + width + '\n';
    }
}

const wchar_t* AttributeColumns::LimitWarning() const {
    if (columns_.size() > kMostColumns) {
        return kTooManyColumns;
    }
    std::uint64_t rowWidth = 0;
    bool hasWideColumn = false;
    for (const Column& column : columns_) {
        rowWidth += column.width;
        hasWideColumn = hasWideColumn || column.width > kWidestColumn;
    }
    if (hasWideColumn) {
        return kTooWideColumn;
    }
    // Kept: the widest values of all columns are added up, although no single row may hold them
    // all. Users are warned early rather than late.
    return rowWidth > kWidestRow ? kTooWideRow : nullptr;
}

}  // namespace mif
