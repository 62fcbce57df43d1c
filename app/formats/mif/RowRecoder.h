// Rows that were written before their charset was known, written again in it.
#pragma once

#include "app/formats/mif/RowWriter.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace app {

// Takes the rows in pieces of any size. Quoted values go through RowWriter::AppendText, which
// measures and cuts them; all else stays as it is.
class RowRecoder {
public:
    // `writer` has written the rows, with this delimiter; its charset must be settled now.
    RowRecoder(RowWriter& writer, char delimiter) : writer_(writer), delimiter_(delimiter) {}

    // Appends what can be written of the rows so far.
    void Recode(std::string_view rows, std::string& out);

private:
    enum class State { Outside, InQuotes, AfterQuote };

    void TakeOutside(char c, std::string& out);

    RowWriter& writer_;
    char delimiter_;
    State state_ = State::Outside;
    bool isAtRowStart_ = true;
    std::size_t column_ = 0;
    std::string text_;  // of the quoted value so far
};

}  // namespace app
