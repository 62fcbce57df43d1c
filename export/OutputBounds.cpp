#include "export/OutputBounds.h"

#include "export/StyleCodes.h"
#include "host/shr/Text.h"
#include "reader/Numbers.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

namespace mif {

namespace {

constexpr std::size_t kNumberWidth = 20;

// For numbers that outgrow the width with 10 decimals: from 1e9 on they would push the line into
// the columns behind it. The last form always fits: sign, digit, full stop, 12 digits, "E+308".
constexpr std::array<const char*, 11> kNarrowerFormats = {
    "%20.9f", "%20.8f", "%20.7f", "%20.6f", "%20.5f",  "%20.4f",
    "%20.3f", "%20.2f", "%20.1f", "%20.0f", "%20.12E",
};

void AppendNumber(std::string& text, double value) {
    std::string number;
    AppendDouble20f(number, value);
    for (const char* format : kNarrowerFormats) {
        if (number.size() <= kNumberWidth) {
            break;
        }
        number = shr::ToString(value, format);
    }
    text += number;
}

void AppendPoint(std::string& text, double x, double y) {
    text += '(';
    AppendNumber(text, x);
    text += ", ";
    AppendNumber(text, y);
    text += ')';
}

}  // namespace

void OutputBounds::Widen(double x, double y) {
    minX = std::min(minX, x);
    maxX = std::max(maxX, x);
    minY = std::min(minY, y);
    maxY = std::max(maxY, y);
}

double OutputBounds::Diagonal() const {
    const double dx = std::abs(maxX - minX);
    const double dy = std::abs(maxY - minY);
    if (dx + dy <= kSingleEpsilon) {
        return 1.0;
    }
    return std::sqrt(dx * dx + dy * dy);
}

void AppendBoundsLine(std::string& text, const OutputBounds& bounds) {
    const bool hasX = bounds.minX <= bounds.maxX;
    const bool hasY = bounds.minY <= bounds.maxY;
    text += "  Bounds ";
    AppendPoint(text, hasX ? bounds.minX : 0.0, hasY ? bounds.minY : 0.0);
    text += ' ';
    AppendPoint(text, hasX ? bounds.maxX : 0.0, hasY ? bounds.maxY : 0.0);
    text += '\n';
}

}  // namespace mif
