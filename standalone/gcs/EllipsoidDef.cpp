#include "host/gcs/EllipsoidDef.h"

#include "standalone/gcs/EllipsoidTable.h"

#include <cmath>

namespace gcs {

bool EllipsoidDef::CompareParameters(const EllipsoidDef& left, const EllipsoidDef& right,
                                     bool exact) {
    if (exact) {
        return left == right;
    }
    return std::fabs(left.GetMajorRadius() - right.GetMajorRadius()) <= kSameRadiusMetres &&
           std::fabs(left.GetMinorRadius() - right.GetMinorRadius()) <= kSameRadiusMetres;
}

}  // namespace gcs
