// Brings the layers of one picture into one coordinate system: the one that the user named, or
// that of the first layer that has one.
#pragma once

#include "app/crs/Reprojection.h"

#include <optional>
#include <string>
#include <vector>

namespace app {

// How a layer's coordinates come into the picture's system.
class LayerTransform {
public:
    // They are there already, or can't be moved.
    LayerTransform() = default;
    explicit LayerTransform(Reprojection way) : way_(std::move(way)) {}

    bool IsNeeded() const { return way_.has_value(); }

    // Moves the points. One without a place there becomes infinite.
    void Apply(std::vector<shr::Vec2d>& points) {
        if (way_) {
            way_->Apply(points);
        }
    }

private:
    std::optional<Reprojection> way_;
};

class LayerSystems {
public:
    // A null target leaves the choice to the first layer.
    explicit LayerSystems(SystemPtr target) : target_(std::move(target)) {}

    // For a layer of this system, null when nothing is known of its coordinates. The first system
    // settles the picture's when none was named. `problem` becomes the reason why the layer can't
    // be moved, for the end of a sentence: it is then drawn with its coordinates unchanged.
    LayerTransform TransformFrom(const SystemPtr& system, std::string& problem);

    // The picture's system; null when it has none (yet).
    const SystemPtr& Target() const { return target_; }

    // True when the picture's coordinates are degrees of longitude and latitude.
    bool IsGeographic() const { return target_ != nullptr && target_->isGeographic; }

private:
    SystemPtr target_;
};

}  // namespace app
