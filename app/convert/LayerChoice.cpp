#include "app/convert/LayerChoice.h"

#include <algorithm>
#include <numeric>

namespace app {

std::vector<std::size_t> ChosenLayers(const Source& source, const std::vector<std::string>& names) {
    const std::vector<std::string> layers = source.LayerNames();
    std::vector<std::size_t> chosen;
    const auto choose = [&](const std::string& name) {
        const std::size_t layer = source.LayerNamed(name);
        if (std::ranges::count(chosen, layer) == 0) {
            chosen.push_back(layer);
        }
    };
    if (names.empty()) {
        chosen.resize(layers.size());
        std::iota(chosen.begin(), chosen.end(), std::size_t{0});
    }
    for (const std::string& name : names) {
        if (std::ranges::count(layers, name) > 0) {
            choose(name);
            continue;
        }
        for (std::size_t begin = 0; begin <= name.size();) {
            const std::size_t end = std::min(name.find(',', begin), name.size());
            choose(name.substr(begin, end - begin));
            begin = end + 1;
        }
    }
    return chosen;
}

}  // namespace app
