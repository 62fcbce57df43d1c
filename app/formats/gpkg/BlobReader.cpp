#include "app/formats/gpkg/BlobReader.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <numbers>
#include <utility>

namespace app {
namespace {

constexpr int kDeepestParts = 32;
constexpr double kArcStep = 2.0 * std::numbers::pi / 64.0;

// The base types of WKB, without the thousands and high bits that announce heights and measures.
enum class WkbType : std::uint32_t {
    Point = 1,
    LineString = 2,
    Polygon = 3,
    MultiPoint = 4,
    MultiLineString = 5,
    MultiPolygon = 6,
    GeometryCollection = 7,
    CircularString = 8,
    CompoundCurve = 9,
    CurvePolygon = 10,
    MultiCurve = 11,
    MultiSurface = 12,
    PolyhedralSurface = 15,
    Tin = 16,
    Triangle = 17,
};

// Takes numbers from the front of the bytes. Throws BlobError when they end too early.
class Cursor {
public:
    explicit Cursor(std::string_view bytes) : rest_(bytes) {}

    void SetLittleEndian(bool isLittle) {
        isSwapped_ = isLittle != (std::endian::native == std::endian::little);
    }

    std::uint8_t Byte() { return static_cast<std::uint8_t>(Take(1).front()); }

    std::uint32_t Whole() {
        std::uint32_t value = 0;
        std::memcpy(&value, Take(sizeof value).data(), sizeof value);
        return isSwapped_ ? __builtin_bswap32(value) : value;
    }

    double Real() {
        std::uint64_t bits = 0;
        std::memcpy(&bits, Take(sizeof bits).data(), sizeof bits);
        return std::bit_cast<double>(isSwapped_ ? __builtin_bswap64(bits) : bits);
    }

    // Takes a count of things of at least so many bytes each. Throws when the bytes can't hold as
    // many, before memory is reserved for them.
    std::size_t Count(std::size_t leastBytesEach) {
        const std::size_t count = Whole();
        if (count > rest_.size() / leastBytesEach) {
            throw BlobError("the geometry ends too early");
        }
        return count;
    }

    void Skip(std::size_t size) { static_cast<void>(Take(size)); }

private:
    std::string_view Take(std::size_t size) {
        if (size > rest_.size()) {
            throw BlobError("the geometry ends too early");
        }
        const std::string_view taken = rest_.substr(0, size);
        rest_.remove_prefix(size);
        return taken;
    }

    std::string_view rest_;
    bool isSwapped_ = false;
};

struct Head {
    WkbType type;
    std::size_t dimensions;  // doubles per point: 2 to 4
};

Head ReadHead(Cursor& cursor) {
    const std::uint8_t order = cursor.Byte();
    if (order > 1) {
        throw BlobError("the geometry has an unknown byte order");
    }
    cursor.SetLittleEndian(order == 1);
    constexpr std::uint32_t kHeightBit = 0x80000000U;
    constexpr std::uint32_t kMeasureBit = 0x40000000U;
    constexpr std::uint32_t kSystemBit = 0x20000000U;
    const std::uint32_t code = cursor.Whole();
    if ((code & kSystemBit) != 0) {
        cursor.Skip(4);
    }
    const std::uint32_t base = code & ~(kHeightBit | kMeasureBit | kSystemBit);
    const std::uint32_t thousands = base / 1000;
    if (thousands > 3) {
        throw BlobError("the geometry has the unknown type " + std::to_string(code));
    }
    const bool hasHeight = (code & kHeightBit) != 0 || thousands == 1 || thousands == 3;
    const bool hasMeasure = (code & kMeasureBit) != 0 || thousands >= 2;
    return {static_cast<WkbType>(base % 1000),
            std::size_t{2} + (hasHeight ? 1 : 0) + (hasMeasure ? 1 : 0)};
}

shr::Vec2d ReadPoint(Cursor& cursor, std::size_t dimensions) {
    const double x = cursor.Real();
    const double y = cursor.Real();
    cursor.Skip((dimensions - 2) * sizeof(double));
    return {x, y};
}

std::vector<shr::Vec2d> ReadPoints(Cursor& cursor, std::size_t dimensions) {
    std::vector<shr::Vec2d> points(cursor.Count(dimensions * sizeof(double)));
    for (shr::Vec2d& point : points) {
        point = ReadPoint(cursor, dimensions);
    }
    return points;
}

// Returns the points of the arc from a over b to c, without a; b and c when the three lie on a
// line, or on a circle that is too large for numbers. A full circle has c equal to a, and b on the
// other side.
void AppendArc(std::vector<shr::Vec2d>& points, const shr::Vec2d& a, const shr::Vec2d& b,
               const shr::Vec2d& c) {
    const double bx = b.x - a.x;
    const double by = b.y - a.y;
    const double cx = c.x - a.x;
    const double cy = c.y - a.y;
    const double twiceArea = bx * cy - by * cx;
    const bool isCircle = a == c && a != b;
    if (twiceArea == 0.0 && !isCircle) {
        points.push_back(b);
        points.push_back(c);
        return;
    }
    const double bb = bx * bx + by * by;
    const double cc = cx * cx + cy * cy;
    const shr::Vec2d centre = isCircle ? shr::Vec2d{a.x + bx / 2.0, a.y + by / 2.0}
                                       : shr::Vec2d{a.x + (cy * bb - by * cc) / (2.0 * twiceArea),
                                                    a.y + (bx * cc - cx * bb) / (2.0 * twiceArea)};
    const double radius = std::hypot(a.x - centre.x, a.y - centre.y);
    if (!std::isfinite(radius)) {
        points.push_back(b);
        points.push_back(c);
        return;
    }
    const double start = std::atan2(a.y - centre.y, a.x - centre.x);
    double sweep = std::atan2(c.y - centre.y, c.x - centre.x) - start;
    if (isCircle) {
        sweep = 2.0 * std::numbers::pi;
    } else if (twiceArea > 0.0 && sweep <= 0.0) {
        sweep += 2.0 * std::numbers::pi;
    } else if (twiceArea < 0.0 && sweep >= 0.0) {
        sweep -= 2.0 * std::numbers::pi;
    }
    const int edges = std::max(2, static_cast<int>(std::ceil(std::abs(sweep) / kArcStep)));
    for (int i = 1; i < edges; ++i) {
        const double angle = start + sweep * i / edges;
        points.push_back(
            {centre.x + radius * std::cos(angle), centre.y + radius * std::sin(angle)});
    }
    points.push_back(c);
}

std::vector<shr::Vec2d> Stroked(const std::vector<shr::Vec2d>& controls) {
    std::vector<shr::Vec2d> points;
    if (!controls.empty()) {
        points.push_back(controls.front());
    }
    for (std::size_t i = 0; i + 2 < controls.size(); i += 2) {
        AppendArc(points, controls[i], controls[i + 1], controls[i + 2]);
    }
    return points;
}

// Reads one geometry with its members.
class GeometryReader {
public:
    explicit GeometryReader(Cursor& cursor) : cursor_(cursor) {}

    void Read(Feature& feature) {
        const Head head = ReadHead(cursor_);
        if (head.type == WkbType::GeometryCollection) {
            AddMembers(feature.members, 1);
            feature.geometry.kind =
                feature.members.empty() ? GeometryKind::None : GeometryKind::Collection;
        } else {
            feature.geometry = ReadSimple(head, 0);
        }
    }

private:
    static constexpr std::size_t kLeastGeometryBytes = 9;  // byte order, type, count

    static void CheckDepth(int depth) {
        if (depth > kDeepestParts) {
            throw BlobError("the geometry is nested too deeply");
        }
    }

    void AddMembers(std::vector<Geometry>& members, int depth) {
        CheckDepth(depth);
        for (std::size_t left = cursor_.Count(kLeastGeometryBytes); left > 0; --left) {
            const Head head = ReadHead(cursor_);
            if (head.type == WkbType::GeometryCollection) {
                AddMembers(members, depth + 1);
            } else if (Geometry member = ReadSimple(head, depth);
                       member.kind != GeometryKind::None) {
                members.push_back(std::move(member));
            }
        }
    }

    // Anything but a collection; None when it is empty.
    Geometry ReadSimple(const Head& head, int depth) {
        Geometry geometry;
        Add(head, geometry, depth);
        if (geometry.points.empty()) {
            geometry.kind = GeometryKind::None;
        }
        return geometry;
    }

    void Add(const Head& head, Geometry& geometry, int depth) {
        CheckDepth(depth);
        switch (head.type) {
        case WkbType::Point:
            AddPoint(ReadPoint(cursor_, head.dimensions), geometry);
            break;
        case WkbType::LineString:
        case WkbType::CircularString:
        case WkbType::CompoundCurve:
            AddLine(ReadCurve(head, depth), geometry);
            break;
        case WkbType::Polygon:
        case WkbType::Triangle:
            for (std::size_t left = cursor_.Count(4); left > 0; --left) {
                AddRing(ReadPoints(cursor_, head.dimensions), geometry);
            }
            break;
        case WkbType::CurvePolygon:
            for (std::size_t left = cursor_.Count(kLeastGeometryBytes); left > 0; --left) {
                AddRing(ReadCurve(ReadHead(cursor_), depth + 1), geometry);
            }
            break;
        case WkbType::MultiPoint:
        case WkbType::MultiLineString:
        case WkbType::MultiPolygon:
        case WkbType::MultiCurve:
        case WkbType::MultiSurface:
        case WkbType::PolyhedralSurface:
        case WkbType::Tin:
            AddParts(geometry, depth + 1);
            geometry.isMulti = geometry.kind != GeometryKind::Region;
            break;
        default:
            throw BlobError("the geometry has the unknown type " +
                            std::to_string(static_cast<std::uint32_t>(head.type)));
        }
    }

    // All of one kind.
    void AddParts(Geometry& geometry, int depth) {
        for (std::size_t left = cursor_.Count(kLeastGeometryBytes); left > 0; --left) {
            const GeometryKind kind = geometry.kind;
            Add(ReadHead(cursor_), geometry, depth);
            if (kind != GeometryKind::None && geometry.kind != kind) {
                throw BlobError("the geometry has parts of several types");
            }
        }
    }

    std::vector<shr::Vec2d> ReadCurve(const Head& head, int depth) {
        CheckDepth(depth);
        switch (head.type) {
        case WkbType::LineString:
            return ReadPoints(cursor_, head.dimensions);
        case WkbType::CircularString:
            return Stroked(ReadPoints(cursor_, head.dimensions));
        case WkbType::CompoundCurve:
            break;
        default:
            throw BlobError("the geometry has a curve of an unknown type");
        }
        std::vector<shr::Vec2d> points;
        for (std::size_t left = cursor_.Count(kLeastGeometryBytes); left > 0; --left) {
            const std::vector<shr::Vec2d> next = ReadCurve(ReadHead(cursor_), depth + 1);
            // Each curve begins where the one before ended.
            const bool isJoined = !points.empty() && !next.empty() && points.back() == next.front();
            points.insert(points.end(), next.begin() + (isJoined ? 1 : 0), next.end());
        }
        return points;
    }

    static void AddPoint(const shr::Vec2d& point, Geometry& geometry) {
        geometry.kind = GeometryKind::Points;
        // WKB has no empty point; two NaN mean one.
        if (!std::isnan(point.x) || !std::isnan(point.y)) {
            geometry.points.push_back(point);
        }
    }

    static void AddLine(const std::vector<shr::Vec2d>& points, Geometry& geometry) {
        geometry.kind = GeometryKind::Line;
        if (points.size() >= 2) {
            AddPart(points, geometry);
        }
    }

    static void AddRing(const std::vector<shr::Vec2d>& points, Geometry& geometry) {
        geometry.kind = GeometryKind::Region;
        if (!points.empty()) {
            AddPart(points, geometry);
        }
    }

    static void AddPart(const std::vector<shr::Vec2d>& points, Geometry& geometry) {
        geometry.points.insert(geometry.points.end(), points.begin(), points.end());
        geometry.partSizes.push_back(points.size());
    }

    Cursor& cursor_;
};

// Moves past the header: magic, version, flags, system and envelope.
void SkipHeader(Cursor& cursor) {
    if (cursor.Byte() != 'G' || cursor.Byte() != 'P') {
        throw BlobError("the geometry is not a GeoPackage geometry");
    }
    cursor.Skip(1);
    const std::uint8_t flags = cursor.Byte();
    constexpr std::array<std::size_t, 5> kEnvelopeDoubles{0, 4, 6, 6, 8};
    constexpr std::uint8_t kExtended = 1 << 5;
    if ((flags & kExtended) != 0) {
        throw BlobError("the geometry is of a kind that the standard does not define");
    }
    const std::size_t envelope = (flags >> 1) & 7U;
    if (envelope >= kEnvelopeDoubles.size()) {
        throw BlobError("the geometry has an unknown envelope");
    }
    cursor.Skip(4 + kEnvelopeDoubles[envelope] * sizeof(double));
}

}  // namespace

void ReadBlob(std::string_view blob, Feature& feature) {
    feature.geometry = {};
    feature.members.clear();
    Cursor cursor(blob);
    SkipHeader(cursor);
    GeometryReader(cursor).Read(feature);
}

}  // namespace app
