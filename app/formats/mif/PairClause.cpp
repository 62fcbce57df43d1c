#include "app/formats/mif/PairClause.h"

#include "app/base/Errors.h"
#include "app/base/TempFolder.h"
#include "app/formats/mif/ExportSystem.h"
#include "app/mif/Numbers.h"
#include "app/run/ExportRun.h"
#include "host/zeio/TrObjects.h"

#include <algorithm>
#include <fstream>
#include <iterator>

namespace app {
namespace {

bool IsGeographic(const gcs::CSDef& system) {
    const auto* earth = dynamic_cast<const gcs::GCSDef*>(&system);
    return earth != nullptr &&
           earth->GetProjection().GetMethod() == gcs::ProjectionMethod::LongitudeLatitude;
}

// The clause as the module writes it for a single point.
PairClause ClauseOf(const gcs::CSDef& system, const std::string& modulePath, Reporter& reporter) {
    const TempFolder folder;
    ExportSettings settings;
    settings.path = folder.File("clause.mif");
    static_cast<void>(folder.File("clause.mid"));
    settings.noStore = true;
    settings.modulePath = modulePath;
    ExportRun run(settings, reporter);
    run.Begin(ExportRun::kUnknownExtent);
    run.SendSystem(*ForExport(system));
    zeio::TrMarkerSet point;
    point.positions = {{0.0, 0.0, 0.0}};
    run.Send(point);
    static_cast<void>(run.Finish());
    std::ifstream file(settings.path);
    std::string text(std::istreambuf_iterator<char>(file), {});
    PairClause clause;
    clause.version = ReadInt(text.substr(text.find(' ')));
    const std::size_t begin = std::min(text.find("COORDSYS"), text.size());
    clause.text = text.substr(begin, text.find("\n  Bounds") - begin);
    constexpr std::string_view kEarth = "COORDSYS Earth  \n  ";
    if (clause.text.starts_with(kEarth)) {
        clause.text.replace(0, kEarth.size(), "CoordSys Earth ");
    } else {
        clause.text = "CoordSys NonEarth Units \"m\"";
    }
    clause.boundsPlace = IsGeographic(system) ? BoundsPlace::SameLine : BoundsPlace::LineBehind;
    return clause;
}

}  // namespace

PairClause ClauseFor(const LayerFacts& layer, const std::string& modulePath, Reporter& reporter) {
    if (layer.pair && !layer.pair->coordSysText.empty()) {
        return {layer.pair->coordSysText, BoundsPlace::Nowhere, layer.pair->version};
    }
    if (layer.system != nullptr) {
        return ClauseOf(*layer.system, modulePath, reporter);
    }
    if (layer.pair) {
        return {};
    }
    return {"CoordSys NonEarth Units \"m\"", BoundsPlace::LineBehind};
}

}  // namespace app
