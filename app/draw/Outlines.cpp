#include "app/draw/Outlines.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace app {

namespace {

constexpr int kPointsPerQuarter = 45;

struct Corner {
    shr::Vec2d centre;
    double startAngle;  // radians
};

void AppendQuarter(std::vector<shr::Vec2d>& ring, const Corner& corner, double radiusX,
                   double radiusY) {
    for (int i = 0; i <= kPointsPerQuarter; ++i) {
        const double angle = corner.startAngle + i * (std::numbers::pi / 2.0 / kPointsPerQuarter);
        ring.push_back({corner.centre.x + radiusX * std::cos(angle),
                        corner.centre.y + radiusY * std::sin(angle)});
    }
}

shr::Vec2d Moved(const shr::Mat4d& transform, double x, double y) {
    const shr::Vec3d moved = transform.Transform({x, y, 0.0});
    return {moved.x, moved.y};
}

}  // namespace

std::vector<shr::Vec2d> OutlineOf(const zeio::TrRectangle& rectangle) {
    const double minX = std::min(rectangle.x1, rectangle.x2);
    const double minY = std::min(rectangle.y1, rectangle.y2);
    const double maxX = std::max(rectangle.x1, rectangle.x2);
    const double maxY = std::max(rectangle.y1, rectangle.y2);
    const double radiusX = std::min(rectangle.radiusX, maxX / 2.0 - minX / 2.0);
    const double radiusY = std::min(rectangle.radiusY, maxY / 2.0 - minY / 2.0);
    if (!(radiusX > 0.0) || !(radiusY > 0.0)) {
        return {{minX, minY}, {maxX, minY}, {maxX, maxY}, {minX, maxY}};
    }
    constexpr double kQuarter = std::numbers::pi / 2.0;
    const Corner corners[] = {
        {{maxX - radiusX, minY + radiusY}, -kQuarter},
        {{maxX - radiusX, maxY - radiusY}, 0.0},
        {{minX + radiusX, maxY - radiusY}, kQuarter},
        {{minX + radiusX, minY + radiusY}, 2.0 * kQuarter},
    };
    std::vector<shr::Vec2d> ring;
    for (const Corner& corner : corners) {
        AppendQuarter(ring, corner, radiusX, radiusY);
    }
    return ring;
}

std::vector<shr::Vec2d> OutlineOf(const zeio::TrEllipse& ellipse) {
    const shr::Vec2d centre{ellipse.x1 / 2.0 + ellipse.x2 / 2.0,
                            ellipse.y1 / 2.0 + ellipse.y2 / 2.0};
    const double radiusX = std::abs(ellipse.x2 / 2.0 - ellipse.x1 / 2.0);
    const double radiusY = std::abs(ellipse.y2 / 2.0 - ellipse.y1 / 2.0);
    std::vector<shr::Vec2d> ring;
    for (int quarter = 0; quarter < 4; ++quarter) {
        AppendQuarter(ring, {centre, quarter * (std::numbers::pi / 2.0)}, radiusX, radiusY);
        ring.pop_back();  // the next quarter begins with it
    }
    return ring;
}

TextFrame FrameOf(const zeio::TrText& text, double fontHeight) {
    shr::Box2d box = text.box;
    const bool hasBox = !box.IsEmpty();
    if (!hasBox) {
        box = {text.position.x, text.position.y, text.position.x, text.position.y + fontHeight};
    }
    return {.bottomLeft = Moved(text.transform, box.minX, box.minY),
            .bottomRight = Moved(text.transform, box.maxX, box.minY),
            .topLeft = Moved(text.transform, box.minX, box.maxY),
            .topRight = Moved(text.transform, box.maxX, box.maxY),
            .hasBox = hasBox};
}

}  // namespace app
