#include "app/feature/Source.h"

#include "app/base/Errors.h"
#include "app/base/Suggestion.h"
#include "app/base/Utf8.h"

#include <algorithm>
#include <optional>

namespace app {

std::size_t Source::LayerNamed(const std::string& name) const {
    const std::vector<std::string> layers = LayerNames();
    if (layers.empty()) {
        throw Failure(name_ + ": holds no layer with features");
    }
    std::string names;
    for (const std::string& layer : layers) {
        names += (names.empty() ? "" : ", ") + layer;
    }
    if (name.empty()) {
        if (layers.size() == 1) {
            return 0;
        }
        throw UsageError(name_ +
                         ": holds several layers; choose with --layer, or merge them with "
                         "--merge, or write a file each with --output-dir: " +
                         names);
    }
    auto found = std::ranges::find(layers, name);
    if (found == layers.end()) {
        found = std::ranges::find_if(layers, [folded = FoldedCase(name)](const std::string& layer) {
            return FoldedCase(layer) == folded;
        });
    }
    if (found == layers.end()) {
        const std::optional<std::string> nearest = NearestName(name, layers);
        throw UsageError(name_ + ": holds no layer " + name +
                         (nearest ? "; did you mean " + *nearest + "? It has: " : "; it has: ") +
                         names);
    }
    return static_cast<std::size_t>(found - layers.begin());
}

}  // namespace app
