#include "app/formats/mif/PairHeader.h"

#include "app/json/ShortestNumber.h"

#include <algorithm>
#include <cassert>
#include <cmath>

namespace app {
namespace {

constexpr std::string_view kDataLine = "Data\n";

std::string BoundsText(const shr::Box2d& box) {
    const shr::Box2d bounds = UsableBounds(box);
    return "Bounds (" + PlainText(bounds.minX) + ", " + PlainText(bounds.minY) + ") (" +
           PlainText(bounds.maxX) + ", " + PlainText(bounds.maxY) + ")";
}

std::string TypeText(const LayerColumn& column) {
    switch (column.kind) {
    case ColumnKind::Char:
    case ColumnKind::Other:
        return "Char(" + std::to_string(column.width) + ")";
    case ColumnKind::Decimal:
        return "Decimal(" + std::to_string(column.width) + "," + std::to_string(column.decimals) +
               ")";
    default:
        return ColumnKindName(column.kind);
    }
}

// A side without length gets one in the size of the coordinates.
void Widen(double& least, double& most) {
    if (least < most) {
        return;
    }
    const double margin = std::max(1.0, std::abs(least) * 1e-6);
    least -= margin;
    most += margin;
}

// The header without the line before Data.
std::string LinesAboveGap(const PairHeader& header) {
    std::string text = "Version " + std::to_string(header.version) + "\nCharset \"" +
                       header.charset + "\"\nDelimiter \"" + header.delimiter + "\"\n";
    if (!header.coordSys.empty()) {
        text += header.coordSys;
        if (header.boundsPlace != BoundsPlace::Nowhere) {
            text += header.boundsPlace == BoundsPlace::SameLine ? " " : "\n  ";
            text += BoundsText(header.bounds);
        }
        text += '\n';
    }
    text += "Columns " + std::to_string(header.columns.size()) + '\n';
    for (const LayerColumn& column : header.columns) {
        text += "  " + column.name + ' ' + TypeText(column) + '\n';
    }
    return text;
}

}  // namespace

int VersionOf(ColumnKind kind) {
    constexpr int kFirstVersion = 300;
    constexpr int kVersionOfTimes = 900;
    const bool isLate =
        kind == ColumnKind::Time || kind == ColumnKind::DateTime || kind == ColumnKind::LargeInt;
    return isLate ? kVersionOfTimes : kFirstVersion;
}

std::string HeaderText(const PairHeader& header) {
    return LinesAboveGap(header) + '\n' + std::string(kDataLine);
}

std::string HeaderText(const PairHeader& header, std::size_t size) {
    std::string text = LinesAboveGap(header);
    const std::size_t used = text.size() + 1 + kDataLine.size();
    assert(used <= size);
    text.append(size - std::min(used, size), ' ');
    return text + '\n' + std::string(kDataLine);
}

std::size_t MostHeaderBytes(PairHeader header) {
    constexpr int kLongestVersion = 1000;
    constexpr int kLongestWidth = 254;
    header.version = kLongestVersion;
    header.bounds = {};
    std::size_t size = 0;
    for (LayerColumn& column : header.columns) {
        const std::size_t declared = TypeText(column).size();
        column.kind = ColumnKind::Char;
        column.width = kLongestWidth;
        size += std::max(declared, TypeText(column).size()) - TypeText(column).size();
    }
    const bool hasBounds = header.boundsPlace != BoundsPlace::Nowhere;
    return HeaderText(header).size() + size + (hasBounds ? 4 * kShortestNumberSize : 0);
}

shr::Box2d UsableBounds(const shr::Box2d& box) {
    if (box.IsEmpty()) {
        return {0.0, 0.0, 1.0, 1.0};
    }
    shr::Box2d usable = box;
    Widen(usable.minX, usable.maxX);
    Widen(usable.minY, usable.maxY);
    return usable;
}

}  // namespace app
