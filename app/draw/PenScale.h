// The widths in pixels that stood in the file, from what an import makes of them.
//
// A MIF file gives thin pens in pixels, 1 to 7. The module hands them over as a share of a diagonal
// in world units: that of the header's Bounds line, or of the objects read so far. Drawn like that,
// a pen of 7 pixels would cover a tenth of the map.
#pragma once

#include "app/draw/ExtentCollector.h"
#include "host/shr/Geometry.h"
#include "host/zeio/TrObjects.h"

#include <optional>

namespace app {

class PenScale {
public:
    // Starts a layer without a Bounds line and without objects.
    void BeginLayer();

    // The layer's Bounds line.
    void SetBounds(const shr::Box2d& bounds);

    // An object of the layer, before its pen is asked for.
    void Add(const zeio::TrBase& object);

    // 2 to 7 for a relative pen with a width; 1 without one, or where there is no diagonal.
    int Pixels(const zeio::TrPen& pen) const;

private:
    double Diagonal() const;

    std::optional<shr::Box2d> bounds_;
    ExtentCollector seen_;
};

}  // namespace app
