#include "app/formats/geojson/GeoJsonWriter.h"

#include "app/base/Counted.h"
#include "app/base/Paths.h"
#include "app/feature/RingNesting.h"
#include "app/feature/StyleLooks.h"
#include "app/feature/ValueText.h"
#include "app/formats/geojson/SimpleStyle.h"
#include "app/json/JsonText.h"
#include "app/json/ShortestNumber.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

namespace app {

namespace {

constexpr std::array<std::string_view, 5> kTextProperties = {"text", "angle", "height", "font",
                                                             "justify"};

bool IsFinite(const shr::Vec2d& point) {
    return std::isfinite(point.x) && std::isfinite(point.y);
}

// Appends the point as [x,y].
void AppendPosition(std::string& text, const shr::Vec2d& point) {
    char buffer[2 * kShortestNumberSize + 3];
    char* end = buffer;
    *end++ = '[';
    end = WritePlain(end, point.x);
    *end++ = ',';
    end = WritePlain(end, point.y);
    *end++ = ']';
    text.append(buffer, end);
}

void AppendPositions(std::string& text, std::span<const shr::Vec2d> points) {
    text += '[';
    for (const shr::Vec2d& point : points) {
        AppendPosition(text, point);
        text += ',';
    }
    text.back() = ']';
}

double TwiceSignedArea(std::span<const shr::Vec2d> ring) {
    // Differences to the first vertex keep the digits of rings far from the origin.
    const shr::Vec2d origin = ring.front();
    double area = 0.0;
    for (std::size_t i = 0; i + 1 < ring.size(); ++i) {
        area += (ring[i].x - origin.x) * (ring[i + 1].y - origin.y) -
                (ring[i + 1].x - origin.x) * (ring[i].y - origin.y);
    }
    return area;
}

// Appends a ring in the wanted direction, with its first position repeated at the end.
void AppendRing(std::string& text, std::span<const shr::Vec2d> ring, bool isCounterClockwise) {
    if (ring.size() > 1 && ring.front() == ring.back()) {
        ring = ring.first(ring.size() - 1);
    }
    const bool isReversed = (TwiceSignedArea(ring) > 0.0) != isCounterClockwise;
    text += '[';
    AppendPosition(text, ring.front());
    for (std::size_t i = 1; i < ring.size(); ++i) {
        text += ',';
        AppendPosition(text, isReversed ? ring[ring.size() - i] : ring[i]);
    }
    text += ',';
    AppendPosition(text, ring.front());
    text += ']';
}

void AppendPolygon(std::string& text, const NestedPolygon& polygon) {
    text += '[';
    AppendRing(text, polygon.outer, /*isCounterClockwise=*/true);
    for (const Ring hole : polygon.holes) {
        text += ',';
        AppendRing(text, hole, /*isCounterClockwise=*/false);
    }
    text += ']';
}

std::string HexColor(std::uint32_t color) {
    constexpr std::string_view kDigits = "0123456789abcdef";
    std::string text = "#";
    for (unsigned shift = 24; shift > 0; shift -= 4) {
        text += kDigits[(color >> (shift - 4)) % 16];
    }
    return text;
}

const char* JustifyName(Justify justify) {
    switch (justify) {
    case Justify::Center:
        return "center";
    case Justify::Right:
        return "right";
    case Justify::Left:
        break;
    }
    return "left";
}

// As wide as pictures draw it, whether it is seen or not; without the noise of a division.
double StrokeWidth(Pen pen) {
    constexpr int kSolid = 2;
    pen.pattern = kSolid;
    return std::round(PixelsOf(pen) * 1000.0) / 1000.0;
}

}  // namespace

GeoJsonWriter::GeoJsonWriter(const std::filesystem::path& path, IfExists ifExists, GeoJsonForm form,
                             bool withStyles, Reporter& reporter)
    : reporter_(reporter), subject_(path == "-" ? "standard output" : PathText(path)),
      output_(path, ifExists), form_(form), withStyles_(withStyles) {}

void GeoJsonWriter::BeginLayer(const LayerFacts& layer) {
    keys_.clear();
    isTextKey_.clear();
    for (const LayerColumn& column : layer.columns) {
        std::string key;
        AppendJsonString(key, column.name);
        keys_.push_back(key + ':');
        isTextKey_.push_back(std::find(kTextProperties.begin(), kTextProperties.end(),
                                       column.name) != kTextProperties.end());
    }
    if (isBegun_) {
        return;
    }
    isBegun_ = true;
    if (form_ == GeoJsonForm::Collection) {
        std::string head = "{\"type\":\"FeatureCollection\",\"name\":";
        AppendJsonString(head, layer.name);
        output_.Write(head + ",\"features\":[\n");
    }
}

void GeoJsonWriter::Write(Feature& feature) {
    text_.clear();
    if (form_ == GeoJsonForm::Sequence) {
        text_ += '\x1E';
    } else if (form_ == GeoJsonForm::Collection && count_ > 0) {
        text_ += ",\n";
    }
    text_ += "{\"type\":\"Feature\",\"properties\":{";
    WriteProperties(feature);
    text_ += "},\"geometry\":";
    if (feature.geometry.kind == GeometryKind::Collection) {
        WriteCollection(feature.members);
    } else if (!WriteGeometry(feature.geometry)) {
        text_ += "null";
        withoutGeometry_ += feature.geometry.kind == GeometryKind::None ? 0 : 1;
    }
    text_ += form_ == GeoJsonForm::Collection ? "}" : "}\n";
    output_.Write(text_);
    ++count_;
}

bool GeoJsonWriter::Finish() {
    if (withoutGeometry_ > 0) {
        reporter_.Warning(subject_ + ": " +
                          Counted(withoutGeometry_, "object has", "objects have") +
                          " coordinates that give no geometry; written with a null geometry");
    }
    if (form_ == GeoJsonForm::Collection) {
        const char* const end = count_ > 0 ? "\n]}\n" : "]}\n";
        output_.Write(isBegun_ ? end : "{\"type\":\"FeatureCollection\",\"features\":[]}\n");
    } else {
        output_.Write("");
    }
    output_.Finish();
    return true;
}

void GeoJsonWriter::Key(const std::string& name) {
    text_ += isFirstProperty_ ? "\"" : ",\"";
    isFirstProperty_ = false;
    text_ += name;
    text_ += "\":";
}

void GeoJsonWriter::WriteProperties(const Feature& feature) {
    isFirstProperty_ = true;
    const bool isText = feature.geometry.kind == GeometryKind::Text;
    const std::size_t count = std::min(keys_.size(), feature.values.size());
    for (std::size_t i = 0; i < count; ++i) {
        if (isText && isTextKey_[i]) {
            continue;  // the text's own property takes the place
        }
        if (!isFirstProperty_) {
            text_ += ',';
        }
        isFirstProperty_ = false;
        text_ += keys_[i];
        AppendJsonValue(text_, feature.values[i]);
    }
    if (isText) {
        WriteTextProperties(feature.geometry);
    }
    if (withStyles_) {
        WriteStyle(feature.geometry);
    }
}

void GeoJsonWriter::WriteTextProperties(const Geometry& geometry) {
    const TextPlacement& placement = geometry.placement;
    Key("text");
    AppendJsonString(text_, placement.text);
    Key("angle");
    AppendPlainJsonNumber(text_, placement.angleDegrees);
    Key("height");
    AppendPlainJsonNumber(text_, placement.height);
    Key("font");
    AppendJsonString(text_, geometry.style.font ? geometry.style.font->name : "");
    Key("justify");
    text_ += '"';
    text_ += JustifyName(placement.justify);
    text_ += '"';
}

void GeoJsonWriter::WriteStyle(const Geometry& geometry) {
    const Style& style = geometry.style;
    switch (geometry.kind) {
    case GeometryKind::Points:
        WriteMarker(style);
        return;
    case GeometryKind::Text:
        if (style.pen && PixelsOf(*style.pen) > 0.0) {
            WriteStroke(*style.pen);
        }
        if (style.font) {
            Key("text-color");
            AppendJsonString(text_, HexColor(style.font->fore));
        }
        return;
    default:
        if (style.pen) {
            WriteStroke(*style.pen);
        }
        if (style.brush && geometry.kind != GeometryKind::Line) {
            Key("fill");
            AppendJsonString(text_, HexColor(style.brush->fore));
            Key("fill-opacity");
            text_ += style.brush->pattern == 1 ? '0' : '1';
        }
    }
}

void GeoJsonWriter::WriteStroke(const Pen& pen) {
    Key("stroke");
    AppendJsonString(text_, HexColor(pen.color));
    Key("stroke-width");
    AppendPlainJsonNumber(text_, StrokeWidth(pen));
    Key("stroke-opacity");
    text_ += pen.pattern == 1 ? '0' : '1';
}

// The module tells a symbol's colour by a pen alone.
void GeoJsonWriter::WriteMarker(const Style& style) {
    if (style.symbol || style.pen) {
        Key("marker-color");
        AppendJsonString(text_, HexColor(style.symbol ? style.symbol->color : style.pen->color));
    }
    if (style.symbol) {
        Key("marker-size");
        AppendJsonString(text_, MarkerSizeOf(*style.symbol));
        Key("marker-symbol");
        AppendJsonString(text_, MarkerSymbolOf(*style.symbol));
    }
}

void GeoJsonWriter::WriteCollection(const std::vector<Geometry>& members) {
    text_ += "{\"type\":\"GeometryCollection\",\"geometries\":[";
    bool isFirst = true;
    for (const Geometry& member : members) {
        const std::size_t before = text_.size();
        text_ += isFirst ? "" : ",";
        if (WriteGeometry(member)) {
            isFirst = false;
        } else {
            text_.resize(before);
        }
    }
    text_ += "]}";
}

bool GeoJsonWriter::WriteGeometry(const Geometry& geometry) {
    const std::vector<shr::Vec2d>& points = geometry.points;
    if (points.empty() || !std::all_of(points.begin(), points.end(), IsFinite)) {
        return false;
    }
    switch (geometry.kind) {
    case GeometryKind::Points:
    case GeometryKind::Text:
        if (points.size() == 1 && !geometry.isMulti) {
            text_ += "{\"type\":\"Point\",\"coordinates\":";
            AppendPosition(text_, points.front());
        } else {
            text_ += "{\"type\":\"MultiPoint\",\"coordinates\":";
            AppendPositions(text_, points);
        }
        text_ += '}';
        return true;
    case GeometryKind::Line:
        return WriteLine(geometry);
    case GeometryKind::Region:
        return WriteRegion(geometry);
    default:
        return false;
    }
}

bool GeoJsonWriter::WriteLine(const Geometry& geometry) {
    std::vector<std::span<const shr::Vec2d>> sections = SectionsOf(geometry);
    std::erase_if(sections, [](const auto& section) { return section.size() < 2; });
    if (sections.empty()) {
        return false;
    }
    if (sections.size() == 1 && !geometry.isMulti) {
        text_ += "{\"type\":\"LineString\",\"coordinates\":";
        AppendPositions(text_, sections.front());
    } else {
        text_ += "{\"type\":\"MultiLineString\",\"coordinates\":[";
        for (const auto& section : sections) {
            AppendPositions(text_, section);
            text_ += ',';
        }
        text_.back() = ']';
    }
    text_ += '}';
    return true;
}

bool GeoJsonWriter::WriteRegion(const Geometry& geometry) {
    const std::vector<Ring> rings = RingsOf(geometry.points, geometry.partSizes);
    if (rings.empty()) {
        return false;
    }
    const std::vector<NestedPolygon> polygons = NestRings(rings);
    if (polygons.size() == 1) {
        text_ += "{\"type\":\"Polygon\",\"coordinates\":";
        AppendPolygon(text_, polygons.front());
    } else {
        text_ += "{\"type\":\"MultiPolygon\",\"coordinates\":[";
        for (const NestedPolygon& polygon : polygons) {
            AppendPolygon(text_, polygon);
            text_ += ',';
        }
        text_.back() = ']';
    }
    text_ += '}';
    return true;
}

}  // namespace app
