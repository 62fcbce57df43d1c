#include "app/convert/SystemPlan.h"

#include "app/base/Errors.h"
#include "app/crs/GcsFromCrs.h"

#include <utility>

namespace app {

namespace {

constexpr const char* kKeep = "keep";

std::unique_ptr<gcs::CSDef> CopyOf(const gcs::CSDef* system) {
    return system == nullptr ? nullptr : system->Clone();
}

// Returns the system that the output should have; null when it keeps the input's own.
std::unique_ptr<gcs::CSDef> WantedSystem(SystemRule rule, const std::string& crs,
                                         Reporter& reporter) {
    if (crs == kKeep || (crs.empty() && rule == SystemRule::AsInput)) {
        return nullptr;
    }
    if (crs.empty()) {
        return std::make_unique<gcs::GCSDef>(Wgs84System());
    }
    std::unique_ptr<gcs::CSDef> system = SystemOfDefinition("--crs", crs, reporter);
    if (rule == SystemRule::Wgs84Only && !IsWgs84(system.get())) {
        throw UsageError("--crs " + crs +
                         ": GeoJSON is longitude and latitude of WGS 84; "
                         "use --crs keep, or another format");
    }
    return system;
}

}  // namespace

SystemPlan PlanSystems(const gcs::CSDef* source, SystemRule rule, const std::string& crs,
                       const std::string& subject, Reporter& reporter) {
    std::unique_ptr<gcs::CSDef> wanted = WantedSystem(rule, crs, reporter);
    SystemPlan plan;
    if (wanted == nullptr || source == nullptr) {
        plan.output = CopyOf(source);
        if (rule == SystemRule::Wgs84Only && !IsWgs84(source)) {
            reporter.Note(subject + ": the coordinates are written as they are, which is not the "
                                    "longitude and latitude that GeoJSON readers expect");
        } else if (wanted != nullptr) {
            reporter.Note(subject +
                          ": has no place on the Earth; the coordinates stay as they are");
        }
        return plan;
    }
    try {
        Reprojection reprojection(source, wanted.get());
        const std::string prefix = subject + ": ";
        for (const std::string& warning : reprojection.Warnings()) {
            reporter.Warning(prefix + warning);
        }
        if (reprojection.IsNeeded()) {
            plan.reprojection.emplace(std::move(reprojection));
        }
        plan.output = std::move(wanted);
    } catch (const Failure& failure) {
        reporter.Warning(subject + ": " + failure.what() + "; the coordinates stay as they are");
        plan.output = CopyOf(source);
    }
    return plan;
}

std::unique_ptr<gcs::CSDef> SystemOfDefinition(const std::string& option,
                                               const std::string& definition, Reporter& reporter) {
    if (definition == "wgs84" || definition == "WGS84" || definition == "EPSG:4326") {
        return std::make_unique<gcs::GCSDef>(Wgs84System());
    }
    CrsForExport found = GcsFromCrs(definition);
    const std::string prefix = option + " " + definition + ": ";
    if (!found) {
        throw Failure(prefix + found.problem);
    }
    for (const std::string& warning : found.warnings) {
        reporter.Warning(prefix + warning);
    }
    return std::move(found.system);
}

}  // namespace app
