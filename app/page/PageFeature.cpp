#include "app/page/PageFeature.h"

#include "app/base/Angles.h"
#include "app/feature/LabelText.h"
#include "app/feature/RingNesting.h"
#include "app/json/JsonObjectWriter.h"
#include "app/map/MapExtent.h"
#include "app/page/PageText.h"
#include "app/page/VertexWeights.h"

#include <algorithm>
#include <cmath>
#include <span>

namespace app {

namespace {

constexpr double kEarthRadius = 6378137.0;  // metres, of the web's Mercator projection
constexpr double kLargestLatitude = 85.06;

using Points = std::vector<shr::Vec2d>;

Points DrawableOnes(std::span<const shr::Vec2d> points) {
    Points drawable;
    std::ranges::copy_if(points, std::back_inserter(drawable),
                         [](const shr::Vec2d& point) { return IsDrawable(point.x, point.y); });
    return drawable;
}

// An edge over more than half of the Earth is one across the end of the longitudes; one all around
// it is the border of the world itself.
void Unwrap(Points& points) {
    double shift = 0.0;
    for (std::size_t i = 1; i < points.size(); ++i) {
        const double step = points[i].x + shift - points[i - 1].x;
        if (std::abs(step) > kTurn / 2.0 && std::abs(step) < kTurn - 1.0) {
            shift += step > 0.0 ? -kTurn : kTurn;
        }
        points[i].x += shift;
    }
}

std::vector<float> WeightsOf(std::span<const shr::Vec2d> points, PagePlane plane, bool isRing) {
    Points placed;
    placed.reserve(points.size());
    for (const shr::Vec2d& point : points) {
        placed.push_back(OnPlane(point, plane));
    }
    return isRing ? WeightsOfRing(placed) : WeightsOfLine(placed);
}

void AddPart(PageMember& member, std::span<const shr::Vec2d> points, PagePlane plane, bool isHole) {
    const bool isRing = member.kind == GeometryKind::Region;
    const std::vector<float> weights = WeightsOf(points, plane, isRing);
    member.parts.push_back({static_cast<std::uint32_t>(points.size()), isHole});
    member.points.insert(member.points.end(), points.begin(), points.end());
    member.weights.insert(member.weights.end(), weights.begin(), weights.end());
}

void AddSections(PageMember& member, const Geometry& line, PagePlane plane, bool unwraps) {
    for (const std::span<const shr::Vec2d> section : SectionsOf(line)) {
        Points points = DrawableOnes(section);
        if (points.empty()) {
            continue;
        }
        if (points.size() == 1) {
            points.push_back(points.front());  // a dot
        }
        if (unwraps) {
            Unwrap(points);
        }
        AddPart(member, points, plane, /*isHole=*/false);
    }
}

void AddRings(PageMember& member, const Geometry& region, PagePlane plane, bool unwraps) {
    Points all;
    std::vector<std::size_t> sizes;
    std::span<const shr::Vec2d> rest(region.points);
    std::vector<std::size_t> partSizes = region.partSizes;
    if (partSizes.empty()) {
        partSizes.push_back(rest.size());
    }
    for (const std::size_t size : partSizes) {
        Points ring = DrawableOnes(rest.first(size));
        rest = rest.subspan(size);
        if (ring.size() > 1 && ring.front() == ring.back()) {
            ring.pop_back();
        }
        if (unwraps) {
            Unwrap(ring);
        }
        sizes.push_back(ring.size());
        all.insert(all.end(), ring.begin(), ring.end());
    }
    for (const NestedPolygon& polygon : NestRings(RingsOf(all, sizes))) {
        AddPart(member, polygon.outer, plane, /*isHole=*/false);
        for (const Ring hole : polygon.holes) {
            AddPart(member, hole, plane, /*isHole=*/true);
        }
    }
}

const char* JustifyName(Justify justify) {
    return justify == Justify::Center ? "center" : justify == Justify::Right ? "right" : "left";
}

void AddText(PageMember& member, const Geometry& text) {
    if (text.points.size() < 3 || DrawableOnes(text.points).size() != text.points.size()) {
        return;
    }
    const TextPlacement& placement = text.placement;
    member.points = text.points;
    std::string json;
    JsonObjectWriter object(json);
    std::string& lines = object.Member("lines");
    for (const std::string& line : LinesOf(placement.text)) {
        lines += lines.back() == ':' ? '[' : ',';
        AppendPageString(lines, line);
    }
    lines += ']';
    object.Text("justify", JustifyName(placement.justify));
    object.Boolean("box", placement.box.has_value());
    object.Boolean("arrow", placement.labelLine && placement.labelLine->hasArrow);
    AppendRounded(object.Member("spacing"), placement.lineSpacing, 2);
    member.text = json.substr(1);
}

void AppendPosition(std::string& out, const shr::Vec2d& point, int decimals) {
    out += '[';
    AppendRounded(out, point.x, decimals);
    out += ',';
    AppendRounded(out, point.y, decimals);
    out += ']';
}

// The positions of a list, those that are heavy enough.
void AppendPositions(std::string& out, std::span<const shr::Vec2d> points,
                     std::span<const float> weights, float tolerance, int decimals) {
    char before = '[';
    for (std::size_t i = 0; i < points.size(); ++i) {
        if (weights.empty() || weights[i] >= tolerance) {
            out += before;
            AppendPosition(out, points[i], decimals);
            before = ',';
        }
    }
    out += ']';
}

class GeometryWriter {
public:
    GeometryWriter(std::string& out, float tolerance, int decimals)
        : out_(out), tolerance_(tolerance), decimals_(decimals) {}

    void Write(const PageMember& member) {
        if (member.kind == GeometryKind::Line) {
            WriteLine(member);
        } else if (member.kind == GeometryKind::Region) {
            WriteRegion(member);
        } else if (member.kind == GeometryKind::Points &&
                   (member.isMulti || member.points.size() > 1)) {
            out_ += R"({"type":"MultiPoint","coordinates":)";
            AppendPositions(out_, member.points, {}, 0.0F, decimals_);
        } else {
            out_ += R"({"type":"Point","coordinates":)";
            AppendPosition(out_, member.points.front(), decimals_);
        }
        out_ += '}';
    }

private:
    void WriteLine(const PageMember& member) {
        const bool isMulti = member.parts.size() > 1;
        out_ += isMulti ? R"({"type":"MultiLineString","coordinates":[)"
                        : R"({"type":"LineString","coordinates":)";
        WriteParts(member, [this](std::size_t number, const PageMember::Part&) {
            out_ += number > 0 ? "," : "";
        });
        out_ += isMulti ? "]" : "";
    }

    void WriteRegion(const PageMember& member) {
        const bool isMulti = std::ranges::count(member.parts, false, &PageMember::Part::isHole) > 1;
        out_ += isMulti ? R"({"type":"MultiPolygon","coordinates":[[)"
                        : R"({"type":"Polygon","coordinates":[)";
        WriteParts(member, [this](std::size_t number, const PageMember::Part& part) {
            out_ += number == 0 ? "" : part.isHole ? "," : "],[";
        });
        out_ += isMulti ? "]]" : "]";
    }

    template <typename Separate> void WriteParts(const PageMember& member, Separate separate) {
        std::span<const shr::Vec2d> points(member.points);
        std::span<const float> weights(member.weights);
        for (std::size_t i = 0; i < member.parts.size(); ++i) {
            const PageMember::Part& part = member.parts[i];
            separate(i, part);
            const std::span<const shr::Vec2d> own = points.first(part.size);
            const std::span<const float> ownWeights = weights.first(part.size);
            AppendPositions(out_, own, ownWeights, tolerance_, decimals_);
            if (member.kind == GeometryKind::Region) {
                Close(own, ownWeights);
            }
            points = points.subspan(part.size);
            weights = weights.subspan(part.size);
        }
    }

    // GeoJSON's rings end with the position that they begin with.
    void Close(std::span<const shr::Vec2d> points, std::span<const float> weights) {
        const auto first =
            std::ranges::find_if(weights, [this](float weight) { return weight >= tolerance_; });
        out_.back() = ',';
        AppendPosition(out_, points[static_cast<std::size_t>(first - weights.begin())], decimals_);
        out_ += ']';
    }

    std::string& out_;
    float tolerance_;
    int decimals_;
};

// {"lines":[...],...,"frame":[[x,y],[x,y],[x,y]]}: the corners of the text and the end of its line.
void AppendText(std::string& out, const PageMember& member, int decimals) {
    if (member.kind != GeometryKind::Text) {
        out += "null";
        return;
    }
    out += '{' + member.text + R"(,"frame":)";
    AppendPositions(out, member.points, {}, 0.0F, decimals);
    out += '}';
}

// A value of each member: in a list when there are several.
template <typename Append>
void AppendEach(std::string& out, const PageFeature& feature, Append append) {
    const bool isList = feature.members.size() > 1;
    out += isList ? "[" : "";
    for (const PageMember& member : feature.members) {
        out += &member == &feature.members.front() ? "" : ",";
        append(member);
    }
    out += isList ? "]" : "";
}

}  // namespace

PageMember MemberOf(const Geometry& geometry, PagePlane plane, bool unwraps) {
    PageMember member;
    member.kind = geometry.kind;
    member.isMulti = geometry.isMulti;
    switch (geometry.kind) {
    case GeometryKind::Points:
        member.points = DrawableOnes(geometry.points);
        break;
    case GeometryKind::Line:
        AddSections(member, geometry, plane, unwraps);
        break;
    case GeometryKind::Region:
        AddRings(member, geometry, plane, unwraps);
        break;
    case GeometryKind::Text:
        AddText(member, geometry);
        break;
    default:
        break;
    }
    return member;
}

shr::Vec2d OnPlane(const shr::Vec2d& point, PagePlane plane) {
    if (plane == PagePlane::Units) {
        return point;
    }
    const double latitude = std::clamp(point.y, -kLargestLatitude, kLargestLatitude) * kDegree;
    return {point.x * kDegree * kEarthRadius, std::asinh(std::tan(latitude)) * kEarthRadius};
}

void AppendFeature(std::string& out, const PageFeature& feature, float tolerance, int decimals) {
    JsonObjectWriter object(out);
    object.Text("type", std::string_view("Feature"));
    object.Integer("id", static_cast<std::int64_t>(feature.number));
    object.Member("properties") += feature.properties;
    object.Member("geometry");
    const bool isCollection = feature.members.size() > 1;
    out += isCollection ? R"({"type":"GeometryCollection","geometries":)" : "";
    GeometryWriter geometry(out, tolerance, decimals);
    AppendEach(out, feature, [&geometry](const PageMember& member) { geometry.Write(member); });
    out += isCollection ? "}" : "";
    object.Member("style");
    AppendEach(out, feature,
               [&out](const PageMember& member) { out += std::to_string(member.style); });
    if (std::ranges::count(feature.members, GeometryKind::Text, &PageMember::kind) > 0) {
        object.Member("text");
        AppendEach(out, feature,
                   [&](const PageMember& member) { AppendText(out, member, decimals); });
    }
    object.Close();
}

}  // namespace app
