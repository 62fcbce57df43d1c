// What the style clauses behind one object said.
//
// A fresh record is made for each object, and for each section of a multi-section polyline.
#pragma once

#include "host/shr/Color4b.h"
#include "host/zeio/TrObjects.h"

#include <string>

namespace mif {

struct MifStyleRecord {
    bool symbolSeen = false;
    int symbolShape = 0;
    int symbolColor = 0;  // 0xRRGGBB
    int symbolSize = 0;   // points; 1 when a Symbol clause names none

    bool penSeen = false;
    zeio::TrPen pen{zeio::TrPen::Style::Undefined, shr::Color4b(0U), 0.0};

    bool brushSeen = false;
    zeio::TrBrush brush{zeio::TrBrush::Pattern::None};

    std::string fontName;  // of a Font clause or of a font symbol; empty when none was named
    int fontSize = 0;      // points; a Symbol clause repeats its size here
    int fontStyle = 0;     // bits: 1 bold, 2 italic, 4 underline
    int fontColor = 0;     // 0xRRGGBB

    double angleDegrees = 0.0;
    int justification = 0;  // 0 left, 1 centre, 2 right
};

// The opaque colour of red x 65536 + green x 256 + blue. Other numbers divide with their sign.
shr::Color4b DecodeColor(int color);

}  // namespace mif
