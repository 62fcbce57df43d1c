// Styles between the terms of MIF files and the host's pens, brushes and fonts.
//
// The host's objects say less than a file: of the patterns they keep those that the module knows,
// and a width in pixels is a part of a diagonal in world units.
#pragma once

#include "app/feature/Style.h"
#include "host/zeio/TrObjects.h"

#include <cstdint>

namespace app {

// red * 65536 + green * 256 + blue, opaque.
std::uint32_t MifColorOf(const shr::Color4b& color);
shr::Color4b ObjectColorOf(std::uint32_t mifColor);

// `diagonal` is what the module graded the width by: the diagonal of the header's Bounds, or of the
// objects read so far, in world units. With 0 every width in pixels is 1.
Pen PenOf(const zeio::TrPen& pen, double diagonal);

// Returns a pen that the export filter writes as the code again when the host's answer to its
// question for the extent has this diagonal.
zeio::TrPen ObjectOf(const Pen& pen, double diagonal);

Brush BrushOf(const zeio::TrBrush& brush);
zeio::TrBrush ObjectOf(const Brush& brush);

// Between the style bits of a Font clause and the flags of zeio::TrFont: bold, italic, underlined.
int FontStyleBits(std::uint16_t flags);
std::uint16_t FontFlags(int styleBits);

}  // namespace app
