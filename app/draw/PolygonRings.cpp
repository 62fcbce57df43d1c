#include "app/draw/PolygonRings.h"

#include <algorithm>
#include <cstdint>

namespace app {

std::vector<std::span<const shr::Vec3d>> RingsOf(const zeio::TrPolygon& polygon) {
    std::span<const shr::Vec3d> rest(polygon.vertices);
    if (polygon.partSizes.empty()) {
        return {rest};
    }
    std::vector<std::span<const shr::Vec3d>> rings;
    for (const std::int32_t size : polygon.partSizes) {
        if (size <= 0) {
            continue;
        }
        const std::size_t count = std::min(static_cast<std::size_t>(size), rest.size());
        if (count > 0) {
            rings.push_back(rest.first(count));
        }
        rest = rest.subspan(count);
    }
    return rings;
}

}  // namespace app
