// Findings of one pair, kept until all of it is read: a finding of every object is reported once.
#pragma once

#include "app/check/PairCheck.h"
#include "app/mif/Finding.h"

#include <vector>

namespace app {

class GatheredFindings : public FindingSink {
public:
    void Add(const Finding& finding) override { findings_.push_back(finding); }

    // Passes them on in their order. When a finding holds for all objects of some kinds, or for all
    // rows, only the first one is passed on, with the number of all (Finding::count); in the
    // counts of `pair` the others are reported, too.
    void PassOn(FindingSink& sink, CheckedPair& pair) const;

private:
    std::vector<Finding> findings_;
};

}  // namespace app
