// The rows of a .mid file, and the column types that their values need.
#pragma once

#include "app/feature/Values.h"
#include "app/formats/mif/PairCharset.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace app {

// The most bytes that a Char column holds.
inline constexpr int kMostCharBytes = 254;

struct RowForm {
    char delimiter = ',';
    // True: columns keep the types that they came with, as those of a MIF file do. False: each gets
    // the narrowest type that holds its values: Integer when all fit into 32 bits, Char when one is
    // of another kind.
    bool keepsTypes = false;
};

// What has become of a column's values.
struct ColumnOutcome {
    LayerColumn column;                          // as the header has to declare it
    ColumnKind declaredKind = ColumnKind::Char;  // as it came
    std::uint64_t cutCount = 0;                  // values that were longer than kMostCharBytes
    std::uint64_t firstCut = 0;                  // the row of the first of them, 1-based
    std::uint64_t otherCount = 0;                // values of another kind than the column's
    std::string firstOther;                      // the first of them, UTF-8
};

// Nulls are empty, texts are in quotes, and their own quotes are doubled. Dates and times are
// digits.
class RowWriter {
public:
    // `charset` must outlive the writer.
    RowWriter(std::vector<LayerColumn> columns, RowForm form, PairCharset& charset);

    // Appends a row with its line end. Missing values are null.
    void Append(std::string& out, std::span<const Value> values);

    // Appends a text in quotes as the value of a column. While the charset is open, a text stays as
    // long as it is, since the bytes that it will have are not known.
    void AppendText(std::string& out, std::size_t column, std::string_view utf8);

    // Forgets the lengths of all texts, to measure them again in another charset with AppendText;
    // StartRow counts the rows then.
    void ForgetTexts();
    void StartRow() { ++rowCount_; }

    // Whether a text was longer than a Char column holds, with the charset open.
    bool HasTooLongText() const;

    std::vector<ColumnOutcome> Outcomes() const;

private:
    struct State {
        LayerColumn column;
        std::size_t longestText = 0;  // bytes in the charset
        std::size_t longestWord = 0;  // of numbers and such
        bool hasFractions = false;
        bool isShort = true;  // all numbers are within 16 bits
        bool isInt = true;    // ... within 32 bits
        std::uint64_t cutCount = 0;
        std::uint64_t firstCut = 0;
        std::uint64_t otherCount = 0;
        std::string firstOther;
    };

    void AppendValue(std::string& out, std::size_t at, const Value& value);
    void AppendTyped(std::string& out, std::size_t at, const std::string& text);
    void AppendWhole(std::string& out, std::size_t at, std::int64_t number);
    void AppendReal(std::string& out, std::size_t at, double number);
    void AppendWord(std::string& out, State& state, std::string_view word);
    void AppendOther(std::string& out, std::size_t at, const std::string& text);
    ColumnKind FinalKind(const State& state) const;

    std::vector<State> columns_;
    RowForm form_;
    PairCharset& charset_;
    std::uint64_t rowCount_ = 0;
    std::string bytes_;  // of the text that is being written
};

}  // namespace app
