// Questions to the EPSG register that PROJ's own functions answer slowly or not at all. They read
// the tables of PROJ's database; where those have another layout, nothing is found.
#pragma once

#include "app/crs/Clause.h"
#include "app/crs/detail/ProjHandles.h"
#include "app/sqlite/Sqlite.h"

#include <span>
#include <string>
#include <vector>

namespace app::detail {

struct RegisterEntry {
    int code = 0;
    std::string name;
    int geographicCode = 0;  // of the geographic system behind a projected one
    std::string geographicName;
};

// How a datum leads to WGS 84: metres, radians (coordinate-frame convention), and a plain factor.
struct Shift {
    double dx = 0.0;
    double dy = 0.0;
    double dz = 0.0;
    double rx = 0.0;
    double ry = 0.0;
    double rz = 0.0;
    double scale = 0.0;
};
Shift ShiftOf(const gcs::DatumParameters& datum);

// Whether two shifts move points of the area to the same place, to a centimetre.
struct Area;
bool AreSameOver(const Area& area, const Shift& left, const Shift& right);

class Register {
public:
    // Throws Failure when PROJ's database can't be read.
    explicit Register(PJ_CONTEXT* context);

    // The projected systems by one of these methods (EPSG codes) whose ellipsoid and longitude of
    // origin are the clause's, and for Transverse Mercator the false easting, too. Deprecated ones
    // are left out.
    std::vector<RegisterEntry> ProjectedLike(const Clause& clause, std::span<const int> methods);

    // The geographic systems whose shift to WGS 84 begins with the clause's three numbers.
    std::vector<RegisterEntry> GeographicLike(const Clause& clause);

    // The shifts from a geographic system to WGS 84.
    std::vector<Shift> ShiftsToWgs84(int geographicCode);

private:
    SqliteDatabase database_;
};

}  // namespace app::detail
