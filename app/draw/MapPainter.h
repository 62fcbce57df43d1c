// Draws the objects of imports, one at a time and in order, on a canvas.
//
// Pens, brushes and fonts hold for the geometry that follows. What a layer does not say is drawn
// in the layer's own colours. No object is kept; a raster picture takes the same memory for any
// number of objects.
#pragma once

#include "app/draw/DrawingColors.h"
#include "app/draw/LayerTarget.h"
#include "app/draw/MarkerPainter.h"
#include "app/draw/PagePath.h"
#include "app/draw/PenScale.h"
#include "app/draw/TextPainter.h"
#include "host/zeio/TrObjects.h"

#include <cairo.h>

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

namespace app {

enum class StyleSource {
    Objects,  // the pens and brushes among the objects
    Layers,   // the layers' colours alone
};

class MapPainter : public LayerTarget {
public:
    // The context draws in page coordinates and must outlive the painter.
    MapPainter(cairo_t* context, const Viewport& viewport, StyleSource styleSource);

    void BeginLayer(std::size_t layer) override;
    void SetTransform(PointTransform transform) override;
    void SetBounds(const shr::Box2d& bounds) override;

    // Draws the object, or remembers the style. Objects of other kinds are passed over.
    void Add(const zeio::TrBase& object) override;

private:
    // How a line is drawn. A width of 0 is no line.
    struct Stroke {
        shr::Color4b color;
        double width = 0.0;          // pixels
        std::vector<double> dashes;  // pixels; empty is solid
        bool isClosed = false;
    };

    // What a font sets aside until its text is drawn: the no-line pen and the colour brush that
    // stand between the two are the text's alone.
    struct StyleBeforeText {
        std::optional<zeio::TrPen> pen;
        std::optional<zeio::TrBrush> brush;
    };

    void SetPen(const zeio::TrPen& pen);
    void SetBrush(const zeio::TrBrush& brush);
    void SetFont(const zeio::TrFont& font);
    void BeginGeometry();
    void DrawPolyline(const zeio::TrPolyline& polyline);
    void DrawPolygon(const zeio::TrPolygon& polygon);
    void DrawRectangle(const zeio::TrRectangle& rectangle);
    void DrawEllipse(const zeio::TrEllipse& ellipse);
    void DrawMarkers(const zeio::TrMarkerSet& markers);
    void DrawText(const zeio::TrText& text);

    template <typename Point> PagePath PathOf(std::span<const Point> points) const;
    template <typename Point> PagePath RingOf(std::span<const Point> points) const;
    Stroke StrokeOf(double usualWidth) const;
    void DrawArea(const std::vector<PagePath>& rings);
    void FillArea(const std::vector<PagePath>& rings, const zeio::TrBrush& brush) const;
    void FillWithHatch(const std::vector<PagePath>& rings, const zeio::TrBrush& brush) const;

    // The hatch over the box alone; the caller destroys it.
    cairo_pattern_t* PictureOfHatch(const PageBox& box, const zeio::TrBrush& brush) const;
    std::optional<PageBox> VisibleBoundsOf(const std::vector<PagePath>& rings) const;
    void DrawHatch(const PageBox& box, const zeio::TrBrush& brush) const;
    void DrawLines(const std::vector<PagePath>& paths, const Stroke& stroke) const;
    void StrokeInPieces(const PagePath& path, bool isClosed) const;
    void AppendRings(const std::vector<PagePath>& rings) const;
    void AppendPath(const PagePath& path) const;

    cairo_t* context_;
    Viewport viewport_;
    StyleSource styleSource_;
    LayerView view_;
    LayerColors colors_;
    std::optional<zeio::TrPen> pen_;      // none: the layer's colours
    std::optional<zeio::TrBrush> brush_;  // none: the layer's colours
    std::optional<shr::Color4b> textColor_;
    PenScale penScale_;
    zeio::TrFont font_;
    std::optional<StyleBeforeText> beforeText_;
    MarkerPainter markerPainter_;
    TextPainter textPainter_;
};

}  // namespace app
