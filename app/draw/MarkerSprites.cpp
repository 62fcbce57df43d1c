#include "app/draw/MarkerSprites.h"

#include <algorithm>
#include <cmath>

namespace app {

namespace {

constexpr std::size_t kMostLooks = 64;
constexpr double kLargestDiameter = 64.0;

}  // namespace

MarkerSprites::Look* MarkerSprites::LookOf(const Marker& marker) {
    if (last_ < looks_.size() && looks_[last_].marker == marker) {
        return &looks_[last_];
    }
    const auto known = std::ranges::find(looks_, marker, &Look::marker);
    last_ = static_cast<std::size_t>(known - looks_.begin());
    if (known != looks_.end()) {
        return &*known;
    }
    if (looks_.size() == kMostLooks) {
        return nullptr;
    }
    // Room for the corners of a turned square, a character wider than its size, and a shadow.
    const int reach = static_cast<int>(std::ceil(marker.diameter + BorderWidth(marker))) + 2;
    looks_.push_back({marker, reach, {}});
    return &looks_.back();
}

bool MarkerSprites::Paint(cairo_t* context, const Marker& marker, const PagePoint& at,
                          const Drawing& draw) {
    if (marker.diameter > kLargestDiameter ||
        cairo_surface_get_type(cairo_get_target(context)) != CAIRO_SURFACE_TYPE_IMAGE) {
        return false;
    }
    Look* const look = LookOf(marker);
    if (look == nullptr) {
        return false;
    }
    const double quarterX = std::floor(at.x * kParts + 0.5);
    const double quarterY = std::floor(at.y * kParts + 0.5);
    const double left = std::floor(quarterX / kParts);
    const double top = std::floor(quarterY / kParts);
    const auto column = static_cast<std::size_t>(quarterX - left * kParts);
    const auto row = static_cast<std::size_t>(quarterY - top * kParts);
    Picture& picture = look->pictures[row * kParts + column];
    if (!picture) {
        const int size = 2 * look->reach + 1;
        picture.reset(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, size, size));
        cairo_t* const own = cairo_create(picture.get());
        cairo_translate(own, look->reach + static_cast<double>(column) / kParts,
                        look->reach + static_cast<double>(row) / kParts);
        draw(own, marker);
        cairo_destroy(own);
    }
    cairo_set_source_surface(context, picture.get(), left - look->reach, top - look->reach);
    cairo_paint(context);
    return true;
}

}  // namespace app
