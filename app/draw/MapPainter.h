// Draws the geometry of a map on a page, object by object and in order.
//
// What an object's style does not say is drawn in the layer's own colours. Nothing is kept: a
// raster picture takes the same memory for any number of objects.
#pragma once

#include "app/draw/MarkerPainter.h"
#include "app/draw/PathPainter.h"
#include "app/draw/TextPainter.h"
#include "app/draw/Viewport.h"
#include "app/feature/DrawnStyle.h"
#include "app/feature/Feature.h"

#include <cairo.h>

#include <cstddef>

namespace app {

class MapPainter {
public:
    // The context draws in page coordinates and must outlive the painter.
    MapPainter(cairo_t* context, const Viewport& viewport, StyleSource styleSource);

    // Starts a layer, by its number from 0, with colours of its own.
    void BeginLayer(std::size_t layer);

    // Draws the geometry, whose coordinates are the picture's own. A Text has its frame for points
    // (app/map/TextFrame.h). Points that are no numbers, or beyond all limits, are left out.
    void Draw(const Geometry& geometry);

private:
    void DrawLine(const Geometry& line);
    void DrawArea(const Geometry& area);
    void DrawText(const Geometry& text);

    PageSize page_;
    Viewport viewport_;
    StyleResolver styles_;
    PathPainter paths_;
    MarkerPainter markers_;
    TextPainter texts_;
};

}  // namespace app
