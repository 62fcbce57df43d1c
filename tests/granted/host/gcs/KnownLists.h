#pragma once

#include "host/gcs/DatumDef.h"
#include "host/gcs/EllipsoidDef.h"

namespace gcs {

class DatumList {
public:
    DatumList(const DatumList&) = delete;
    DatumList& operator=(const DatumList&) = delete;

    int FindByToken(const wchar_t* token, DatumDef* out) const;
    void Enum(int index, DatumDef& out) const;
};

class EllipsoidList {
public:
    EllipsoidList(const EllipsoidList&) = delete;
    EllipsoidList& operator=(const EllipsoidList&) = delete;

    int FindByDimensions(double majorRadius, double flattening) const;
    void Enum(int index, EllipsoidDef& out) const;
};

extern const DatumList GCSKnownDatumsList;
extern const EllipsoidList GCSKnownEllipsoidsList;

}  // namespace gcs
