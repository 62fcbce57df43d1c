// What the user chooses before an export.
//
// The filter writes every text and every marker that it is handed. Whether a host sends them is the
// host's affair: it finds the user's choice in the capability bits of the answer to its
// TrInitGraphicsExp.
#pragma once

namespace mif {

struct ExportOptions {
    bool areasToCurves = false;  // rings become polylines instead of regions
    bool renderText = true;      // texts are wanted in the file: bit 0 of the answer
    bool renderMarkers = true;   // markers are wanted in the file: bit 1 of the answer

    bool operator==(const ExportOptions&) const = default;
};

}  // namespace mif
