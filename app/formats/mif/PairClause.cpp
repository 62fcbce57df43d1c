#include "app/formats/mif/PairClause.h"

#include "app/crs/CoordinateSystem.h"
#include "app/crs/ReadClause.h"
#include "app/crs/WriteClause.h"

#include <utility>

namespace app {
namespace {

// Behind longitude and latitude, and behind the six numbers of Albers, the module looks for more of
// the clause, and would take a line of Bounds for it.
BoundsPlace BoundsPlaceOf(const Clause& clause) {
    constexpr std::int64_t kAlbers = 9;
    return clause.IsGeographic() || clause.projection->code == kAlbers ? BoundsPlace::SameLine
                                                                       : BoundsPlace::LineBehind;
}

}  // namespace

PairClause ClauseFor(const LayerFacts& layer) {
    if (layer.pair && !layer.pair->coordSysText.empty()) {
        const std::string& text = layer.pair->coordSysText;
        return {text, BoundsPlace::Nowhere, VersionOfClause(text).value_or(layer.pair->version)};
    }
    if (layer.system != nullptr && layer.system->clause) {
        const Clause& clause = *layer.system->clause;
        ClauseText written = WriteClause(clause);
        return {std::move(written.text), BoundsPlaceOf(clause), written.fromVersion};
    }
    if (layer.pair && layer.system == nullptr) {
        return {};
    }
    const bool isPlane = layer.system != nullptr && layer.system->kind == SystemKind::Plane;
    ClauseText written = WritePlaneClause(isPlane ? layer.system->metresPerUnit : 1.0);
    return {std::move(written.text), BoundsPlace::LineBehind, written.fromVersion};
}

}  // namespace app
