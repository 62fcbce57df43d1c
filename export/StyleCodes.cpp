#include "export/StyleCodes.h"

#include "host/iolib/Styles.h"

#include <array>
#include <cstddef>
#include <limits>

namespace mif {

namespace {

constexpr unsigned long kDefaultPenPattern = 19;

// Brush pattern (the index) to MIF fill pattern; 0 stands for no brush pattern.
constexpr std::array<unsigned long, 13> kFillPatterns = {2, 1, 2, 55, 2, 2, 2, 3, 4, 6, 5, 7, 8};

unsigned long DashPattern(const zeio::TrPen& pen) {
    switch (iolib::MatchToGDIPenStyle(pen.dashes.data(), static_cast<int>(pen.dashes.size()))) {
    case iolib::GdiPenStyle::Dash:
        return 5;
    case iolib::GdiPenStyle::Dot:
        return 3;
    case iolib::GdiPenStyle::DashDot:
        return 14;
    case iolib::GdiPenStyle::DashDotDot:
        return 20;
    case iolib::GdiPenStyle::Solid:
        break;
    }
    return kDefaultPenPattern;
}

}  // namespace

unsigned long MifColor(const shr::Color4b& color) {
    return color.red * 65536UL + color.green * 256UL + color.blue;
}

unsigned long MifPenPattern(const zeio::TrPen& pen) {
    switch (pen.style) {
    case zeio::TrPen::Style::Solid:
        return 2;
    case zeio::TrPen::Style::NoLine:
        return 1;
    case zeio::TrPen::Style::CustomDash:
        return DashPattern(pen);
    case zeio::TrPen::Style::Undefined:
        break;
    }
    return kDefaultPenPattern;
}

unsigned long MifFillPattern(zeio::TrBrush::Pattern pattern) {
    const int index = static_cast<int>(pattern);
    if (index < 0 || index >= static_cast<int>(kFillPatterns.size())) {
        return kFillPatterns[0];
    }
    return kFillPatterns[static_cast<std::size_t>(index)];
}

unsigned long MifFontStyle(std::uint16_t fontFlags) {
    unsigned long style = 0;
    if ((fontFlags & zeio::TrFont::kWeightMask) >= zeio::TrFont::kBoldFrom) {
        style += 1;
    }
    if ((fontFlags & zeio::TrFont::kItalic) != 0) {
        style += 2;
    }
    if ((fontFlags & zeio::TrFont::kUnderline) != 0) {
        style += 4;
    }
    return style;
}

unsigned long GradePenWidth(double width, double diagonal) {
    unsigned long code = 7;
    for (double divisor = 10.0; divisor <= 320.0; divisor *= 2.0) {
        if (width >= diagonal / divisor) {
            return code;
        }
        --code;
    }
    return 1;
}

unsigned long AbsolutePenWidth(double widthInches) {
    if (widthInches == 0.0) {
        return 0;
    }
    return ToUnsigned(widthInches * 72.0 * 10.0 + 10.0);
}

unsigned long ToUnsigned(double value) {
    constexpr std::uint32_t kLargest = std::numeric_limits<std::uint32_t>::max();
    if (!(value > 0.0)) {
        return 0;
    }
    if (value >= static_cast<double>(kLargest)) {
        return kLargest;
    }
    return static_cast<std::uint32_t>(value);
}

}  // namespace mif
