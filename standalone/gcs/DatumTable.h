// The known datums with their shifts to WGS 84, in the order of their indices.
//
// Shifts are metres, rotations arc-seconds, the scale parts per million, the prime meridian
// degrees east of Greenwich. The rotations follow the coordinate-frame convention (EPSG operation
// method 9607), which is the one of a MIF clause with datum 9999. From local coordinates X, Y, Z,
// with the rotations in radians and m = 1 + scale * 1e-6, to WGS 84:
//
//   X' = dx + m * (X + rz * Y - ry * Z)
//   Y' = dy + m * (Y - rz * X + rx * Z)
//   Z' = dz + m * (Z + ry * X - rx * Y)
//
// Each row's comment is the operation of the EPSG register that has the numbers, brought to these
// units and this convention where the register uses others; TR8350.2 is the report of the World
// Geodetic System 1984 on local datums. Where several operations exist the row has the one for the
// area that the token names, else the mean one: expect a few metres, and tens for the mean values
// over continents. The ellipsoid is the one that MIF means, also where the register differs.
//
// Least sure, since a token alone says little: DATUM_DATUM_HJORSEY (Ireland 1965 by its MIF code),
// DATUM_POTSDAM_PD83, DATUM_GDAL151GTDATUMCSVLINE_210 and _220.
#pragma once

#include "host/gcs/DatumDef.h"

#include <span>

namespace gcs {

struct EllipsoidRow;

// The trailing values of a row that are 0 are left out.
struct DatumShift {
    double dx = 0.0;
    double dy = 0.0;
    double dz = 0.0;
    double rx = 0.0;
    double ry = 0.0;
    double rz = 0.0;
    double scale = 0.0;
    double primeMeridian = 0.0;
};

struct DatumRow {
    const wchar_t* token;
    const wchar_t* name;
    DatumMethod method;
    const EllipsoidRow& ellipsoid;
    DatumShift shift;
};

std::span<const DatumRow> KnownDatums();

}  // namespace gcs
