// The known datums and the codes of the EPSG register.
#pragma once

#include "host/gcs/DatumDef.h"

#include <string>

namespace app::detail {

// The code of the geographic system of a known datum; 0 for a datum of its own and for the few
// known ones that the register lacks.
int EpsgGeographicCodeOf(const gcs::DatumDef& datum);

// The register's name of that code when its system is the datum's own longitude and latitude in
// degrees; else null.
const char* EpsgGeographicNameOf(const gcs::DatumDef& datum);

struct DatumOfCode {
    gcs::DatumDef datum;       // unknown when none has the code
    bool isAmbiguous = false;  // other known datums with other numbers have the code too
};

// The first known datum of a geographic system's code. Where one code stands for several sets of
// numbers (regional shifts of one datum), the first is the mean or most general one.
DatumOfCode KnownDatumOfCode(int epsgGeographicCode);

// True when both lead to WGS 84 by the same numbers.
bool HaveSameShift(const gcs::DatumDef& left, const gcs::DatumDef& right);

}  // namespace app::detail
