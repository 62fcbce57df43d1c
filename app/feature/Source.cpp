#include "app/feature/Source.h"

#include "app/base/Errors.h"

#include <algorithm>

namespace app {

std::size_t Source::LayerNamed(const std::string& name) const {
    const std::vector<std::string> layers = LayerNames();
    if (layers.empty()) {
        throw Failure(name_ + ": holds no layer with features");
    }
    if (name.empty() && layers.size() == 1) {
        return 0;
    }
    const auto found = std::find(layers.begin(), layers.end(), name);
    if (!name.empty() && found != layers.end()) {
        return static_cast<std::size_t>(found - layers.begin());
    }
    std::string names;
    for (const std::string& layer : layers) {
        names += (names.empty() ? "" : ", ") + layer;
    }
    throw UsageError(name_ + ": " +
                     (name.empty() ? "holds several layers; choose one with --layer: "
                                   : "holds no layer " + name + "; it has: ") +
                     names);
}

}  // namespace app
