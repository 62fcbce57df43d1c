// For the module, quirk for quirk: what MIF's numbers for projections, datums and ellipsoids stand
// for.
//
// Reader and writer share these tables. The order of the rows matters: every search takes the
// first row that fits. minVersion is the first MIF version that has the code; only the writer
// looks at it.
#pragma once

#include "host/gcs/ProjectionDef.h"

#include <array>
#include <cstddef>
#include <string>

namespace mif {

// A projection and the parameters that its clause carries, in the order of the fields.
struct ProjectionRow {
    int minVersion;
    int mifCode;
    bool hasOriginLongitude;
    bool hasOriginLatitude;
    bool hasStandardParallel1;
    bool hasStandardParallel2;
    bool hasAzimuth;
    bool hasScaleFactor;
    bool hasFalseEasting;
    bool hasFalseNorthing;
    bool hasRange;
    gcs::ProjectionMethod method;
};

// A datum and the token under which the known datums (host/gcs/KnownLists.h) list it.
struct DatumRow {
    int minVersion;
    int mifCode;
    const char* token;
};

struct EllipsoidRow {
    int minVersion;
    int mifCode;
    const wchar_t* name;
    double majorRadius;        // metres
    double inverseFlattening;  // 0 for a sphere
};

inline constexpr std::size_t kProjectionRowCount = 24;
inline constexpr std::size_t kEllipsoidRowCount = 53;
inline constexpr std::size_t kDatumRowCount = 166;

extern const std::array<ProjectionRow, kProjectionRowCount> kProjectionTable;
extern const std::array<EllipsoidRow, kEllipsoidRowCount> kEllipsoidTable;
extern const std::array<DatumRow, kDatumRowCount> kDatumTable;

// The first row that fits, or null.
const ProjectionRow* FindProjectionByCode(int mifCode);
const ProjectionRow* FindProjectionByMethod(gcs::ProjectionMethod method);
const DatumRow* FindDatumByCode(int mifCode);

// Ignores the case of ASCII letters.
const DatumRow* FindDatumByToken(const std::wstring& token);

// Never finds code 0, although the table has a row with it.
const EllipsoidRow* FindEllipsoidByCode(int mifCode);

// 1 / inverseFlattening; 0 for a sphere.
double Flattening(const EllipsoidRow& row);

}  // namespace mif
