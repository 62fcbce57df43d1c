// What convert, draw and info make of a CoordSys clause, said with the findings on it.
#pragma once

#include "app/crs/CoordinateSystem.h"
#include "app/mif/Finding.h"
#include "app/mif/MifHeader.h"

namespace app {

// Passes findings on. One on the clause (ReadByCommand::WithClause) is cared for when the clause is
// understood without a warning, or a system is assumed in its place; else its advice goes on with
// what is taken instead.
class FindingsOfClause : public FindingSink {
public:
    // `assumed` is null where the clause counts. The sink must outlive this one.
    FindingsOfClause(FindingSink& sink, const MifHeader& header, const SystemPtr& assumed);

    void Add(const Finding& finding) override;

private:
    FindingSink& sink_;
    bool isUnderstood_ = true;
    std::string reading_;  // what is taken instead; sentences, or empty
};

// What coordinates in the system can be.
shr::Box2d PossibleCoordinates(const CoordinateSystem& system);

}  // namespace app
