#include "host/gcs/KnownLists.h"

#include "host/platform/Stdio.h"
#include "standalone/gcs/DatumTable.h"
#include "standalone/gcs/EllipsoidTable.h"

#include <cmath>
#include <string_view>

namespace gcs {

namespace {

constexpr int kUnknownDatum = 1;
constexpr int kFirstDatum = 2;
constexpr int kFirstEllipsoid = 1;

// Tells GRS 80 from WGS 84, which differ by 1.6e-11.
constexpr double kSameFlattening = 1e-12;

EllipsoidDef EllipsoidOf(const EllipsoidRow& row) {
    const double flattening = row.inverseFlattening == 0.0 ? 0.0 : 1.0 / row.inverseFlattening;
    return {row.majorRadius, flattening};
}

DatumDef DatumOf(const DatumRow& row) {
    DatumParameters parameters;
    parameters.kind = row.method;
    parameters.ellipsoid = EllipsoidOf(row.ellipsoid);
    parameters.dx = row.shift.dx;
    parameters.dy = row.shift.dy;
    parameters.dz = row.shift.dz;
    parameters.rx = row.shift.rx;
    parameters.ry = row.shift.ry;
    parameters.rz = row.shift.rz;
    parameters.scale = row.shift.scale;
    parameters.primeMeridian = row.shift.primeMeridian;
    return {row.token, row.name, parameters};
}

bool EqualsNoCase(std::wstring_view left, std::wstring_view right) {
    return left.size() == right.size() &&
           platform::CompareNoCase(left.data(), right.data(), left.size()) == 0;
}

}  // namespace

const DatumList GCSKnownDatumsList{};
const EllipsoidList GCSKnownEllipsoidsList{};

int DatumList::FindByToken(const wchar_t* token, DatumDef* out) const {
    if (token == nullptr) {
        return 0;
    }
    int index = kFirstDatum;
    for (const DatumRow& row : KnownDatums()) {
        if (EqualsNoCase(row.token, token)) {
            if (out != nullptr) {
                *out = DatumOf(row);
            }
            return index;
        }
        ++index;
    }
    return 0;
}

bool DatumList::Enum(int index, DatumDef& out) const {
    out = DatumDef();
    if (index >= kFirstDatum && index < Count()) {
        out = DatumOf(KnownDatums()[static_cast<std::size_t>(index - kFirstDatum)]);
        return true;
    }
    return index == kUnknownDatum;
}

int DatumList::Count() const {
    return kFirstDatum + static_cast<int>(KnownDatums().size());
}

int EllipsoidList::FindByDimensions(double majorRadius, double flattening) const {
    int index = kFirstEllipsoid;
    for (const EllipsoidRow& row : kEllipsoids) {
        const EllipsoidDef ellipsoid = EllipsoidOf(row);
        if (std::fabs(ellipsoid.GetMajorRadius() - majorRadius) <= kSameRadiusMetres &&
            std::fabs(ellipsoid.GetFlattening() - flattening) <= kSameFlattening) {
            return index;
        }
        ++index;
    }
    return 0;
}

bool EllipsoidList::Enum(int index, EllipsoidDef& out) const {
    if (index < kFirstEllipsoid || index >= Count()) {
        out = EllipsoidDef();
        return false;
    }
    out = EllipsoidOf(kEllipsoids[static_cast<std::size_t>(index - kFirstEllipsoid)]);
    return true;
}

const wchar_t* EllipsoidList::Name(int index) const {
    if (index < kFirstEllipsoid || index >= Count()) {
        return L"";
    }
    return kEllipsoids[static_cast<std::size_t>(index - kFirstEllipsoid)].name;
}

int EllipsoidList::Count() const {
    return kFirstEllipsoid + static_cast<int>(kEllipsoids.size());
}

}  // namespace gcs
