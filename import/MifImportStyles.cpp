// The style clauses behind an object, and how their codes become the host's pens and brushes.
#include "import/MifImportFilter.h"

#include "host/iolib/Styles.h"
#include "host/shr/Text.h"

#include <algorithm>
#include <limits>

namespace mif {

namespace {

using Pattern = zeio::TrBrush::Pattern;
using PenStyle = zeio::TrPen::Style;

// A pen width above this is in tenths of a point, counted from here.
constexpr int kPointWidthBase = 10;
constexpr double kTenthsPerPoint = 10.0;
constexpr double kPointsPerInch = 72.0;

// What part of the reference diagonal a pen of so many pixels takes; 0: the thinnest line.
constexpr int kWidestPixels = 7;
constexpr double kPixelDivisors[kWidestPixels + 1] = {0, 0, 320, 160, 80, 40, 20, 10};

constexpr int kNoLinePattern = 1;

struct BrushRow {
    int mifPattern;
    Pattern pattern;
};

constexpr BrushRow kBrushRows[] = {
    {1, Pattern::None},     {2, Pattern::Solid},           {3, Pattern::Horizontal},
    {4, Pattern::Vertical}, {5, Pattern::ForwardDiagonal}, {6, Pattern::BackwardDiagonal},
    {7, Pattern::Cross},    {8, Pattern::DiagonalCross},
};

constexpr shr::Color4b kTransparentWhite{255, 255, 255, 0};

// The first character of a symbol font.
constexpr int kFirstSymbol = 32;

// The host's dash table for a pattern, ended by 0; null for a pattern without dashes. A function,
// since the address of what another library holds is no constant on every system.
const float* DashesOf(int mifPattern) {
    switch (mifPattern) {
    case 3:
        return iolib::g_LS_Dot;
    case 5:
        return iolib::g_LS_Dash;
    case 14:
        return iolib::g_LS_DashDot;
    case 20:
        return iolib::g_LS_DashDotDot;
    default:
        return nullptr;
    }
}

void SetPenPattern(int mifPattern, zeio::TrPen& pen) {
    const float* dashes = DashesOf(mifPattern);
    if (dashes == nullptr) {
        pen.style = mifPattern == kNoLinePattern ? PenStyle::NoLine : PenStyle::Solid;
        return;
    }
    pen.style = PenStyle::CustomDash;
    pen.dashes.clear();
    for (; *dashes != 0.0F; ++dashes) {
        pen.dashes.push_back(*dashes);
    }
}

Pattern BrushPattern(int mifPattern) {
    for (const BrushRow& row : kBrushRows) {
        if (row.mifPattern == mifPattern) {
            return row.pattern;
        }
    }
    return Pattern::Solid;
}

int SymbolIndex(int shape) {
    return std::max(shape, std::numeric_limits<int>::min() + kFirstSymbol) - kFirstSymbol;
}

}  // namespace

shr::Color4b DecodeColor(int color) {
    return {static_cast<std::uint8_t>(color / 65536), static_cast<std::uint8_t>(color / 256),
            static_cast<std::uint8_t>(color)};
}

struct MifImportFilter::StyleKeyword {
    const char* keyword;
    void (MifImportFilter::*read)(MifStyleRecord& style);
};

constinit const MifImportFilter::StyleKeyword MifImportFilter::kStyleKeywords[] = {
    {"symbol", &MifImportFilter::ReadSymbolClause},   {"pen", &MifImportFilter::ReadPenClause},
    {"brush", &MifImportFilter::ReadBrushClause},     {"smooth", &MifImportFilter::SkipClause},
    {"center", &MifImportFilter::SkipClause},         {"angle", &MifImportFilter::ReadAngleClause},
    {"font", &MifImportFilter::ReadFontClause},       {"spacing", &MifImportFilter::SkipClause},
    {"justify", &MifImportFilter::ReadJustifyClause}, {"label", &MifImportFilter::SkipClause},
};

void MifImportFilter::ParseStyleClauses(MifStyleRecord& style) {
    for (;;) {
        const auto* const entry = std::find_if(
            std::begin(kStyleKeywords), std::end(kStyleKeywords),
            [this](const StyleKeyword& candidate) { return reader_.TokenIs(candidate.keyword); });
        if (entry == std::end(kStyleKeywords)) {
            return;
        }
        (this->*entry->read)(style);
    }
}

void MifImportFilter::SkipClause(MifStyleRecord& /*style*/) {
    reader_.NextLine();
}

// Pen (width, pattern, colour)
void MifImportFilter::ReadPenClause(MifStyleRecord& style) {
    reader_.NextToken();
    SkipOpeningParenthesis();
    style.penSeen = true;
    style.pen.style = PenStyle::Solid;
    SetPenWidth(reader_.TokenAsInt(), style.pen);
    NextTokenAndSkipComma();
    SetPenPattern(reader_.TokenAsInt(), style.pen);
    NextTokenAndSkipComma();
    style.pen.color = DecodeColor(reader_.TokenAsInt());
    reader_.NextToken();
    reader_.NextLine();
}

void MifImportFilter::SetPenWidth(int width, zeio::TrPen& pen) const {
    pen.isRelative = true;
    pen.width = 0.0;
    if (width > kPointWidthBase) {
        pen.isRelative = false;
        pen.width = (width - kPointWidthBase) / kTenthsPerPoint / kPointsPerInch;
        return;
    }
    if (width == 0) {
        return;
    }
    const double divisor = kPixelDivisors[std::clamp(width, 0, kWidestPixels)];
    const double diagonal = ReferenceDiagonal();
    if (diagonal > 0.0 && divisor > 0.0) {
        pen.width = diagonal / divisor;
    }
}

// Brush (pattern, forecolour [, backcolour])
void MifImportFilter::ReadBrushClause(MifStyleRecord& style) {
    reader_.NextToken();
    SkipOpeningParenthesis();
    style.brush.pattern = BrushPattern(reader_.TokenAsInt());
    NextTokenUnlessLineEnd();
    reader_.SkipComma();
    style.brush.fore = DecodeColor(reader_.TokenAsInt());
    NextTokenUnlessLineEnd();
    style.brush.back = reader_.SkipComma() ? DecodeColor(reader_.TokenAsInt()) : kTransparentWhite;
    reader_.NextLine();
    style.brushSeen = true;
}

// Symbol (shape, colour [, size [, "font", style [, rotation]]])
void MifImportFilter::ReadSymbolClause(MifStyleRecord& style) {
    reader_.NextToken();
    SkipOpeningParenthesis();
    style.symbolShape = reader_.TokenAsInt();
    NextTokenUnlessLineEnd();
    reader_.SkipComma();
    style.symbolColor = reader_.TokenAsInt();
    NextTokenUnlessLineEnd();
    style.symbolSize = 1;
    if (reader_.SkipComma()) {
        style.symbolSize = reader_.TokenAsInt();
        style.fontSize = style.symbolSize;
        reader_.NextToken();
    }
    style.fontName.clear();
    if (reader_.SkipComma()) {
        style.fontName = reader_.token();
        reader_.NextToken();
    }
    style.fontStyle = 0;
    if (reader_.SkipComma()) {
        style.fontStyle = reader_.TokenAsInt();
        reader_.NextToken();
    }
    style.angleDegrees = reader_.SkipComma() ? reader_.TokenAsInt() : 0.0;
    reader_.NextLine();
    style.symbolSeen = true;
}

// Font ("name", style, size, colour [, backcolour]); the back colour is not read.
void MifImportFilter::ReadFontClause(MifStyleRecord& style) {
    reader_.NextToken();
    SkipOpeningParenthesis();
    style.fontName = reader_.token();
    NextTokenAndSkipComma();
    style.fontStyle = reader_.TokenAsInt();
    NextTokenAndSkipComma();
    style.fontSize = reader_.TokenAsInt();
    NextTokenAndSkipComma();
    style.fontColor = reader_.TokenAsInt();
    reader_.NextToken();
    reader_.NextLine();
}

// Kept: whole degrees only. Labels have always been turned by the truncated angle, and drawings
// were checked against that.
void MifImportFilter::ReadAngleClause(MifStyleRecord& style) {
    reader_.NextToken();
    style.angleDegrees = reader_.TokenAsInt();
    reader_.NextLine();
}

void MifImportFilter::ReadJustifyClause(MifStyleRecord& style) {
    reader_.NextToken();
    style.justification = 0;
    if (reader_.TokenIs("center")) {
        style.justification = 1;
    } else if (reader_.TokenIs("right")) {
        style.justification = 2;
    }
    reader_.NextLine();
}

void MifImportFilter::NextTokenUnlessLineEnd() {
    if (!reader_.TokenIsLineEnd()) {
        reader_.NextToken();
    }
}

void MifImportFilter::NextTokenAndSkipComma() {
    reader_.NextToken();
    reader_.SkipComma();
}

void MifImportFilter::SkipOpeningParenthesis() {
    if (reader_.TokenIs("(")) {
        reader_.NextToken();
    }
}

// Gives the marker set the symbol's size and font, and the host the symbol's colour.
void MifImportFilter::ApplySymbol(const MifStyleRecord& style, zeio::TrMarkerSet& markerSet) {
    const double size = (style.symbolSize / 10.0) * (ReferenceDiagonal() / 100.0);
    markerSet.size = size > 0.0 ? size : 1.0;
    markerSet.symbolStyle = zeio::SymbolStyle::DefaultSymbolSet;
    if (!style.fontName.empty()) {
        markerSet.symbolStyle = zeio::SymbolStyle::TrueTypeFont;
        markerSet.symbolIndex = SymbolIndex(style.symbolShape);
        markerSet.fontName = shr::AtoW(style.fontName, 0);
    }
    // Kept: the pen reaches the host twice and the brush never, with IgnoreStyles too; hosts take
    // a marker's colour from the pen, and the second one stands where the brush was meant to.
    for (int time = 0; time < 2; ++time) {
        zeio::TrPen pen(PenStyle::Solid, DecodeColor(style.symbolColor), 0.0);
        ImportObject(pen);
    }
}

// A length in world units that stands for the drawing's size: the header's bounds, else what was
// read so far; 0 when neither is known.
double MifImportFilter::ReferenceDiagonal() const {
    const double boundsDiagonal = reader_.BoundsDiagonal();
    return boundsDiagonal != 0.0 ? boundsDiagonal : extents_.Diagonal();
}

}  // namespace mif
