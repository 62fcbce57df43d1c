#pragma once

namespace gcs {

class EllipsoidDef {
public:
    EllipsoidDef();
    EllipsoidDef(const EllipsoidDef&) = delete;
    EllipsoidDef& operator=(const EllipsoidDef&) = delete;

    void SetMajorRadius(double metres);
    void SetFlattening(double flattening);
    double GetMajorRadius() const;
    double GetFlattening() const;
    double GetMinorRadius() const;
    static bool CompareParameters(const EllipsoidDef& left, const EllipsoidDef& right, bool exact);
};

}  // namespace gcs
