// What a map needs on its page: the extent of its objects, and the pixels by which their symbols
// and pens reach beyond it.
#pragma once

#include "app/draw/Viewport.h"
#include "host/shr/Geometry.h"

#include <map>
#include <optional>

namespace app {

// What the user asks of the page; 0 leaves a side to MapFrame.
struct PageRequest {
    int width = 0;
    int height = 0;
    double margin = 0.0;  // pixels, on each side
};

class MapFrame {
public:
    // An object, or a group of them, whose ink reaches so many pixels beyond its box. Boxes that
    // can't be drawn, or are empty, don't count.
    void Include(const shr::Box2d& box, double reach);

    // The box of all, without what reaches beyond; absent without an object.
    const std::optional<shr::Box2d>& Extent() const { return extent_; }

    // The size that shows the map without empty strips, as far as it does not get more than 4 times
    // as long as wide. Without a request the longer side has 1000 pixels. `stretchX` is how many
    // times as wide a unit of x is drawn as one of y. There must be an extent.
    PageSize ChoosePageSize(const PageRequest& request, double stretchX) const;

    // Lays the map into the middle of the page, as large as its margin allows. Symbols and pens may
    // reach into the margin.
    Viewport FitInto(PageSize page, double margin, double stretchX) const;

private:
    // Where the map begins and ends along an axis, in pixels from its centre.
    struct Span {
        double low = 0.0;
        double high = 0.0;

        double Length() const { return high - low; }
    };
    struct Side;

    Side SideOf(bool isX, double stretch, double margin, double limit) const;

    std::map<int, shr::Box2d> boxes_;  // by their reach in whole pixels
    std::optional<shr::Box2d> extent_;
};

// The largest pages that a request may lead to: the sides of each are at most these.
PageSize LargestPage(const PageRequest& request);

}  // namespace app
