#include "app/crs/DescribeCoordSys.h"

#include <string_view>

namespace app {

namespace {

void AddLine(std::string& text, std::string_view label, std::string_view value) {
    if (!value.empty()) {
        text += label;
        text += ": ";
        text += value;
        text += '\n';
    }
}

}  // namespace

CoordSysDescription DescribeCoordSys(const CoordinateSystem* system,
                                     const CrsIdentifier& identify) {
    CoordSysDescription description;
    if (system == nullptr) {
        description.name = "None";
        return description;
    }
    description.name = system->name;
    description.notes = system->notes;
    description.notes.insert(description.notes.end(), system->warnings.begin(),
                             system->warnings.end());
    if (!system->problem.empty()) {
        description.notes.push_back(system->problem);
    }
    description.unit = UnitInWords(*system);
    if (!system->IsOnEarth()) {
        return description;
    }
    description.proj = system->definition;
    CrsIdentity identity = identify(*system);
    description.wkt2 = std::move(identity.wkt2);
    description.epsgCode = identity.epsgCode;
    description.epsgName = std::move(identity.epsgName);
    return description;
}

std::string TextOf(const CoordSysDescription& description) {
    std::string text;
    AddLine(text, "Coordinate system", description.name);
    AddLine(text, "Unit", description.unit);
    if (description.epsgCode != 0) {
        AddLine(text, "EPSG",
                std::to_string(description.epsgCode) + " (" + description.epsgName + ")");
    }
    AddLine(text, "PROJ", description.proj);
    if (!description.wkt2.empty()) {
        text += "WKT2:\n" + description.wkt2 + '\n';
    }
    for (const std::string& note : description.notes) {
        AddLine(text, "Note", note);
    }
    return text;
}

}  // namespace app
