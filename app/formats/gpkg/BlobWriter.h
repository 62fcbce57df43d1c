// Geometries as the blobs of a GeoPackage: a header with the envelope, then WKB.
#pragma once

#include "app/formats/gpkg/GeometryType.h"
#include "host/shr/Geometry.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace app {

// Puts one geometry after the other together, from its parts in the order of WKB. All numbers are
// little-endian, and the bytes say so.
class BlobWriter {
public:
    explicit BlobWriter(std::int32_t srsId) : srsId_(srsId) {}

    // Starts a geometry in place of the last. A point has no envelope in its header, being one
    // itself.
    void Begin(GeometryType type, const shr::Box2d& envelope);

    // The head of a member of a collecting type.
    void Member(GeometryType type);

    void Count(std::size_t count);
    void Point(const shr::Vec2d& point);

    // A count and its points.
    void Points(std::span<const shr::Vec2d> points);

    // Points that end where they begin: the first is written again when the last is another.
    void Ring(std::span<const shr::Vec2d> points);

    // The geometry so far; valid until the next call.
    std::string_view Blob() const { return blob_; }

private:
    void Bytes(const void* bytes, std::size_t size);

    std::string blob_;
    std::int32_t srsId_;
};

// A single geometry of BlobWriter as the collecting type with one member; a collecting one as it
// is.
std::string PromotedToMulti(std::string_view blob);

}  // namespace app
