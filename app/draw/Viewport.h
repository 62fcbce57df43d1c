// The page and how the world is laid on it: the choice of a page size for an extent, and the
// mapping of world coordinates to page coordinates.
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

// What the user asks of the page; 0 leaves a side to ChoosePageSize.
struct PageRequest {
    int width = 0;
    int height = 0;
    double margin = 0.0;  // pixels, on each side
};

inline constexpr int kLargestPageSide = 16384;
inline constexpr double kPixelsPerInch = 96.0;

// True for a point that can take part in a picture: both numbers finite and small enough that
// differences of two of them stay finite.
bool IsDrawable(double x, double y);

// The box itself, or a small one around it when it has no size that the numbers can tell from a
// point. A box without width or height alone stays as it is.
shr::Box2d WithSize(const shr::Box2d& box);

// How many times as wide as a degree of latitude a degree of longitude is drawn in the middle of
// the box, which is in degrees.
double LongitudeStretch(const shr::Box2d& degrees);

// The size that shows the box without empty strips, as far as it does not get more than 4 times
// as long as wide. Without a request the longer side has 1000 pixels.
PageSize ChoosePageSize(const shr::Box2d& world, double stretchX, const PageRequest& request);

class Viewport {
public:
    // Fits the box into the page less its margin, in the middle; x is stretched by stretchX
    // against y.
    Viewport(const shr::Box2d& world, double stretchX, PageSize page, double margin);

    // The place on the page; far outside it stays within numbers that arithmetic can handle.
    PagePoint ToPage(const shr::Vec2d& point) const;

    PageSize Page() const { return page_; }
    double PixelsPerUnit() const { return scaleY_; }  // of y

private:
    PageSize page_;
    shr::Vec2d centre_;  // in the world: what lies in the middle of the page
    double scaleX_;
    double scaleY_;
};

}  // namespace app
