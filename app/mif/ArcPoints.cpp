#include "app/mif/ArcPoints.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <numbers>
#include <system_error>

namespace app {
namespace {

// The value without the last digits, which are only the noise of the functions.
std::string CoordinateText(double value) {
    std::array<char, 64> text{};
    const auto [end, error] = std::to_chars(text.data(), text.data() + text.size(), value,
                                            std::chars_format::general, 12);
    return std::string(text.data(), error == std::errc{} ? end : text.data());
}

// A cosine or sine that is 0 but for rounding is 0.
double Clean(double value) {
    return std::fabs(value) < 1e-15 ? 0.0 : value;
}

}  // namespace

std::vector<shr::Vec2d> ArcPoints(const shr::Box2d& box, double startDegrees, double endDegrees) {
    double sweep = std::fmod(endDegrees - startDegrees, 360.0);
    if (!(sweep > 0.0)) {
        sweep += 360.0;
    }
    const double rx = (box.maxX - box.minX) / 2.0;
    const double ry = (box.maxY - box.minY) / 2.0;
    const int steps = std::max(4, static_cast<int>(std::ceil(sweep / 3.0)));
    std::vector<shr::Vec2d> points;
    for (int i = 0; i <= steps; ++i) {
        const double angle = (startDegrees + sweep * i / steps) * std::numbers::pi / 180.0;
        points.push_back({box.minX + rx + rx * Clean(std::cos(angle)),
                          box.minY + ry + ry * Clean(std::sin(angle))});
    }
    return points;
}

std::string PlineText(const std::vector<shr::Vec2d>& points, const std::string& lineEnd) {
    std::string text = "Pline " + std::to_string(points.size());
    for (const shr::Vec2d& point : points) {
        text += lineEnd + CoordinateText(point.x) + " " + CoordinateText(point.y);
    }
    return text;
}

}  // namespace app
