// The page and how the world is laid on it: the mapping of world coordinates to page coordinates.
//
// Page coordinates are pixels with the origin at the top left and y downwards; a pixel is 1/96
// inch in the formats that have a size on paper.
#pragma once

#include "host/shr/Geometry.h"

namespace app {

struct PagePoint {
    double x = 0.0;
    double y = 0.0;

    bool operator==(const PagePoint&) const = default;
};

struct PageSize {
    int width = 0;
    int height = 0;

    bool operator==(const PageSize&) const = default;
};

inline constexpr int kLargestPageSide = 16384;

// How many times as wide as a degree of latitude a degree of longitude is drawn in the middle of
// the box, which is in degrees.
double LongitudeStretch(const shr::Box2d& degrees);

class Viewport {
public:
    // `centre` is the place in the world that comes to `centreOnPage`; the scales are pixels per
    // world unit, above 0.
    Viewport(PageSize page, const shr::Vec2d& centre, const PagePoint& centreOnPage, double scaleX,
             double scaleY)
        : page_(page), centre_(centre), centreOnPage_(centreOnPage), scaleX_(scaleX),
          scaleY_(scaleY) {}

    // The place on the page; far outside it stays within numbers that arithmetic can handle.
    PagePoint ToPage(const shr::Vec2d& point) const;

    // The other way.
    shr::Vec2d ToWorld(const PagePoint& point) const;

    PageSize Page() const { return page_; }
    double PixelsPerUnit() const { return scaleY_; }  // of y

private:
    PageSize page_;
    shr::Vec2d centre_;
    PagePoint centreOnPage_;
    double scaleX_;
    double scaleY_;
};

}  // namespace app
