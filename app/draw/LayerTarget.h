// Who receives the objects of a picture's layers: the collector of the extent, then the painter.
#pragma once

#include "app/draw/LayerView.h"
#include "host/zeio/TrObjects.h"

#include <cstddef>

namespace app {

class LayerTarget {
public:
    virtual ~LayerTarget() = default;

    // Starts a layer, by its number from 0, whose coordinates are the picture's own until
    // SetTransform says otherwise. What an earlier layer said no longer holds.
    virtual void BeginLayer(std::size_t layer) = 0;
    virtual void SetTransform(PointTransform transform) = 0;

    // The Bounds line of the layer's header, by which the module grades pens.
    virtual void SetBounds(const shr::Box2d&) {}

    // Takes one object of the layer, and keeps nothing of it but styles.
    virtual void Add(const zeio::TrBase& object) = 0;
};

}  // namespace app
