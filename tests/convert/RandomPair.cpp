#include "tests/convert/RandomPair.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <utility>

namespace convert_test {
namespace {

template <typename... Format> std::string NumberText(double number, Format... format) {
    std::array<char, 400> text{};
    return {text.data(),
            std::to_chars(text.data(), text.data() + text.size(), number, format...).ptr};
}

std::string Digits(int number, std::size_t count) {
    const std::string text = std::to_string(number);
    return std::string(count - std::min(count, text.size()), '0') + text;
}

}  // namespace

RandomPair::RandomPair(unsigned seed) : random_(seed) {
    const std::vector<Letters> all = {
        {"WindowsLatin1", {"caf\xE9", "\xC5ngstr\xF6m", "\x80 5"}},
        {"WindowsLatin2",
         {"\x8C\x9Fr\xF3"
          "d\xB3o",
          "\xE8"}},
        {"WindowsCyrillic", {"\xC6\xF3\xEA\xEE\xE2\xEE", "\xB9 7"}},
        {"WindowsGreek", {"\xC1\xE8\xDE\xED\xE1"}},
        {"WindowsJapanese", {"\x93\x8C\x8B\x9E", "\x83\x5C"}},
        {"UTF-8", {"\xD0\x96\xD1\x83\xD0\xBA", "\xE6\x9D\xB1", "\xF0\x9F\x97\xBA"}},
        {"Neutral", {"plain"}}};
    letters_ = OneOf(all);
    delimiter_ = OneOf(std::vector{',', ';', '\t', '|'});
    AddHeader();
    for (int count = Pick(1, 15); count > 0; --count) {
        AddObject(/*isMember=*/false);
        AddRow();
    }
}

void RandomPair::AddHeader() {
    mif_ += Keyword("Version") + ' ' + OneOf(std::vector<std::string>{"300", "450", "650", "900"}) +
            '\n' + Keyword("Charset") + " \"" + std::string(letters_.charset) + "\"\n" +
            Keyword("Delimiter") + " \"" + delimiter_ + "\"\n";
    const std::string bounds = " Bounds (-10000000, -10000000) (10000000, 10000000)";
    const std::vector<std::string> clauses = {
        "",
        "Earth Projection 1, 104",
        "Earth Projection 1, 104" + bounds,
        "Earth Projection 8, 104, \"m\", 27, 0, 0.9996, 500000, 0",
        "Earth Projection 8, 1001, \"m\", 39, 0, 1, 7500000, 0" + bounds,
        "Earth Projection 3, 1002, \"m\", 0, 46.8, 45.898918964419, 47.696014502038, 600000, "
        "2200000",
        "Earth Projection 12, 62, \"survey ft\", -96",
        "NonEarth Units \"m\"" + bounds,
        "NonEarth Units \"km\""};
    if (const std::string& clause = OneOf(clauses); !clause.empty()) {
        mif_ += Keyword("CoordSys") + ' ' + clause + '\n';
    }
    if (mif_.find("104\n") != std::string::npos) {
        mif_ += '\n';  // the module skips the line behind a clause that ends at its datum
    }
    AddColumns();
    mif_ += Keyword("Data") + "\n\n";
}

void RandomPair::AddColumns() {
    const std::vector<std::string> types = {
        "Char(20)",      "Char(254)",    "Integer", "SmallInt", "LargeInt", "Float",
        "Decimal(12,3)", "Decimal(6,0)", "Date",    "Time",     "DateTime", "Logical"};
    const int count = Pick(1, 6);
    mif_ += Keyword("Columns") + ' ' + std::to_string(count) + '\n';
    for (int i = 0; i < count; ++i) {
        types_.push_back(OneOf(types));
        mif_ += "  Col_" + std::to_string(i) + ' ' + types_.back() + '\n';
    }
}

void RandomPair::AddObject(bool isMember) {
    switch (Pick(0, isMember ? 2 : 6)) {
    case 0:
        AddLine(isMember);
        break;
    case 1:
        AddRegion();
        break;
    case 2:
        AddPoints(isMember);
        break;
    case 3:
        AddBoxed();
        break;
    case 4:
        AddText();
        break;
    case 5:
        AddCollection();
        break;
    default:
        mif_ += Keyword("None") + '\n';
        break;
    }
}

void RandomPair::AddLine(bool isMember) {
    if (Chance(30) && !isMember) {
        mif_ += Keyword("Line") + ' ' + Point() + ' ' + Point() + '\n';
        AddPen();
        return;
    }
    if (Chance(40)) {
        AddSections(Keyword("Pline") + ' ' + Keyword("Multiple"), 2);
    } else {
        const int count = Pick(2, 6);
        mif_ += Keyword("Pline") + ' ' + std::to_string(count) + '\n';
        AddVertices(count);
    }
    AddPen();
    if (Chance(20)) {
        Clause(Keyword("Smooth"));
    }
}

void RandomPair::AddRegion() {
    AddSections(Keyword("Region"), 3);
    AddPen();
    AddBrush();
    if (Chance(30)) {
        Clause(Keyword("Center") + ' ' + Point());
    }
}

void RandomPair::AddPoints(bool isMember) {
    if (!isMember && Chance(60)) {
        mif_ += Keyword("Point") + ' ' + Point() + '\n';
    } else {
        const int count = Pick(1, 5);
        mif_ += Keyword("Multipoint") + ' ' + std::to_string(count) + '\n';
        AddVertices(count);
    }
    AddSymbol();
}

void RandomPair::AddBoxed() {
    const std::string kind = OneOf(std::vector<std::string>{"Rect", "Roundrect", "Ellipse", "Arc"});
    mif_ += Keyword(kind) + ' ' + Box();
    if (kind == "Roundrect") {
        mif_ += ' ' + std::to_string(Pick(1, 9));
    } else if (kind == "Arc") {
        mif_ += "\n  " + std::to_string(Pick(0, 360)) + ' ' + std::to_string(Pick(0, 3600) / 8.0);
    }
    mif_ += '\n';
    AddPen();
    if (kind != "Arc") {
        AddBrush();
    }
}

void RandomPair::AddText() {
    std::string text = Text();
    if (Chance(20)) {
        text += "\\n" + Text();
    }
    mif_ += Keyword("Text") + (Chance(50) ? "\n    \"" : " \"") + text + "\"\n    " + Box() + '\n';
    AddFont();
    if (Chance(30)) {
        Clause(Keyword("Spacing") + ' ' + OneOf(std::vector<std::string>{"1.0", "1.5", "2"}));
    }
    if (Chance(30)) {
        Clause(Keyword("Justify") + ' ' +
               Keyword(OneOf(std::vector<std::string>{"Center", "Right"})));
    }
    if (Chance(40)) {
        Clause(Keyword("Angle") + ' ' + std::to_string(Pick(1, 3599) / 10.0));
    }
    if (Chance(20)) {
        Clause(Keyword("Label") + ' ' + Keyword("Line") + ' ' +
               Keyword(OneOf(std::vector<std::string>{"Simple", "Arrow"})) + ' ' + Point());
    }
}

// One of each kind, as the format has it.
void RandomPair::AddCollection() {
    std::vector<int> kinds = {0, 1, 2};
    std::ranges::shuffle(kinds, random_);
    kinds.resize(static_cast<std::size_t>(Pick(1, 3)));
    mif_ += Keyword("Collection") + ' ' + std::to_string(kinds.size()) + '\n';
    for (const int kind : kinds) {
        if (kind == 0) {
            AddLine(/*isMember=*/true);
        } else if (kind == 1) {
            AddRegion();
        } else {
            AddPoints(/*isMember=*/true);
        }
    }
}

void RandomPair::AddSections(const std::string& keyword, int least) {
    const int sections = Pick(1, 3);
    mif_ += keyword + ' ' + std::to_string(sections) + '\n';
    for (int i = 0; i < sections; ++i) {
        const int count = Pick(least, 6);
        mif_ += "  " + std::to_string(count) + '\n';
        AddVertices(count);
    }
}

void RandomPair::AddVertices(int count) {
    for (int i = 0; i < count; ++i) {
        mif_ += (Chance(30) ? "  " : "") + Point() + (Chance(10) ? " \n" : "\n");
    }
}

void RandomPair::AddRow() {
    for (std::size_t i = 0; i < types_.size(); ++i) {
        mid_ += i > 0 ? std::string(1, delimiter_) : std::string();
        mid_ += Value(types_[i]);
    }
    mid_ += '\n';
}

std::string RandomPair::Value(std::string_view type) {
    if (type.starts_with("Char")) {
        const std::vector<std::string> texts = {Text(),       Text(),
                                                Text(),       "",
                                                "two\nlines", "  " + Text() + " ",
                                                " ",          std::string("a") + delimiter_ + "b"};
        return '"' + OneOf(texts) + '"';
    }
    if (Chance(15)) {
        return "";
    }
    if (type == "SmallInt") {
        return std::to_string(Pick(-32768, 32767));
    }
    if (type == "Integer") {
        return std::to_string(Pick(INT32_MIN, INT32_MAX));
    }
    if (type == "LargeInt") {
        return std::to_string(std::int64_t{Pick(INT32_MIN, INT32_MAX)} * 4000000007);
    }
    if (type == "Float") {
        return Number();
    }
    if (type.starts_with("Decimal")) {
        return type.ends_with(",0)")
                   ? std::to_string(Pick(-99999, 99999))
                   : NumberText(Pick(-99999, 99999) / 1000.0, std::chars_format::fixed, 3);
    }
    if (type == "Logical") {
        return Chance(50) ? "T" : "F";
    }
    return (type != "Time" ? Date() : "") + (type != "Date" ? Time() : "");
}

std::string RandomPair::Date() {
    return Digits(Pick(1, 9999), 4) + Digits(Pick(1, 12), 2) + Digits(Pick(1, 28), 2);
}

std::string RandomPair::Time() {
    return Digits(Pick(0, 23), 2) + Digits(Pick(0, 59), 2) + Digits(Pick(0, 59), 2) +
           Digits(Pick(0, 999), 3);
}

void RandomPair::AddPen() {
    if (Chance(60)) {
        const int width = Chance(70) ? Pick(0, 10) : Pick(11, 2047);
        Clause(Keyword("Pen") + " (" + std::to_string(width) + ',' + std::to_string(Pick(1, 118)) +
               ',' + Color() + ')');
    }
}

void RandomPair::AddBrush() {
    if (Chance(60)) {
        Clause(Keyword("Brush") + " (" + std::to_string(Pick(1, 186)) + ", " + Color() +
               (Chance(50) ? ", " + Color() : "") + ')');
    }
}

void RandomPair::AddSymbol() {
    const std::string color = ',' + Color() + ',';
    switch (Pick(0, 3)) {
    case 0:
        Clause(Keyword("Symbol") + " (" + std::to_string(Pick(31, 67)) + color +
               std::to_string(Pick(1, 48)) + ')');
        break;
    case 1:
        Clause(Keyword("Symbol") + " (" + std::to_string(Pick(33, 255)) + color +
               std::to_string(Pick(1, 255)) + ",\"Map Symbols\"," + std::to_string(Pick(0, 511)) +
               ',' + std::to_string(Pick(0, 3599) / 10.0) + ')');
        break;
    case 2:
        Clause(Keyword("Symbol") + " (\"TREE-32.BMP\"" + color + std::to_string(Pick(1, 48)) + ',' +
               std::to_string(Pick(0, 7)) + ')');
        break;
    default:
        break;
    }
}

void RandomPair::AddFont() {
    if (Chance(70)) {
        Clause(Keyword("Font") + " (\"" +
               OneOf(std::vector<std::string>{"Arial", "Times New Roman"}) + "\"," +
               std::to_string(Pick(0, 1023)) + ",0," + Color() + (Chance(40) ? ',' + Color() : "") +
               ')');
    }
}

int RandomPair::Pick(int from, int to) {
    return std::uniform_int_distribution<int>(from, to)(random_);
}

// Spelled in one of several ways, none of which the module misreads.
std::string RandomPair::Number() {
    const double number = std::uniform_real_distribution<double>(-1e6, 1e6)(random_);
    switch (Pick(0, 5)) {
    case 0:
        return std::to_string(Pick(-1000, 1000));
    case 1:
        return NumberText(number, std::chars_format::fixed, 2);
    case 2:
        return NumberText(number / 1e4, std::chars_format::fixed, 7);
    case 3:
        return NumberText(number, std::chars_format::general, 18);
    case 4:
        return NumberText(number * 1e-12, std::chars_format::scientific, 5);
    default:
        return NumberText(number);
    }
}

// Its first corner is the lower left one.
std::string RandomPair::Box() {
    const int x = Pick(-1000, 1000);
    const int y = Pick(-1000, 1000);
    return std::to_string(x) + ' ' + std::to_string(y) + ' ' + std::to_string(x + Pick(1, 99)) +
           ".5 " + std::to_string(y + Pick(1, 99)) + ".25";
}

std::string RandomPair::Keyword(std::string word) {
    const int form = Pick(0, 2);
    for (char& c : word) {
        c = static_cast<char>(form == 0   ? std::toupper(static_cast<unsigned char>(c))
                              : form == 1 ? std::tolower(static_cast<unsigned char>(c))
                                          : c);
    }
    return word;
}

std::string RandomPair::Text() {
    std::string text(OneOf(letters_.words));
    if (Chance(20)) {
        text += " \"\"x\"\"";
    }
    return text + (Chance(30) ? " 12" : "");
}

}  // namespace convert_test
