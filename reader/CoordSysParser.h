// For the module, quirk for quirk: turns a COORDSYS clause into a projection and a datum.
//
// Numbers are kept as they stand there: angles in decimal degrees, offsets in the clause's unit.
#pragma once

#include "host/gcs/DatumDef.h"
#include "host/gcs/ProjectionDef.h"

#include <string>

namespace mif {

class CMifInputFile;

struct CoordSysClause {
    bool isValid = false;
    std::wstring message;  // what was objected to; not empty does not mean invalid
    bool hasEarthProjection = false;
    gcs::ProjectionDef projection;  // unknown when the clause is invalid or not of the Earth
    gcs::DatumDef datum;            // unknown also when its code or token is
};

// Reads the clause whose keyword is the current token, and the first token behind it, into
// `clause`, which has to be a new one. (It is no result: a host's definitions can be assigned, but
// need not be copyable otherwise.)
//
// An invalid clause leaves the input where the objection was. A clause that ends right after its
// datum takes the following line with it.
void ReadCoordSysClause(CMifInputFile& input, CoordSysClause& clause);

}  // namespace mif
