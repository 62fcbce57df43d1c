// Points, boxes and matrices. Lengths are world units, angles radians; a positive rotation is
// counter-clockwise. Matrices act on column vectors and are stored row by row.
#pragma once

#include "host/platform/Export.h"

#include <array>

namespace shr {

// A point, or the way between two.
struct Vec2d {
    double x = 0.0;
    double y = 0.0;

    bool operator==(const Vec2d&) const = default;
};

// The same in space. Filters read and write x and y; z is 0.
struct Vec3d {
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;

    bool operator==(const Vec3d&) const = default;

    static const Vec3d ZERO;  // NOLINT(readability-identifier-naming): the host's own name
};
inline constexpr Vec3d Vec3d::ZERO{};  // NOLINT(readability-identifier-naming)

// A rectangle along the axes, by its corners.
struct Box2d {
    double minX = 0.0;
    double minY = 0.0;
    double maxX = 0.0;
    double maxY = 0.0;

    bool operator==(const Box2d&) const = default;

    // True when a minimum lies above its maximum; a box of a single point is not empty.
    bool IsEmpty() const { return minX > maxX || minY > maxY; }
};

// The same in space.
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
    void Rotate(double angleRadians);  // about the origin

    // Returns where the matrix moves the point.
    Vec2d Transform(const Vec2d& point) const;

    // The nine numbers, row by row.
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
    void RotateZ(double angleRadians);  // about the z axis

    // Returns where the matrix moves the point.
    Vec3d Transform(const Vec3d& point) const;

    // Returns the rotation about z in radians, from -pi to pi. One that was made from whole degrees
    // is not less than these degrees, so that a format of whole degrees keeps it.
    double GetRotation2() const;

    // The sixteen numbers, row by row.
    const std::array<double, 16>& Values() const { return values_; }
    bool operator==(const Mat4d&) const = default;

private:
    std::array<double, 16> values_;
};

}  // namespace shr
