#include "app/feature/ObjectStyles.h"

#include "host/iolib/Styles.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace app {
namespace {

// A pen of two pixels has this part of the diagonal, and each pixel more doubles it.
constexpr double kPartOfTwoPixels = 1.0 / 320.0;
constexpr int kThinnest = 2;
constexpr int kThickest = 7;

constexpr double kTenthsOfAPointPerInch = 720.0;

struct ObjectDash {
    int pattern;
    iolib::GdiPenStyle style;
    const float* dashes;
};
const std::array<ObjectDash, 4>& ObjectDashes() {
    static const std::array<ObjectDash, 4> kRows{{
        {3, iolib::GdiPenStyle::Dot, iolib::g_LS_Dot},
        {5, iolib::GdiPenStyle::Dash, iolib::g_LS_Dash},
        {14, iolib::GdiPenStyle::DashDot, iolib::g_LS_DashDot},
        {20, iolib::GdiPenStyle::DashDotDot, iolib::g_LS_DashDotDot},
    }};
    return kRows;
}

using ObjectFill = zeio::TrBrush::Pattern;
struct FillRow {
    int pattern;
    ObjectFill fill;
};
constexpr std::array<FillRow, 8> kFills{{{1, ObjectFill::None},
                                         {2, ObjectFill::Solid},
                                         {3, ObjectFill::Horizontal},
                                         {4, ObjectFill::Vertical},
                                         {5, ObjectFill::ForwardDiagonal},
                                         {6, ObjectFill::BackwardDiagonal},
                                         {7, ObjectFill::Cross},
                                         {8, ObjectFill::DiagonalCross}}};

int WidthCode(const zeio::TrPen& pen, double diagonal) {
    if (!pen.isRelative) {
        return kMostPixels + static_cast<int>(std::lround(pen.width * kTenthsOfAPointPerInch));
    }
    if (!(pen.width > 0.0) || !std::isfinite(pen.width) || !(diagonal > 0.0)) {
        return 1;
    }
    // The diagonal need not be the module's to the last digit: the steps are wide apart.
    const double pixels = kThinnest + std::log2(pen.width / diagonal / kPartOfTwoPixels);
    return static_cast<int>(std::lround(std::clamp<double>(pixels, kThinnest, kThickest)));
}

int PatternCode(const zeio::TrPen& pen) {
    if (pen.style == zeio::TrPen::Style::NoLine) {
        return 1;
    }
    if (pen.style == zeio::TrPen::Style::CustomDash) {
        const auto style =
            iolib::MatchToGDIPenStyle(pen.dashes.data(), static_cast<int>(pen.dashes.size()));
        for (const ObjectDash& row : ObjectDashes()) {
            if (row.style == style) {
                return row.pattern;
            }
        }
    }
    return 2;
}

}  // namespace

std::uint32_t MifColorOf(const shr::Color4b& color) {
    return color.red * 65536U + color.green * 256U + color.blue;
}

shr::Color4b ObjectColorOf(std::uint32_t mifColor) {
    return {static_cast<unsigned char>(mifColor >> 16U), static_cast<unsigned char>(mifColor >> 8U),
            static_cast<unsigned char>(mifColor), 255};
}

Pen PenOf(const zeio::TrPen& pen, double diagonal) {
    return {WidthCode(pen, diagonal), PatternCode(pen), MifColorOf(pen.color)};
}

zeio::TrPen ObjectOf(const Pen& pen, double diagonal) {
    zeio::TrPen object(zeio::TrPen::Style::Solid, ObjectColorOf(pen.color), 0.0);
    if (pen.pattern == 1) {
        object.style = zeio::TrPen::Style::NoLine;
    }
    for (const ObjectDash& row : ObjectDashes()) {
        if (row.pattern == pen.pattern) {
            object.style = zeio::TrPen::Style::CustomDash;
            for (const float* dash = row.dashes; *dash != 0.0F; ++dash) {
                object.dashes.push_back(*dash);
            }
        }
    }
    object.isRelative = pen.width <= kMostPixels;
    if (!object.isRelative) {
        object.width = (pen.width - kMostPixels) / 10.0 / 72.0;
    } else if (pen.width >= kThinnest) {
        // Somewhat above the least width of the code, so that no rounding moves it to another.
        const int steps = std::min(pen.width, kThickest) - kThinnest;
        object.width = 1.25 * diagonal * kPartOfTwoPixels * std::exp2(steps);
    }
    return object;
}

Brush BrushOf(const zeio::TrBrush& brush) {
    Brush code;
    const auto* const row = std::ranges::find(kFills, brush.pattern, &FillRow::fill);
    code.pattern = row != kFills.end() ? row->pattern : 2;
    code.fore = MifColorOf(brush.fore);
    if (brush.back.alpha != 0) {
        code.back = MifColorOf(brush.back);
    }
    return code;
}

zeio::TrBrush ObjectOf(const Brush& brush) {
    const auto* const row = std::ranges::find(kFills, brush.pattern, &FillRow::pattern);
    zeio::TrBrush object(row != kFills.end() ? row->fill : ObjectFill::Solid);
    object.fore = ObjectColorOf(brush.fore);
    if (brush.back) {
        object.back = ObjectColorOf(*brush.back);
    }
    return object;
}

int FontStyleBits(std::uint16_t flags) {
    return ((flags & zeio::TrFont::kWeightMask) >= zeio::TrFont::kBoldFrom ? 1 : 0) +
           ((flags & zeio::TrFont::kItalic) != 0 ? 2 : 0) +
           ((flags & zeio::TrFont::kUnderline) != 0 ? 4 : 0);
}

std::uint16_t FontFlags(int styleBits) {
    constexpr unsigned kMedium = 4;
    constexpr unsigned kBold = 7;
    const auto bits = static_cast<unsigned>(styleBits);
    unsigned flags = (bits & 1U) != 0 ? kBold : kMedium;
    flags |= (bits & 2U) != 0 ? zeio::TrFont::kItalic : 0U;
    flags |= (bits & 4U) != 0 ? zeio::TrFont::kUnderline : 0U;
    return static_cast<std::uint16_t>(flags);
}

}  // namespace app
