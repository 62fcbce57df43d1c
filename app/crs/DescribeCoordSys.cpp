#include "app/crs/DescribeCoordSys.h"

#include "app/crs/GcsToProj.h"

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

CoordSysDescription DescribeCoordSys(const gcs::CSDef* system, const CrsIdentifier& identify) {
    CoordSysDescription description;
    if (system == nullptr) {
        description.name = "None";
        return description;
    }
    description.name = NameInWords(*system);
    description.unit = UnitInWords(*system);
    if (system->Type() != gcs::CSType::Earth) {
        return description;
    }
    const ProjDefinition definition = ToProj(*system);
    description.notes = definition.warnings;
    if (!definition) {
        description.notes.push_back(definition.problem);
        return description;
    }
    description.proj = definition.crs;
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
