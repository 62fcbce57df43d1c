#include "app/map/LayerSystems.h"

#include "app/base/Errors.h"

namespace app {

LayerTransform LayerSystems::TransformFrom(const SystemPtr& system, std::string& problem) {
    problem.clear();
    if (system == nullptr || !system->IsOnEarth()) {
        problem = system == nullptr || system->problem.empty()
                      ? "has no coordinate system of the Earth"
                      : system->problem;
        return {};
    }
    if (!target_) {
        target_ = system;
    }
    if (IsSameSystem(*system, *target_)) {
        return {};
    }
    try {
        Reprojection way(*system, *target_);
        return way.IsNeeded() ? LayerTransform(std::move(way)) : LayerTransform();
    } catch (const Failure& failure) {
        problem = std::string("can't be moved into the picture's coordinate system (") +
                  failure.what() + ")";
        return {};
    }
}

}  // namespace app
