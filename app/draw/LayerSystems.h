// Brings the layers of one picture into one coordinate system: the one that the user named, or
// that of the first layer that has one.
#pragma once

#include "app/draw/LayerView.h"
#include "host/gcs/CSDef.h"

#include <memory>
#include <string>

namespace app {

// How a layer's coordinates come into the picture's system.
struct LayerTransform {
    PointTransform transform;  // empty: they are there already, or can't be moved
    std::string problem;       // why they can't be moved; the layer is then drawn as it stands
};

class LayerSystems {
public:
    // A null target leaves the choice to the first layer.
    explicit LayerSystems(std::unique_ptr<gcs::CSDef> target) : target_(std::move(target)) {}

    // For a layer of this system. The first call settles the picture's system when none was named.
    LayerTransform TransformFrom(const gcs::CSDef& system);

    // True when the picture's coordinates are degrees of longitude and latitude.
    bool IsGeographic() const;

    bool HasTarget() const { return target_ != nullptr; }

private:
    std::unique_ptr<gcs::CSDef> target_;  // null: not settled yet
};

// True when coordinates of both systems mean the same places without a transformation.
bool IsSameSystem(const gcs::CSDef& left, const gcs::CSDef& right);

}  // namespace app
