// Values by their fields, and matrices that translate, rotate and transform.
#pragma once

namespace shr {

struct Vec2d {
    double x = 0.0;
    double y = 0.0;
};

struct Vec3d {
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;

    static const Vec3d ZERO;
};

struct Box2d {
    double minX = 0.0;
    double minY = 0.0;
    double maxX = 0.0;
    double maxY = 0.0;
};

struct Box3d {
    double minX = 0.0;
    double minY = 0.0;
    double minZ = 0.0;
    double maxX = 0.0;
    double maxY = 0.0;
    double maxZ = 0.0;
};

class Mat3d {
public:
    Mat3d();  // the identity
    void Translate(double x, double y);
    void Rotate(double angleRadians);
    Vec2d Transform(const Vec2d& point) const;
};

class Mat4d {
public:
    Mat4d();  // the identity
    void Translate(double x, double y, double z);
    void RotateZ(double angleRadians);
    double GetRotation2() const;
    Vec3d Transform(const Vec3d& point) const;
};

}  // namespace shr
