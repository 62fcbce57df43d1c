// Points, boxes and matrices. Lengths are world units, angles radians; a positive rotation is
// counter-clockwise. Matrices act on column vectors and are stored row by row.
#pragma once

#include "host/platform/Export.h"

#include <array>

namespace shr {

struct Vec2d {
    double x = 0.0;
    double y = 0.0;

    bool operator==(const Vec2d&) const = default;
};

struct Vec3d {
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;

    bool operator==(const Vec3d&) const = default;

    static const Vec3d ZERO;  // NOLINT(readability-identifier-naming): the host's own name
};
inline constexpr Vec3d Vec3d::ZERO{};  // NOLINT(readability-identifier-naming)

struct Box2d {
    double minX = 0.0;
    double minY = 0.0;
    double maxX = 0.0;
    double maxY = 0.0;

    bool operator==(const Box2d&) const = default;
    bool IsEmpty() const { return minX > maxX || minY > maxY; }
};

struct Box3d {
    double minX = 0.0;
    double minY = 0.0;
    double minZ = 0.0;
    double maxX = 0.0;
    double maxY = 0.0;
    double maxZ = 0.0;

    bool operator==(const Box3d&) const = default;
};

// A 3 x 3 matrix for points of the plane. Each operation is applied after what the matrix already
// does, so a sequence of calls reads in the order in which a point is moved.
class QOLF_HOST_API Mat3d {
public:
    Mat3d();  // the identity

    void Translate(double x, double y);
    void Rotate(double angleRadians);
    Vec2d Transform(const Vec2d& point) const;

    const std::array<double, 9>& Values() const { return values_; }

private:
    std::array<double, 9> values_;
};

// A 4 x 4 matrix for points of space; calls compose as those of Mat3d.
class QOLF_HOST_API Mat4d {
public:
    Mat4d();  // the identity
    explicit Mat4d(const std::array<double, 16>& rowByRow);

    void Translate(double x, double y, double z);
    void RotateZ(double angleRadians);
    Vec3d Transform(const Vec3d& point) const;

    // The rotation about z in radians, from -pi to pi.
    double GetRotation2() const;

    const std::array<double, 16>& Values() const { return values_; }
    bool operator==(const Mat4d&) const = default;

private:
    std::array<double, 16> values_;
};

}  // namespace shr
