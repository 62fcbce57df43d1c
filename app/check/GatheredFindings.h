// Findings of one pair, kept until all of it is read: one that hits every object is said once.
#pragma once

#include "app/check/PairCheck.h"
#include "app/mif/Finding.h"

#include <vector>

namespace app {

class GatheredFindings : public FindingSink {
public:
    void Add(const Finding& finding) override { findings_.push_back(finding); }

    // Passes them on in their order. Of those that hit all objects of some kinds, or all rows, only
    // the first goes on, with the number of all; the counts take the others for reported, too.
    void PassOn(FindingSink& sink, CheckedPair& pair) const;

private:
    std::vector<Finding> findings_;
};

}  // namespace app
