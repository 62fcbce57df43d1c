// Pictures of point symbols, each made once and painted many times. A million symbols of a few
// looks are drawn many times as fast so.
#pragma once

#include "app/draw/Viewport.h"
#include "app/feature/DrawnStyle.h"

#include <cairo.h>

#include <array>
#include <functional>
#include <memory>
#include <vector>

namespace app {

class MarkerSprites {
public:
    // Draws a symbol around the origin of a context.
    using Drawing = std::function<void(cairo_t* context, const Marker& marker)>;

    // Paints the symbol at the nearest quarter of a pixel; makes its picture with `draw` the first
    // time. Returns false, and paints nothing, for what is better drawn anew: on pages that are no
    // pixels, symbols that are large, and looks beyond the first 64.
    bool Paint(cairo_t* context, const Marker& marker, const PagePoint& at, const Drawing& draw);

private:
    struct Destroy {
        void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
    };
    using Picture = std::unique_ptr<cairo_surface_t, Destroy>;

    static constexpr int kParts = 4;  // of a pixel, in each direction

    struct Look {
        Marker marker;
        int reach;  // pixels from the middle to the edge of the pictures
        std::array<Picture, kParts * kParts> pictures;
    };

    Look* LookOf(const Marker& marker);

    std::vector<Look> looks_;
    std::size_t last_ = 0;  // the look that was wanted last
};

}  // namespace app
