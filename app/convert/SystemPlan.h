// Which coordinate system a conversion's output has, and how its coordinates get there.
#pragma once

#include "app/base/Reporter.h"
#include "app/crs/Reprojection.h"
#include "app/formats/Formats.h"
#include "host/gcs/CSDef.h"

#include <memory>
#include <optional>
#include <string>

namespace app {

struct SystemPlan {
    std::unique_ptr<gcs::CSDef> output;        // null: nothing is known of the coordinates
    std::optional<Reprojection> reprojection;  // absent: they stay as they are
};

// `source` is the input's system, null for a plane; `rule` that of the output's format, which
// decides when `crs`, the value of --crs, is empty. A plane is never reprojected; a system that
// can't be is kept with a warning. `subject` names the input. Throws Failure for a `crs` that MIF
// can't express, UsageError for one that the format can't have.
SystemPlan PlanSystems(const gcs::CSDef* source, SystemRule rule, const std::string& crs,
                       const std::string& subject, Reporter& reporter);

// The system that an option names: "wgs84", or what GcsFromCrs takes. Warnings go to the reporter.
// Throws Failure, with the option's name, when MIF can't express it.
std::unique_ptr<gcs::CSDef> SystemOfDefinition(const std::string& option,
                                               const std::string& definition, Reporter& reporter);

}  // namespace app
