// What convert, draw and info make of a CoordSys clause, said with the findings on it.
#pragma once

#include "app/crs/CoordinateSystem.h"
#include "app/crs/ReadClause.h"
#include "app/mif/Finding.h"
#include "host/shr/Geometry.h"

#include <vector>

namespace app {

// Passes findings on. One on the clause (ReadByCommand::WithClause) matters for other programs only
// when nothing is wrong with its part of the clause for this program; else its advice goes on with
// what is taken instead. A clause without a system leaves none of its findings to others only.
class FindingsOfClause : public FindingSink {
public:
    // `faults` are those of the clause, empty where another system is assumed. Both must outlive
    // this object.
    FindingsOfClause(FindingSink& sink, const std::vector<ClauseFault>& faults);

    void Add(const Finding& finding) override;

private:
    FindingSink& sink_;
    const std::vector<ClauseFault>& faults_;
    bool hasSystem_;
};

// What coordinates in the system can be.
shr::Box2d PossibleCoordinates(const CoordinateSystem& system);

}  // namespace app
