// Geometries out of the blobs of a GeoPackage.
#pragma once

#include "app/feature/Feature.h"

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace app {

// What is wrong with a blob, for the end of a sentence.
class BlobError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// A geometry as features hold it: Points, Line or Region with points and partSizes as in Feature.
struct GeometryPiece {
    GeometryKind kind = GeometryKind::Points;
    std::vector<shr::Vec2d> points;
    std::vector<std::size_t> partSizes;
};

// Takes ISO and extended WKB behind a GeoPackage header, in either byte order. Heights and measures
// are dropped. All points of a multi-point are one piece, and so are all polygons of a
// multi-polygon; each line is one, and a collection gives the pieces of its members. An empty
// geometry has no piece, and a line of less than two points is none. Arcs become lines of some 64
// edges a full turn. Throws BlobError.
std::vector<GeometryPiece> PiecesOfBlob(std::string_view blob);

}  // namespace app
