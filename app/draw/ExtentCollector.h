// The extent of a map in the picture's coordinates, from the objects of its imports.
#pragma once

#include "app/draw/LayerTarget.h"
#include "host/zeio/TrObjects.h"

#include <optional>

namespace app {

class ExtentCollector : public LayerTarget {
public:
    void BeginLayer(std::size_t layer) override;
    void SetTransform(PointTransform transform) override;

    // Takes an object into account: its vertices, corners and positions that can be drawn, and for
    // a text the corners of its box. Objects without a place don't count.
    void Add(const zeio::TrBase& object) override;

    // Nothing when no object had a place.
    std::optional<shr::Box2d> Extent() const { return extent_; }

private:
    void Include(const shr::Vec2d& point);

    PointTransform transform_;
    zeio::TrFont font_;
    std::optional<shr::Box2d> extent_;
};

}  // namespace app
