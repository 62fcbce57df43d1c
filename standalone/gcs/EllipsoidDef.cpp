#include "host/gcs/EllipsoidDef.h"

#include <cmath>

namespace gcs {

namespace {

constexpr double kSameRadiusMetres = 1e-6;

}  // namespace

bool EllipsoidDef::CompareParameters(const EllipsoidDef& left, const EllipsoidDef& right,
                                     bool exact) {
    if (exact) {
        return left == right;
    }
    return std::fabs(left.GetMajorRadius() - right.GetMajorRadius()) <= kSameRadiusMetres &&
           std::fabs(left.GetMinorRadius() - right.GetMinorRadius()) <= kSameRadiusMetres;
}

}  // namespace gcs
