// Reads the rows of a .mid file as they were meant. For the command; the module's own reading ends
// values at doubled quotes and rows at every line end.
//
// A value in double quotes may hold the delimiter, line ends, and quotes: doubled ones, and single
// ones that neither a delimiter nor the row's end follows. Blanks at the ends of a quoted value are
// part of it; those around the quotes, and around a value without quotes, are not.
#pragma once

#include "app/mif/LineReader.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace app {

// What is worth a word about the rows so far: how many there were, and the line of the first.
struct RowCare {
    std::uint64_t count = 0;
    std::uint64_t firstLine = 0;
};
struct RowCares {
    RowCare doubledQuotes;  // rows with values that hold quotes
    RowCare lineBreaks;     // rows with values that hold line ends
    RowCare openQuotes;     // rows with a quote that nothing closes
    RowCare tooShort;       // rows with fewer values than columns
    RowCare tooLong;        // rows with more, an empty one at the end not counted
};

// Rows are limited: a value that no quote closes within so many lines ends with its line.
inline constexpr std::size_t kMostLinesPerRow = 64;

struct RowField {
    std::string value;  // as meant, as bytes
    // In the text of its row: the quotes and the blanks around included.
    std::size_t begin = 0;
    std::size_t end = 0;
    bool isQuoted = false;
    bool hasDoubledQuote = false;
};

// A row as in the file.
struct Row {
    struct Break {
        std::uint64_t line = 0;   // the number of the line that ends there
        std::uint64_t begin = 0;  // offsets of the line end
        std::uint64_t end = 0;
        std::size_t at = 0;  // in the text
    };

    std::string_view text;  // its lines, joined by line feeds; valid until the next row is read
    std::uint64_t line = 0;
    std::uint64_t begin = 0;  // offsets
    std::uint64_t end = 0;
    std::vector<Break> breaks;  // inside of values
    bool isOpen = false;        // a quote that nothing closes

    // The offset in the file of a place in the text.
    std::uint64_t OffsetOf(std::size_t at) const;
};

class RowReader {
public:
    // `columns` is how many values a row should have.
    RowReader(LineReader& lines, char delimiter, std::size_t columns)
        : lines_(lines), delimiter_(delimiter), columns_(columns) {}

    // Reads the next row. False behind the last one.
    bool Next(std::vector<RowField>& fields);

    // Takes the next row away and does nothing with it. False behind the last one.
    bool Skip();

    // The row that was read last.
    const Row& Last() const { return row_; }

    const RowCares& Cares() const { return cares_; }

private:
    bool JoinLines(std::vector<RowField>& fields);
    bool Split(std::vector<RowField>& fields);
    std::size_t SplitQuoted(std::size_t at, RowField& field, bool& isOpen) const;
    bool IsFieldEnd(std::size_t at) const;
    void Count(RowCare& care) const;
    void CountCares(const std::vector<RowField>& fields);

    LineReader& lines_;
    char delimiter_;
    std::size_t columns_;
    std::vector<RowField> fields_;  // of a row that is skipped
    std::string joined_;            // the row's text, when it goes over several lines
    Row row_;
    RowCares cares_;
};

}  // namespace app
