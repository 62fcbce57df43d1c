// Systems as short as a test needs them.
#pragma once

#include "app/crs/ClauseForExport.h"
#include "app/crs/Definitions.h"
#include "app/crs/HostSystem.h"
#include "app/crs/ReadClause.h"
#include "app/crs/Transformation.h"

#include <memory>
#include <stdexcept>
#include <string>
#include <utility>

// The clause of a named system. Throws when MIF has none.
inline app::Clause ClauseFor(const std::string& definition) {
    const app::ClauseForExport found = app::ClauseOf(app::SystemOfDefinition(definition));
    if (!found) {
        throw std::runtime_error(found.problem);
    }
    return *found.clause;
}

// The system that the module hands over for a named one. Throws when MIF has no such system.
inline std::unique_ptr<gcs::GCSDef> HostSystemOf(const std::string& definition) {
    return app::ToHost(ClauseFor(definition));
}

struct Place {
    double x = 0.0;  // or longitude
    double y = 0.0;  // or latitude
};

inline Place Moved(const app::CoordinateSystem& from, const app::CoordinateSystem& to,
                   Place place) {
    const app::Transformation way(from, to);
    if (!way.Problem().empty()) {
        throw std::runtime_error(way.Problem());
    }
    static_cast<void>(way.Apply({&place.x, 1}, {&place.y, 1}));
    return place;
}

inline Place OnWgs84(const app::CoordinateSystem& system, Place place) {
    return Moved(system, app::Wgs84System(), place);
}

inline Place FromWgs84(const app::CoordinateSystem& system, Place place) {
    return Moved(app::Wgs84System(), system, place);
}
