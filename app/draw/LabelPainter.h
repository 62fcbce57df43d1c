// Labels the objects of a map, once all of them are drawn.
#pragma once

#include "app/draw/LabelPlaces.h"
#include "app/draw/Viewport.h"
#include "app/feature/DrawnStyle.h"
#include "app/feature/Feature.h"

#include <cairo.h>

#include <string>
#include <string_view>

namespace app {

class LabelPainter {
public:
    // The context draws in page coordinates and must outlive the painter.
    LabelPainter(cairo_t* context, const Viewport& viewport, StyleSource styleSource);

    // Keeps the labels that are drawn later off the object's symbol, or off the object, a text.
    void Avoid(const Geometry& geometry);

    // Draws the label where it overlaps no other, or leaves it out. `label` is UTF-8, one line.
    void Draw(const Geometry& geometry, std::string_view label);

private:
    void AvoidText(const Geometry& text);
    std::optional<LabelPlace> PlaceOf(const Geometry& geometry, LabelSize size,
                                      const std::string& label);
    void DrawAt(const LabelPlace& place, LabelSize size, const std::string& label) const;

    cairo_t* context_;
    PageSize page_;
    Viewport viewport_;
    StyleResolver styles_;
    LabelPlaces places_;
};

}  // namespace app
