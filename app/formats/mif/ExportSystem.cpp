#include "app/formats/mif/ExportSystem.h"

#include "app/base/Errors.h"
#include "app/crs/HostSystem.h"

namespace app {

std::unique_ptr<gcs::CSDef> HostSystemForExport(const LayerFacts& layer) {
    if (layer.system == nullptr || layer.system->kind == SystemKind::Unknown) {
        return nullptr;
    }
    const CoordinateSystem& system = *layer.system;
    if (system.kind == SystemKind::Plane) {
        return std::make_unique<gcs::PlaneDef>(1.0 / system.metresPerUnit);
    }
    std::unique_ptr<gcs::CSDef> definition = system.clause ? ToHost(*system.clause) : nullptr;
    if (definition == nullptr) {
        throw Failure("the module can't write the coordinate system \"" + system.name + "\"");
    }
    return definition;
}

}  // namespace app
