// The codes of datums and ellipsoids in a CoordSys clause, and what the EPSG register calls the
// datums. For the command; the module has tables of its own.
#pragma once

#include "host/gcs/DatumDef.h"

#include <cstdint>
#include <optional>

namespace app {

// Returns the known datum of a code; unknown when the code has none. For 113 it is the datum of
// Lisbon, which the module does not find.
gcs::DatumDef DatumOfCode(std::int64_t code);

// Returns the first version of the format with a datum's code; nothing when that is not known.
std::optional<int> VersionOfDatum(std::int64_t code);

struct DatumCode {
    int code = 0;
    int fromVersion = 300;  // of the format
};

// Returns the code of a known datum; nothing for an unknown datum, for one with its own numbers,
// and for one whose code is read as another datum with other numbers. Of two codes it is the one
// that older versions of the format have.
std::optional<DatumCode> CodeOfDatum(const gcs::DatumDef& datum);

// Returns the ellipsoid of a code; nothing for a code that the format doesn't have.
std::optional<gcs::EllipsoidDef> EllipsoidOfCode(std::int64_t code);

// Returns the code of the ellipsoid with these dimensions; nothing when the format has none. GRS 80
// has none either: its code is 0, which the module reads as Clarke 1866.
std::optional<int> CodeOfEllipsoid(const gcs::EllipsoidDef& ellipsoid);

// Returns the EPSG code of a known datum's longitude and latitude; 0 for a datum with its own
// numbers and for the few known ones that the register lacks.
int EpsgGeographicCodeOf(const gcs::DatumDef& datum);

// Returns the register's name of that code when its system is the datum's own longitude and
// latitude in degrees; else null.
const char* EpsgGeographicNameOf(const gcs::DatumDef& datum);

struct RegisteredDatum {
    gcs::DatumDef datum;       // unknown when none has the code
    bool isAmbiguous = false;  // other known datums with other numbers have the code too
};

// Returns the first known datum of an EPSG geographic code. Where one code means several sets
// of numbers (regional shifts of one datum), the first is the mean or most general one.
RegisteredDatum DatumOfEpsgCode(int epsgGeographicCode);

// Whether both lead to WGS 84 by the same numbers.
bool HaveSameShift(const gcs::DatumDef& left, const gcs::DatumDef& right);

}  // namespace app
