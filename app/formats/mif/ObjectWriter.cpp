#include "app/formats/mif/ObjectWriter.h"

#include "app/formats/mif/StyleClauses.h"
#include "app/json/ShortestNumber.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <numbers>
#include <string_view>
#include <vector>

namespace app {
namespace {

constexpr int kVersionOfMultipoints = 650;

// Objects of more vertices than fit into 32 kB of eight bytes each came later than smaller ones.
// Kept as the module has them, so that both write the same version for the same objects.
constexpr std::size_t kMostVertices = 4084;
constexpr int kVersionOfLargeObjects = 450;
constexpr std::size_t kMostVerticesOfLargeObjects = 1'000'000;
constexpr std::uint64_t kMostLinesAndRegions = 32'000;
constexpr int kVersionOfMany = 800;

// Letters are about 0.7 times as wide as they are high.
constexpr double kLetterWidth = 0.7;

void AppendCount(std::string& out, std::size_t count) {
    std::array<char, 24> text{};
    out.append(text.data(), std::to_chars(text.data(), text.data() + text.size(), count).ptr);
}

void AppendNumber(std::string& out, double number) {
    std::array<char, kShortestNumberSize> text{};
    out.append(text.data(), WritePlain(text.data(), number));
}

bool IsBoxed(const Geometry& geometry) {
    return geometry.kind == GeometryKind::Rectangle || geometry.kind == GeometryKind::Ellipse ||
           geometry.kind == GeometryKind::Arc;
}

bool IsFinite(const shr::Box2d& box) {
    return std::isfinite(box.minX) && std::isfinite(box.minY) && std::isfinite(box.maxX) &&
           std::isfinite(box.maxY);
}

bool IsFinite(const Geometry& geometry) {
    if (IsBoxed(geometry)) {
        return IsFinite(geometry.box);
    }
    double check = 0.0;  // stays 0 while every coordinate is a finite number
    for (const shr::Vec2d& point : geometry.points) {
        check += point.x * 0.0 + point.y * 0.0;
    }
    return check == 0.0;
}

bool HasPlace(const Geometry& geometry) {
    return geometry.kind != GeometryKind::None && (IsBoxed(geometry) || !geometry.points.empty());
}

// The lines of a text, and the characters of its longest one.
shr::Vec2d SizeInLetters(std::string_view text) {
    std::size_t lines = 1;
    std::size_t length = 0;
    std::size_t longest = 0;
    for (const char c : text) {
        lines += c == '\n' ? 1 : 0;
        length = c == '\n' ? 0 : length + ((c & 0xC0) != 0x80 ? 1 : 0);
        longest = std::max(longest, length);
    }
    return {static_cast<double>(longest), static_cast<double>(lines)};
}

// The box of a text before it is turned about its upper left corner, from where its lower left
// corner is afterwards.
shr::Box2d BoxOfText(const Geometry& text) {
    const TextPlacement& placement = text.placement;
    if (placement.box) {
        return *placement.box;
    }
    const shr::Vec2d size = SizeInLetters(placement.text);
    const double letterHeight = placement.height > 0.0 ? placement.height : 1.0;
    const double height = size.y * letterHeight;
    const double angle = placement.angleDegrees * std::numbers::pi / 180.0;
    const double left = text.points.front().x - height * std::sin(angle);
    const double top = text.points.front().y + height * std::cos(angle);
    return {left, top - height, left + size.x * (kLetterWidth * letterHeight), top};
}

// Whether two members of a Collection can be one part of it.
bool CanJoin(const Geometry& left, const Geometry& right) {
    const bool hasParts = left.kind == GeometryKind::Points || left.kind == GeometryKind::Line ||
                          left.kind == GeometryKind::Region;
    return hasParts && left.kind == right.kind && left.style == right.style &&
           left.isSmooth == right.isSmooth && !left.center && !right.center;
}

void Join(Geometry& geometry, const Geometry& other) {
    if (geometry.kind == GeometryKind::Line && geometry.partSizes.empty()) {
        geometry.partSizes = {geometry.points.size()};
    }
    geometry.points.insert(geometry.points.end(), other.points.begin(), other.points.end());
    geometry.partSizes.insert(geometry.partSizes.end(), other.partSizes.begin(),
                              other.partSizes.end());
    if (geometry.kind == GeometryKind::Line && other.partSizes.empty()) {
        geometry.partSizes.push_back(other.points.size());
    }
}

std::vector<Geometry> Joined(std::span<const Geometry> members) {
    std::vector<Geometry> joined;
    for (const Geometry& member : members) {
        const auto at = std::ranges::find_if(
            joined, [&](const Geometry& other) { return CanJoin(other, member); });
        if (at == joined.end()) {
            joined.push_back(member);
        } else {
            Join(*at, member);
        }
    }
    return joined;
}

}  // namespace

bool ObjectWriter::IsChosen(GeometryKind kind) const {
    switch (kind) {
    case GeometryKind::Text:
        return choices_.hasTexts;
    case GeometryKind::Points:
        return choices_.hasPoints;
    default:
        return true;
    }
}

void ObjectWriter::Append(std::string& out, const Feature& feature) {
    const Geometry& geometry = feature.geometry;
    const std::size_t before = out.size();
    const bool isFinite =
        geometry.kind == GeometryKind::Collection
            ? std::ranges::all_of(feature.members, [](const Geometry& g) { return IsFinite(g); })
            : IsFinite(geometry);
    if (!isFinite) {
        ++unplacedCount_;
    } else if (geometry.kind == GeometryKind::Collection) {
        AppendCollection(out, feature.members);
    } else if (HasPlace(geometry)) {
        AppendGeometry(out, geometry, Place::Alone);
    }
    if (out.size() == before) {
        out += "None\n";
    }
}

int ObjectWriter::Version() const {
    return lineAndRegionCount_ > kMostLinesAndRegions ? std::max(version_, kVersionOfMany)
                                                      : version_;
}

void ObjectWriter::AppendGeometry(std::string& out, const Geometry& geometry, Place place) {
    switch (geometry.kind) {
    case GeometryKind::Points:
        AppendPoints(out, geometry, place);
        break;
    case GeometryKind::Line:
        AppendLine(out, geometry, place);
        break;
    case GeometryKind::Region:
        AppendRegion(out, geometry);
        break;
    case GeometryKind::Text:
        AppendText(out, geometry);
        break;
    case GeometryKind::Rectangle:
    case GeometryKind::Ellipse:
    case GeometryKind::Arc:
        AppendBoxed(out, geometry);
        break;
    case GeometryKind::None:
    case GeometryKind::Collection:
        break;
    }
}

void ObjectWriter::AppendCollection(std::string& out, std::span<const Geometry> members) {
    std::vector<Geometry> parts = Joined(members);
    std::erase_if(parts,
                  [this](const Geometry& part) { return !HasPlace(part) || !IsChosen(part.kind); });
    if (parts.empty()) {
        return;
    }
    Need(kVersionOfMultipoints);
    out += "Collection ";
    AppendCount(out, parts.size());
    out += '\n';
    for (const Geometry& part : parts) {
        AppendGeometry(out, part, Place::InCollection);
    }
}

void ObjectWriter::AppendPoints(std::string& out, const Geometry& geometry, Place place) {
    if (geometry.points.size() == 1 && !geometry.isMulti && place == Place::Alone) {
        out += "Point ";
        AppendPoint(out, geometry.points.front());
    } else {
        Need(kVersionOfMultipoints);
        out += "Multipoint ";
        AppendCount(out, geometry.points.size());
        out += '\n';
        AppendVertices(out, geometry.points);
    }
    if (geometry.style.symbol) {
        AppendSymbol(out, *geometry.style.symbol, charset_);
    }
}

void ObjectWriter::AppendLine(std::string& out, const Geometry& geometry, Place place) {
    if (geometry.isMulti || geometry.partSizes.size() > 1) {
        out += "Pline Multiple ";
        AppendSections(out, geometry);
    } else if (geometry.points.size() == 2 && !geometry.isPolyline && !geometry.isSmooth &&
               place == Place::Alone) {
        out += "Line ";
        AppendCorners(out, {geometry.points[0].x, geometry.points[0].y, geometry.points[1].x,
                            geometry.points[1].y});
        out += '\n';
    } else {
        SeeVertices(geometry.points.size());
        out += "Pline ";
        AppendCount(out, geometry.points.size());
        out += '\n';
        AppendVertices(out, geometry.points);
    }
    if (geometry.style.pen) {
        AppendPen(out, *geometry.style.pen);
        Need(VersionOf(*geometry.style.pen));
    }
    if (geometry.isSmooth) {
        out += "    Smooth\n";
    }
}

void ObjectWriter::AppendRegion(std::string& out, const Geometry& geometry) {
    if (choices_.areasToCurves) {
        Geometry line = geometry;
        line.kind = GeometryKind::Line;
        AppendLine(out, line, Place::Alone);
        return;
    }
    out += "Region ";
    AppendSections(out, geometry);
    if (geometry.style.pen) {
        AppendPen(out, *geometry.style.pen);
        Need(VersionOf(*geometry.style.pen));
    }
    if (geometry.style.brush) {
        AppendBrush(out, *geometry.style.brush);
    }
    if (geometry.center) {
        out += "    Center ";
        AppendNumber(out, geometry.center->x);
        out += ' ';
        AppendNumber(out, geometry.center->y);
        out += '\n';
    }
}

void ObjectWriter::AppendBoxed(std::string& out, const Geometry& geometry) {
    const bool isRounded = geometry.kind == GeometryKind::Rectangle &&
                           (geometry.radiusX != 0.0 || geometry.radiusY != 0.0);
    out += geometry.kind == GeometryKind::Arc       ? "Arc "
           : geometry.kind == GeometryKind::Ellipse ? "Ellipse "
           : isRounded                              ? "Roundrect "
                                                    : "Rect ";
    AppendCorners(out, geometry.box);
    if (isRounded) {
        out += ' ';
        AppendNumber(out, (geometry.radiusX + geometry.radiusY) / 2.0);
    }
    out += '\n';
    if (geometry.kind == GeometryKind::Arc) {
        out += "  ";
        AppendNumber(out, geometry.startDegrees);
        out += ' ';
        AppendNumber(out, geometry.endDegrees);
        out += '\n';
    }
    if (geometry.style.pen) {
        AppendPen(out, *geometry.style.pen);
        Need(VersionOf(*geometry.style.pen));
    }
    if (geometry.style.brush && geometry.kind != GeometryKind::Arc) {
        AppendBrush(out, *geometry.style.brush);
    }
}

void ObjectWriter::AppendText(std::string& out, const Geometry& geometry) {
    const TextPlacement& placement = geometry.placement;
    out += "Text ";
    AppendQuotedText(out, placement.text, charset_);
    out += "\n    ";
    AppendCorners(out, BoxOfText(geometry));
    out += '\n';
    if (geometry.style.font) {
        AppendFont(out, *geometry.style.font, charset_);
    }
    if (placement.lineSpacing != 0.0) {
        out += "    Spacing ";
        AppendNumber(out, placement.lineSpacing);
        out += '\n';
    }
    if (placement.justify != Justify::Left) {
        out +=
            placement.justify == Justify::Center ? "    Justify Center\n" : "    Justify Right\n";
    }
    if (placement.angleDegrees != 0.0) {
        out += "    Angle ";
        AppendNumber(out, placement.angleDegrees);
        out += '\n';
    }
    if (placement.labelLine) {
        out += placement.labelLine->hasArrow ? "    Label Line Arrow " : "    Label Line Simple ";
        AppendNumber(out, placement.labelLine->end.x);
        out += ' ';
        AppendNumber(out, placement.labelLine->end.y);
        out += '\n';
    }
}

// The number of sections or rings that have vertices, then each behind its own number.
void ObjectWriter::AppendSections(std::string& out, const Geometry& geometry) {
    const std::vector<std::span<const shr::Vec2d>> sections = SectionsOf(geometry);
    const auto isUsed = [](const auto& section) { return !section.empty(); };
    SeeVertices(geometry.points.size());
    AppendCount(out, static_cast<std::size_t>(std::ranges::count_if(sections, isUsed)));
    out += '\n';
    for (const std::span<const shr::Vec2d> section : sections) {
        if (isUsed(section)) {
            out += "  ";
            AppendCount(out, section.size());
            out += '\n';
            AppendVertices(out, section);
        }
    }
}

void ObjectWriter::AppendVertices(std::string& out, std::span<const shr::Vec2d> points) {
    for (const shr::Vec2d& point : points) {
        AppendPoint(out, point);
    }
}

void ObjectWriter::AppendPoint(std::string& out, const shr::Vec2d& point) {
    std::array<char, 2 * kShortestNumberSize + 2> text{};
    char* end = WritePlain(text.data(), point.x);
    *end++ = ' ';
    end = WritePlain(end, point.y);
    *end++ = '\n';
    out.append(text.data(), end);
    See(point);
}

void ObjectWriter::AppendCorners(std::string& out, const shr::Box2d& box) {
    AppendNumber(out, box.minX);
    for (const double number : {box.minY, box.maxX, box.maxY}) {
        out += ' ';
        AppendNumber(out, number);
    }
    See({box.minX, box.minY});
    See({box.maxX, box.maxY});
}

void ObjectWriter::See(const shr::Vec2d& point) {
    bounds_.minX = std::min(bounds_.minX, point.x);
    bounds_.minY = std::min(bounds_.minY, point.y);
    bounds_.maxX = std::max(bounds_.maxX, point.x);
    bounds_.maxY = std::max(bounds_.maxY, point.y);
}

// Of a polyline or region.
void ObjectWriter::SeeVertices(std::size_t count) {
    ++lineAndRegionCount_;
    if (count > kMostVertices) {
        Need(count > kMostVerticesOfLargeObjects ? kVersionOfMany : kVersionOfLargeObjects);
    }
}

void ObjectWriter::Need(int version) {
    version_ = std::max(version_, version);
}

}  // namespace app
