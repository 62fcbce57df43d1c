// What the user chooses before an export.
#pragma once

namespace mif {

struct ExportOptions {
    bool areasToCurves = false;  // rings become polylines instead of regions
    bool renderText = true;      // the host is to send text as outlines too
    bool renderMarkers = true;   // the host is to send marker symbols as graphics too

    bool operator==(const ExportOptions&) const = default;
};

}  // namespace mif
