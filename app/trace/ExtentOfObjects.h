// The extent of translation objects, as a host that has them all would know it.
#pragma once

#include "host/shr/Geometry.h"
#include "host/zeio/TrObjects.h"

namespace app {

class ExtentOfObjects {
public:
    // Takes in the vertices, positions, corners and text boxes of a graphic object; a text with an
    // empty box counts with its position. Numbers that are not finite are left out.
    void Add(const zeio::TrBase& object);

    // Min above max while nothing was taken in.
    shr::Box3d Box() const;

private:
    void Widen(double x, double y, double z);
    void AddText(const zeio::TrText& text);

    bool isEmpty_ = true;
    shr::Box3d box_;
};

}  // namespace app
