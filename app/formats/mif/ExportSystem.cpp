#include "app/formats/mif/ExportSystem.h"

namespace app {

std::unique_ptr<gcs::CSDef> ForExport(const gcs::CSDef& system) {
    std::unique_ptr<gcs::CSDef> copy = system.Clone();
    auto* earth = dynamic_cast<gcs::GCSDef*>(copy.get());
    if (earth == nullptr) {
        return copy;
    }
    using enum gcs::ProjectionParameterID;
    gcs::ProjectionDef projection = earth->GetProjection();
    const gcs::ProjectionMethod method = projection.GetMethod();
    const bool isAzimuthal = method == gcs::ProjectionMethod::AzimuthalEquidistant ||
                             method == gcs::ProjectionMethod::LambertAzimuthalEqualArea;
    if (isAzimuthal && projection.HasParameter(StandardParallel1) &&
        !projection.HasParameter(LatitudeOfOrigin)) {
        projection.SetParameter(LatitudeOfOrigin, projection.GetParameter(StandardParallel1));
        earth->SetProjection(projection);
    }
    return copy;
}

}  // namespace app
