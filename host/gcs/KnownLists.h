// The known datums and ellipsoids: constant tables that a filter searches and copies entries out
// of.
//
// Indices start at 0 and are stable within one version; store tokens, not indices. The lists may be
// read from several threads.
#pragma once

#include "host/gcs/DatumDef.h"
#include "host/gcs/EllipsoidDef.h"
#include "host/platform/Export.h"

namespace gcs {

// Index 0 means not found, 1 is the unknown datum; 2 and up are the known entries.
class QOLF_HOST_API DatumList {
public:
    // The index of the entry with this token (ASCII case ignored, nothing trimmed), 0 when there
    // is none. The entry is copied to out unless out is null.
    int FindByToken(const wchar_t* token, DatumDef* out) const;

    // Copies entry index to out. False, and out unknown, when there is no such entry.
    bool Enum(int index, DatumDef& out) const;

    int Count() const;  // one more than the last index
};

// Index 0 means not found; 1 and up are the known entries.
class QOLF_HOST_API EllipsoidList {
public:
    // The index of the first entry with this major radius (to 1e-6 metres) and this flattening (to
    // 1e-12), 0 when there is none.
    int FindByDimensions(double majorRadius, double flattening) const;

    // Copies entry index to out. False, and out unknown, when there is no such entry.
    bool Enum(int index, EllipsoidDef& out) const;

    // The entry's name in words; "" when there is no such entry.
    const wchar_t* Name(int index) const;

    int Count() const;
};

// The one list of each kind; both are there before any filter is made.
QOLF_HOST_API extern const DatumList GCSKnownDatumsList;
QOLF_HOST_API extern const EllipsoidList GCSKnownEllipsoidsList;

}  // namespace gcs
