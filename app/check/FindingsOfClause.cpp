#include "app/check/FindingsOfClause.h"

#include "app/crs/ReadClause.h"

namespace app {

FindingsOfClause::FindingsOfClause(FindingSink& sink, const MifHeader& header,
                                   const SystemPtr& assumed)
    : sink_(sink) {
    if (assumed != nullptr) {
        return;
    }
    const CoordinateSystem system = ReadClause(header.coordSysText);
    isUnderstood_ = system.IsOnEarth() && system.warnings.empty();
    if (!system.problem.empty()) {
        reading_ = " For qolf itself, " + system.problem + "; --assume-crs names another system.";
    }
    for (const std::string& warning : system.warnings) {
        reading_ += " For qolf itself, " + warning + ".";
    }
}

void FindingsOfClause::Add(const Finding& finding) {
    if (finding.code->readBy != ReadByCommand::WithClause) {
        sink_.Add(finding);
        return;
    }
    Finding ofClause = finding;
    ofClause.isCaredFor = isUnderstood_;
    ofClause.advice += reading_;
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
