#include "app/formats/mif/StyleClauses.h"

#include "app/json/ShortestNumber.h"

#include <array>
#include <charconv>
#include <initializer_list>

namespace app {
namespace {

constexpr std::string_view kIndent = "    ";
constexpr int kFirstVersion = 300;
constexpr int kVersionOfPoints = 450;

void AppendInteger(std::string& out, std::int64_t number) {
    std::array<char, 24> text{};
    out.append(text.data(), std::to_chars(text.data(), text.data() + text.size(), number).ptr);
}

void AppendIntegers(std::string& out, std::initializer_list<std::int64_t> numbers) {
    bool isFirst = true;
    for (const std::int64_t number : numbers) {
        if (!isFirst) {
            out += ',';
        }
        isFirst = false;
        AppendInteger(out, number);
    }
}

void Open(std::string& out, std::string_view keyword) {
    out += kIndent;
    out += keyword;
    out += " (";
}

void Close(std::string& out) {
    out += ")\n";
}

}  // namespace

void AppendPen(std::string& out, const Pen& pen) {
    Open(out, "Pen");
    AppendIntegers(out, {pen.width, pen.pattern, pen.color});
    Close(out);
}

void AppendBrush(std::string& out, const Brush& brush) {
    Open(out, "Brush");
    AppendIntegers(out, {brush.pattern, brush.fore});
    if (brush.back) {
        out += ',';
        AppendInteger(out, *brush.back);
    }
    Close(out);
}

void AppendSymbol(std::string& out, const Symbol& symbol, PairCharset& charset) {
    Open(out, "Symbol");
    if (symbol.form == Symbol::Form::Bitmap) {
        AppendQuotedText(out, symbol.name, charset);
        out += ',';
        AppendIntegers(out, {symbol.color, symbol.size, symbol.styleBits});
    } else {
        AppendIntegers(out, {symbol.shape, symbol.color, symbol.size});
    }
    if (symbol.form == Symbol::Form::FontCharacter) {
        out += ',';
        AppendQuotedText(out, symbol.name, charset);
        out += ',';
        AppendInteger(out, symbol.styleBits);
        out += ',';
        out += PlainText(symbol.rotationDegrees);
    }
    Close(out);
}

void AppendFont(std::string& out, const Font& font, PairCharset& charset) {
    Open(out, "Font");
    AppendQuotedText(out, font.name, charset);
    out += ',';
    AppendIntegers(out, {font.styleBits, font.size, font.fore});
    if (font.back) {
        out += ',';
        AppendInteger(out, *font.back);
    }
    Close(out);
}

int VersionOf(const Pen& pen) {
    return pen.width > kMostPixels ? kVersionOfPoints : kFirstVersion;
}

void AppendQuotedText(std::string& out, std::string_view utf8, PairCharset& charset) {
    out += '"';
    while (!utf8.empty()) {
        const std::size_t plain = std::min(utf8.find_first_of("\"\r\n"), utf8.size());
        charset.Append(out, utf8.substr(0, plain));
        utf8.remove_prefix(plain);
        if (utf8.empty()) {
            break;
        }
        if (utf8.front() == '"') {
            out += "\"\"";
        } else {
            out += "\\n";
            utf8.remove_prefix(utf8.starts_with("\r\n") ? 1 : 0);
        }
        utf8.remove_prefix(1);
    }
    out += '"';
}

}  // namespace app
