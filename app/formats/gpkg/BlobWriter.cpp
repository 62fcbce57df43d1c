#include "app/formats/gpkg/BlobWriter.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstring>
#include <limits>

namespace app {
namespace {

static_assert(std::endian::native == std::endian::little, "bytes are copied as they are");
static_assert(sizeof(shr::Vec2d) == 2 * sizeof(double));

constexpr unsigned char kLittleEndian = 1;
constexpr unsigned char kEnvelopeXy = 1 << 1;
constexpr std::size_t kHeaderBytes = 8;
constexpr std::size_t kEnvelopeBytes = 32;

}  // namespace

void BlobWriter::Bytes(const void* bytes, std::size_t size) {
    blob_.append(static_cast<const char*>(bytes), size);
}

void BlobWriter::Begin(GeometryType type, const shr::Box2d& envelope) {
    const bool hasEnvelope = type != GeometryType::Point;
    blob_.assign("GP");
    blob_ += '\0';  // version 1
    blob_ += static_cast<char>(kLittleEndian | (hasEnvelope ? kEnvelopeXy : 0U));
    Bytes(&srsId_, sizeof srsId_);
    if (hasEnvelope) {
        const double bounds[] = {envelope.minX, envelope.maxX, envelope.minY, envelope.maxY};
        Bytes(bounds, sizeof bounds);
    }
    Member(type);
}

void BlobWriter::Member(GeometryType type) {
    blob_ += static_cast<char>(kLittleEndian);
    Bytes(&type, sizeof type);
}

void BlobWriter::Count(std::size_t count) {
    const auto number = static_cast<std::uint32_t>(count);
    Bytes(&number, sizeof number);
}

void BlobWriter::Point(const shr::Vec2d& point) {
    Bytes(&point, sizeof point);
}

void BlobWriter::Points(std::span<const shr::Vec2d> points) {
    Count(points.size());
    Bytes(points.data(), points.size_bytes());
}

void BlobWriter::Ring(std::span<const shr::Vec2d> points) {
    const bool isOpen = !points.empty() && points.front() != points.back();
    Count(points.size() + (isOpen ? 1 : 0));
    Bytes(points.data(), points.size_bytes());
    if (isOpen) {
        Point(points.front());
    }
}

std::string PromotedToMulti(std::string_view blob) {
    const bool hasEnvelope = (static_cast<unsigned char>(blob[3]) & kEnvelopeXy) != 0;
    const std::size_t headerSize = kHeaderBytes + (hasEnvelope ? kEnvelopeBytes : 0);
    auto type = GeometryType::Geometry;
    std::memcpy(&type, blob.data() + headerSize + 1, sizeof type);
    const GeometryType multi = MultiOf(type);
    if (multi == type) {
        return std::string(blob);
    }
    std::string promoted(blob.substr(0, headerSize));
    if (type == GeometryType::Point) {
        // The header of a multi-point has an envelope, that of a point does not.
        promoted[3] = static_cast<char>(static_cast<unsigned char>(promoted[3]) | kEnvelopeXy);
        double x = 0.0;
        double y = 0.0;
        std::memcpy(&x, blob.data() + headerSize + 5, sizeof x);
        std::memcpy(&y, blob.data() + headerSize + 13, sizeof y);
        const double bounds[] = {x, x, y, y};
        promoted.append(reinterpret_cast<const char*>(bounds), sizeof bounds);
    }
    const std::uint32_t one = 1;
    promoted += static_cast<char>(kLittleEndian);
    promoted.append(reinterpret_cast<const char*>(&multi), sizeof multi);
    promoted.append(reinterpret_cast<const char*>(&one), sizeof one);
    return promoted.append(blob.substr(headerSize));
}

}  // namespace app
