#include "app/formats/mif/PairCopy.h"

#include "app/formats/mif/ExportSystem.h"
#include "app/formats/mif/MifSource.h"
#include "app/formats/mif/ModuleTarget.h"
#include "app/run/ExportRun.h"

#include <memory>

namespace app {
namespace {

shr::Box3d ExtentOf(const LayerFacts& layer) {
    if (!layer.knownExtent) {
        return ExportRun::kUnknownExtent;
    }
    const shr::Box2d& box = *layer.knownExtent;
    return {box.minX, box.minY, 0.0, box.maxX, box.maxY, 0.0};
}

// Sends an object of the import as a host would send it to an export.
void Forward(zeio::TrBase& object, const LayerFacts& layer, ExportRun& run) {
    const shr::CTypeInfo* type = object.GetTypeId();
    if (type == zeio::TrInitGraphicsImp::GetClassTypeId()) {
        run.Begin(ExtentOf(layer));
        if (const auto system = HostSystemForExport(layer)) {
            run.SendSystem(*system);
        }
    } else if (type == zeio::TrCRS::GetClassTypeId() ||
               (type == zeio::TrText::GetClassTypeId() && !run.RendersText()) ||
               (type == zeio::TrMarkerSet::GetClassTypeId() && !run.RendersMarkers())) {
        return;
    } else {
        run.Send(object);
    }
}

}  // namespace

bool CopyPair(const std::filesystem::path& input, const SourceOptions& sourceOptions,
              const std::filesystem::path& output, const TargetOptions& targetOptions,
              Reporter& reporter) {
    MifSource source(input, sourceOptions);
    const LayerFacts layer = source.Begin(0, reporter);
    ExportRun run(ExportSettingsOf(output, targetOptions), reporter);
    source.ReadObjects(reporter, [&](zeio::TrBase& object) { Forward(object, layer, run); });
    return run.Finish();
}

}  // namespace app
