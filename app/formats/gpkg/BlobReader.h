// Reads the geometry blobs of a GeoPackage.
#pragma once

#include "app/feature/Feature.h"

#include <stdexcept>
#include <string_view>

namespace app {

// Says what is wrong with a blob, as the end of a sentence: "the geometry ends too early".
class BlobError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// Reads a blob into the feature's geometry and members. A blob is a GeoPackage header, then ISO or
// extended WKB in either byte order. Heights and measures are dropped; arcs become lines with 64
// edges for a full turn; a collection in a collection gives its members. An empty geometry, a line
// of fewer than two points, and a collection of only such become None. Throws BlobError.
void ReadBlob(std::string_view blob, Feature& feature);

}  // namespace app
