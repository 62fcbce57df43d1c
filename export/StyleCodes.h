// What the host's pens, brushes, fonts and colours are in MIF's numbers. Pure mappings: nothing
// here writes.
#pragma once

#include "host/shr/Color4b.h"
#include "host/zeio/TrObjects.h"

#include <cstdint>

namespace mif {

// The single-precision epsilon, as a length in world units: the distance of the vertices that
// writers add, and what counts as no extent.
inline constexpr double kSingleEpsilon = 1.1920928955078125e-7;

// red * 65536 + green * 256 + blue; alpha is dropped.
unsigned long MifColor(const shr::Color4b& color);

unsigned long MifPenPattern(const zeio::TrPen& pen);
unsigned long MifFillPattern(zeio::TrBrush::Pattern pattern);

// 1 bold, 2 italic, 4 underlined, added up.
unsigned long MifFontStyle(std::uint16_t fontFlags);

// The width code 1 to 7 of a pen whose width is a length in world units, graded against a
// diagonal in world units.
unsigned long GradePenWidth(double width, double diagonal);

// The width code of a pen whose width is in inches: 10 plus tenths of a point. 0 for the thinnest
// line, and for a negative width whose code would be below 1.
unsigned long AbsolutePenWidth(double widthInches);

// The integer part, clamped to 0 to 4294967295; 0 for not-a-number.
unsigned long ToUnsigned(double value);

}  // namespace mif
