#include "host/shr/Geometry.h"

#include <cmath>
#include <cstddef>
#include <numbers>

namespace shr {

namespace {

// The product of two square matrices stored row by row: first right, then left.
template <std::size_t Rows, std::size_t Count>
std::array<double, Count> Product(const std::array<double, Count>& left,
                                  const std::array<double, Count>& right) {
    static_assert(Rows * Rows == Count);
    std::array<double, Count> result{};
    for (std::size_t row = 0; row < Rows; ++row) {
        for (std::size_t column = 0; column < Rows; ++column) {
            for (std::size_t i = 0; i < Rows; ++i) {
                result[row * Rows + column] += left[row * Rows + i] * right[i * Rows + column];
            }
        }
    }
    return result;
}

// A rotation by a whole number of degrees has been through sine, cosine and arc tangent, and comes
// out a little less as easily as a little more. A file format that keeps whole degrees only would
// lose one on each round, so such an angle becomes one that is not less than its degrees.
double OnWholeDegree(double angleRadians) {
    const auto degreesOf = [](double radians) { return radians * 180.0 / std::numbers::pi; };
    const double whole = std::round(degreesOf(angleRadians));
    constexpr double kRoundingError = 1e-9;  // degrees
    if (whole == 0.0 || std::fabs(degreesOf(angleRadians) - whole) > kRoundingError) {
        return angleRadians;
    }
    double angle = whole / 180.0 * std::numbers::pi;
    while (std::fabs(degreesOf(angle)) < std::fabs(whole)) {
        angle = std::nextafter(angle, 2.0 * angle);
    }
    return angle;
}

}  // namespace

Mat3d::Mat3d() : values_{1, 0, 0, 0, 1, 0, 0, 0, 1} {}

void Mat3d::Translate(double x, double y) {
    values_ = Product<3>(std::array<double, 9>{1, 0, x, 0, 1, y, 0, 0, 1}, values_);
}

void Mat3d::Rotate(double angleRadians) {
    const double c = std::cos(angleRadians);
    const double s = std::sin(angleRadians);
    values_ = Product<3>(std::array<double, 9>{c, -s, 0, s, c, 0, 0, 0, 1}, values_);
}

Vec2d Mat3d::Transform(const Vec2d& point) const {
    const auto& m = values_;
    return {m[0] * point.x + m[1] * point.y + m[2], m[3] * point.x + m[4] * point.y + m[5]};
}

Mat4d::Mat4d() : values_{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1} {}

Mat4d::Mat4d(const std::array<double, 16>& rowByRow) : values_(rowByRow) {}

void Mat4d::Translate(double x, double y, double z) {
    const std::array<double, 16> step{1, 0, 0, x, 0, 1, 0, y, 0, 0, 1, z, 0, 0, 0, 1};
    values_ = Product<4>(step, values_);
}

void Mat4d::RotateZ(double angleRadians) {
    const double c = std::cos(angleRadians);
    const double s = std::sin(angleRadians);
    const std::array<double, 16> step{c, -s, 0, 0, s, c, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
    values_ = Product<4>(step, values_);
}

Vec3d Mat4d::Transform(const Vec3d& point) const {
    const auto coordinate = [&](std::size_t row) {
        const double* m = &values_[row * 4];
        return m[0] * point.x + m[1] * point.y + m[2] * point.z + m[3];
    };
    return {coordinate(0), coordinate(1), coordinate(2)};
}

double Mat4d::GetRotation2() const {
    return OnWholeDegree(std::atan2(values_[4], values_[0]));
}

}  // namespace shr
