// An ellipsoid of revolution, by its major radius in metres and its flattening (a - b) / a, which
// is 0 for a sphere.
#pragma once

#include "host/platform/Export.h"

#include <string>

namespace gcs {

class QOLF_HOST_API EllipsoidDef {
public:
    // Unknown: both dimensions are 0 until they are set.
    EllipsoidDef() = default;
    EllipsoidDef(double majorRadius, double flattening)
        : majorRadius_(majorRadius), flattening_(flattening) {}

    // Nothing is checked: ProjectionDef::CheckParameters objects to dimensions that make no
    // ellipsoid.
    void SetMajorRadius(double metres) { majorRadius_ = metres; }
    void SetFlattening(double flattening) { flattening_ = flattening; }
    double GetMajorRadius() const { return majorRadius_; }
    double GetFlattening() const { return flattening_; }

    // Returns the radius at the poles in metres.
    double GetMinorRadius() const { return majorRadius_ * (1.0 - flattening_); }

    // True while no major radius is set.
    bool IsUnknown() const { return majorRadius_ == 0.0; }

    // True when both have the same dimensions: to the bit with exact, else to 1e-6 m in the major
    // and the minor radius.
    static bool CompareParameters(const EllipsoidDef& left, const EllipsoidDef& right, bool exact);

    bool operator==(const EllipsoidDef&) const = default;

private:
    double majorRadius_ = 0.0;
    double flattening_ = 0.0;
};

}  // namespace gcs
