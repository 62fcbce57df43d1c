// Writes the geometry blobs of a GeoPackage: a header with the envelope, then WKB.
#pragma once

#include "app/formats/gpkg/GeometryType.h"
#include "host/shr/Geometry.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace app {

// Builds one geometry after another. The caller adds the parts in the order of WKB: Begin, then for
// a collecting type a Count and for each member Member and its parts. All numbers are
// little-endian, as the blob's header says.
class BlobWriter {
public:
    explicit BlobWriter(std::int32_t srsId) : srsId_(srsId) {}

    // Starts a geometry in place of the last one. The header of a point has no envelope: the point
    // itself says as much.
    void Begin(GeometryType type, const shr::Box2d& envelope);

    // Writes the head of a member of a collecting type.
    void Member(GeometryType type);

    // Writes how many members, rings or points follow.
    void Count(std::size_t count);
    void Point(const shr::Vec2d& point);

    // Writes the count of the points and the points.
    void Points(std::span<const shr::Vec2d> points);

    // Writes a closed ring: when the last point differs from the first, the first is repeated.
    void Ring(std::span<const shr::Vec2d> points);

    // The geometry so far; valid until the next call.
    std::string_view Blob() const { return blob_; }

private:
    void Bytes(const void* bytes, std::size_t size);

    std::string blob_;
    std::int32_t srsId_;
};

// Returns a blob of BlobWriter as its collecting type with one member: a point as a multi-point. A
// geometry of a collecting type is returned as it is.
std::string PromotedToMulti(std::string_view blob);

}  // namespace app
