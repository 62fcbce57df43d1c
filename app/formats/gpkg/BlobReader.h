// Geometries out of the blobs of a GeoPackage.
#pragma once

#include "app/feature/Feature.h"

#include <stdexcept>
#include <string_view>

namespace app {

// What is wrong with a blob, for the end of a sentence.
class BlobError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// Sets the feature's geometry and members. Takes ISO and extended WKB behind a GeoPackage header,
// in either byte order. Heights and measures are dropped; arcs become lines of some 64 edges a full
// turn; collections in collections give their members. An empty geometry, a line of less than two
// points and a collection of such become None. Throws BlobError.
void ReadBlob(std::string_view blob, Feature& feature);

}  // namespace app
