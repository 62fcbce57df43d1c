// Pen, Brush, Symbol and Font clauses as a .mif file has them.
#pragma once

#include "app/feature/Style.h"
#include "app/formats/mif/PairCharset.h"

#include <string>
#include <string_view>

namespace app {

// Each appends a line, indented, with its line end. Numbers are written as they are.
void AppendPen(std::string& out, const Pen& pen);
void AppendBrush(std::string& out, const Brush& brush);
void AppendSymbol(std::string& out, const Symbol& symbol, PairCharset& charset);
void AppendFont(std::string& out, const Font& font, PairCharset& charset);

// The lowest version of the format that has the pen: widths in points came later than those in
// pixels.
int VersionOf(const Pen& pen);

// Appends the text in double quotes, each quote in it doubled and each line end as "\n".
void AppendQuotedText(std::string& out, std::string_view utf8, PairCharset& charset);

}  // namespace app
