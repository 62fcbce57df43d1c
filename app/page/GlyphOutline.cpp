#include "app/page/GlyphOutline.h"

#include <cairo.h>

#include <memory>

namespace app {

namespace {

struct Destroy {
    void operator()(cairo_t* context) const { cairo_destroy(context); }
    void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
    void operator()(cairo_path_t* path) const { cairo_path_destroy(path); }
};

constexpr double kFontSize = 200.0;  // at which a curve becomes straight edges
constexpr double kUnit = kFontSize / 2.0;

std::vector<std::vector<shr::Vec2d>> RingsOfPath(const cairo_path_t& path,
                                                 const shr::Vec2d& middle) {
    std::vector<std::vector<shr::Vec2d>> rings;
    for (int i = 0; i < path.num_data; i += path.data[i].header.length) {
        const cairo_path_data_t& step = path.data[i];
        if (step.header.type == CAIRO_PATH_CLOSE_PATH) {
            continue;
        }
        if (step.header.type == CAIRO_PATH_MOVE_TO) {
            rings.emplace_back();
        }
        const auto& point = path.data[i + 1].point;
        rings.back().push_back({(point.x - middle.x) / kUnit, (point.y - middle.y) / kUnit});
    }
    std::erase_if(rings, [](const auto& ring) { return ring.size() < 3; });
    return rings;
}

}  // namespace

std::vector<std::vector<shr::Vec2d>> GlyphOutline(const Marker& marker) {
    const std::unique_ptr<cairo_surface_t, Destroy> surface(
        cairo_image_surface_create(CAIRO_FORMAT_A8, 1, 1));
    const std::unique_ptr<cairo_t, Destroy> context(cairo_create(surface.get()));
    cairo_select_font_face(context.get(), marker.family.c_str(), CAIRO_FONT_SLANT_NORMAL,
                           marker.isBold ? CAIRO_FONT_WEIGHT_BOLD : CAIRO_FONT_WEIGHT_NORMAL);
    cairo_set_font_size(context.get(), kFontSize);
    cairo_text_extents_t extents;
    cairo_text_extents(context.get(), marker.character.c_str(), &extents);
    cairo_move_to(context.get(), 0.0, 0.0);
    cairo_text_path(context.get(), marker.character.c_str());
    const std::unique_ptr<cairo_path_t, Destroy> path(cairo_copy_path_flat(context.get()));
    return path->status == CAIRO_STATUS_SUCCESS
               ? RingsOfPath(*path, {extents.x_bearing + extents.width / 2.0,
                                     extents.y_bearing + extents.height / 2.0})
               : std::vector<std::vector<shr::Vec2d>>();
}

}  // namespace app
