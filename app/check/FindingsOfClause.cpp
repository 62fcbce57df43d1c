#include "app/check/FindingsOfClause.h"

#include <algorithm>
#include <string>

namespace app {

FindingsOfClause::FindingsOfClause(FindingSink& sink, const std::vector<ClauseFault>& faults)
    : sink_(sink), faults_(faults),
      hasSystem_(std::ranges::none_of(faults, &ClauseFault::isProblem)) {}

void FindingsOfClause::Add(const Finding& finding) {
    if (finding.code->readBy != ReadByCommand::WithClause) {
        sink_.Add(finding);
        return;
    }
    Finding ofClause = finding;
    ofClause.isCaredFor = hasSystem_;
    for (const ClauseFault& fault : faults_) {
        if (fault.code != finding.code->code) {
            continue;
        }
        ofClause.isCaredFor = false;
        if (fault.text != finding.message) {
            ofClause.advice += " For qolf itself, " + fault.text + ".";
        }
        if (fault.isProblem) {
            ofClause.advice += " qolf itself reads the coordinates with --assume-crs.";
        }
    }
    sink_.Add(ofClause);
}

shr::Box2d PossibleCoordinates(const CoordinateSystem& system) {
    constexpr double kMostMetres = 1e8;
    if (system.isGeographic) {
        return {-180.0, -90.0, 180.0, 90.0};
    }
    const double most = kMostMetres / system.metresPerUnit;
    return {-most, -most, most, most};
}

}  // namespace app
