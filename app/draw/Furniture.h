// What a picture shows beside its map: a title above, a legend to the right, a scale bar below.
// Nothing of the map is covered: it gets the rest of the page.
#pragma once

#include "app/draw/MapFrame.h"
#include "app/draw/PictureMap.h"
#include "app/draw/Viewport.h"
#include "app/feature/DrawnStyle.h"

#include <cairo.h>

#include <optional>
#include <span>
#include <string>
#include <vector>

namespace app {

struct FurnitureWishes {
    std::string title;  // UTF-8; empty: none
    bool legend = false;
    bool scaleBar = false;
};

// What a scale bar says: a round length of at most a quarter of the map's width.
struct ScaleBar {
    double pixels = 0.0;  // 0: there is none
    std::string words;    // "500 m", "2 km", "10 units"
};

// `metresPerPixel` is that of the middle of the map; absent when the unit of the coordinates is not
// known, and `unitsPerPixel` counts.
ScaleBar ScaleBarOf(PageSize map, std::optional<double> metresPerPixel, double unitsPerPixel);

class Furniture {
public:
    // The layers must outlive it. What would leave the map less than half of a side of the page is
    // left out.
    Furniture(const FurnitureWishes& wishes, std::span<const LegendLayer> layers,
              StyleSource styleSource, const PageRequest& request);

    // What is left of the request for the map.
    PageRequest MapRequest() const;

    // The page around a map of this size, and the map's upper left corner there.
    PageSize PageAround(PageSize map) const;
    PagePoint MapCorner() const { return {0.0, static_cast<double>(top_)}; }

    // `ground` is the colour of the page, from which the letters must differ.
    void Draw(cairo_t* context, PageSize map, const ScaleBar& bar,
              const shr::Color4b& ground) const;

private:
    // A row of the legend: samples, and the text behind them.
    struct Row {
        std::size_t layer;
        std::span<const LegendLayer::Look> looks;
        std::string text;
    };

    static double WidthOfSamples(std::size_t count);
    void MeasureTitle(cairo_t* context, const std::string& title, double most);
    void MeasureLegend(cairo_t* context, std::span<const LegendLayer> layers, double most);
    void AddRows(cairo_t* context, const LegendLayer& layer, std::size_t number, double most);
    void DrawLegend(cairo_t* context, PageSize map, const shr::Color4b& ink) const;

    PageRequest request_;
    StyleSource styleSource_;
    std::string title_;  // as it fits
    std::vector<Row> rows_;
    int top_ = 0;  // pixels of the page beside the map
    int right_ = 0;
    int bottom_ = 0;
};

}  // namespace app
