// Draws point symbols: the shapes of the numbered set, and characters of symbol fonts.
#pragma once

#include "app/draw/MarkerGrid.h"
#include "app/draw/MarkerSprites.h"
#include "app/draw/Viewport.h"
#include "app/feature/DrawnStyle.h"

#include <cairo.h>

#include <span>

namespace app {

class MarkerPainter {
public:
    MarkerPainter(cairo_t* context, PageSize page) : context_(context), page_(page) {}

    // Draws a symbol at each place. One that would hide behind another of the same look is left out
    // (app/draw/MarkerGrid.h).
    void Draw(const Marker& marker, std::span<const PagePoint> places);

    // Something else was drawn: symbols from now on lie on top of it.
    void Forget() { grid_.Forget(); }

private:
    cairo_t* context_;
    PageSize page_;
    MarkerGrid grid_;
    MarkerSprites sprites_;
};

}  // namespace app
