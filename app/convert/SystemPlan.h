// Which coordinate system a conversion's output has, and how its coordinates get there.
#pragma once

#include "app/base/Reporter.h"
#include "app/crs/Reprojection.h"
#include "app/formats/Formats.h"

#include <optional>
#include <string>

namespace app {

// The value of --crs that leaves coordinates as they are.
inline constexpr const char* kKeepSystem = "keep";

struct SystemPlan {
    SystemPtr output;                          // null: nothing is known of the coordinates
    std::optional<Reprojection> reprojection;  // absent: they stay as they are
};

// `source` is the input's system, null when it names none; `rule` that of the output's format,
// which decides when `crs`, the value of --crs, is empty. MIF gets a system as a clause, and WGS 84
// in place of a kept one that no clause expresses. A plane is never reprojected, and a system that
// can't be is kept with a warning. `subject` names the input.
//
// Throws Failure for a `crs` that is no system or that MIF can't express, for a source that no
// coordinates can be in, and for a `crs` when the source's system is not understood.
SystemPlan PlanSystems(const SystemPtr& source, SystemRule rule, const std::string& crs,
                       const std::string& subject, Reporter& reporter);

// Returns the system as a MIF file can have it. Warnings go to the reporter, with `prefix`. Throws
// Failure when MIF can't express it.
SystemPtr AsClause(const CoordinateSystem& system, const std::string& prefix, Reporter& reporter);

}  // namespace app
