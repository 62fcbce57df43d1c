#include "app/formats/geojson/GeoJsonWriter.h"

#include "app/feature/RingNesting.h"
#include "app/json/JsonText.h"
#include "app/json/ShortestNumber.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>
#include <type_traits>

namespace app {

namespace {

constexpr std::array<std::string_view, 5> kTextProperties = {"text", "angle", "height", "font",
                                                             "justify"};

bool IsFinite(const shr::Vec2d& point) {
    return std::isfinite(point.x) && std::isfinite(point.y);
}

// The point as [x,y].
void AppendPosition(std::string& text, const shr::Vec2d& point) {
    char buffer[2 * kShortestNumberSize + 3];
    char* end = buffer;
    *end++ = '[';
    end = WriteShortest(end, point.x);
    *end++ = ',';
    end = WriteShortest(end, point.y);
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

// A ring with its first position repeated at the end, in the direction that is wanted.
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

void AppendValue(std::string& text, const Value& value) {
    std::visit(
        [&text](const auto& held) {
            using Held = std::decay_t<decltype(held)>;
            if constexpr (std::is_same_v<Held, std::monostate>) {
                text += "null";
            } else if constexpr (std::is_same_v<Held, bool>) {
                text += held ? "true" : "false";
            } else if constexpr (std::is_same_v<Held, std::string>) {
                AppendJsonString(text, held);
            } else {
                AppendJsonNumber(text, held);
            }
        },
        value);
}

std::string HexColor(const shr::Color4b& color) {
    constexpr std::string_view kDigits = "0123456789abcdef";
    std::string text = "#";
    for (const unsigned byte : {color.red, color.green, color.blue}) {
        text += kDigits[byte / 16];
        text += kDigits[byte % 16];
    }
    return text;
}

const char* JustifyName(zeio::TrText::Justify justify) {
    switch (justify) {
    case zeio::TrText::Justify::Centre:
        return "center";
    case zeio::TrText::Justify::Right:
        return "right";
    case zeio::TrText::Justify::Left:
        break;
    }
    return "left";
}

}  // namespace

GeoJsonWriter::GeoJsonWriter(const std::filesystem::path& path, IfExists ifExists, GeoJsonForm form,
                             bool withStyles)
    : output_(path, ifExists), form_(form), withStyles_(withStyles) {}

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
    WriteGeometry(feature);
    text_ += form_ == GeoJsonForm::Collection ? "}" : "}\n";
    output_.Write(text_);
    ++count_;
}

bool GeoJsonWriter::Finish() {
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
    const bool isText = feature.kind == GeometryKind::Text;
    const std::size_t count = std::min(keys_.size(), feature.values.size());
    for (std::size_t i = 0; i < count; ++i) {
        if (isText && isTextKey_[i]) {
            continue;  // a text has no row, so its own property takes the place
        }
        if (!isFirstProperty_) {
            text_ += ',';
        }
        isFirstProperty_ = false;
        text_ += keys_[i];
        AppendValue(text_, feature.values[i]);
    }
    if (isText) {
        WriteTextProperties(feature);
    }
    if (withStyles_) {
        WriteStyle(feature);
    }
}

void GeoJsonWriter::WriteTextProperties(const Feature& feature) {
    Key("text");
    AppendJsonString(text_, feature.placement.text);
    Key("angle");
    AppendJsonNumber(text_, feature.placement.angleDegrees);
    Key("height");
    AppendJsonNumber(text_, feature.placement.height);
    Key("font");
    AppendJsonString(text_, feature.placement.fontFace);
    Key("justify");
    text_ += '"';
    text_ += JustifyName(feature.placement.justify);
    text_ += '"';
}

void GeoJsonWriter::WriteStyle(const Feature& feature) {
    const zeio::TrPen& pen = feature.style.pen;
    if (feature.style.hasPen) {
        Key("stroke");
        AppendJsonString(text_, HexColor(pen.color));
        // A width in world units depends on the map's scale, which simplestyle can't say.
        constexpr double kPixelsPerInch = 96.0;
        Key("stroke-width");
        AppendJsonNumber(text_, pen.isRelative ? 1.0 : pen.width * kPixelsPerInch);
        Key("stroke-opacity");
        text_ += pen.style == zeio::TrPen::Style::NoLine ? '0' : '1';
    }
    const bool hasArea = feature.kind != GeometryKind::Line && feature.kind != GeometryKind::Points;
    if (feature.style.hasBrush && hasArea) {
        Key(feature.kind == GeometryKind::Text ? "text-color" : "fill");
        AppendJsonString(text_, HexColor(feature.style.brush.fore));
        if (feature.kind != GeometryKind::Text) {
            Key("fill-opacity");
            text_ += feature.style.brush.pattern == zeio::TrBrush::Pattern::None ? '0' : '1';
        }
    }
}

void GeoJsonWriter::WriteGeometry(const Feature& feature) {
    const std::vector<shr::Vec2d>& points = feature.points;
    if (points.empty() || !std::all_of(points.begin(), points.end(), IsFinite)) {
        text_ += "null";
        return;
    }
    switch (feature.kind) {
    case GeometryKind::Points:
    case GeometryKind::Text:
        if (points.size() == 1) {
            text_ += "{\"type\":\"Point\",\"coordinates\":";
            AppendPosition(text_, points.front());
        } else {
            text_ += "{\"type\":\"MultiPoint\",\"coordinates\":";
            AppendPositions(text_, points);
        }
        text_ += '}';
        return;
    case GeometryKind::Line:
        if (points.size() < 2) {
            text_ += "null";
            return;
        }
        text_ += "{\"type\":\"LineString\",\"coordinates\":";
        AppendPositions(text_, points);
        text_ += '}';
        return;
    default:
        WriteRegion(feature);
    }
}

void GeoJsonWriter::WriteRegion(const Feature& feature) {
    const std::vector<Ring> rings = RingsOf(feature.points, feature.partSizes);
    if (rings.empty()) {
        text_ += "null";
        return;
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
}

}  // namespace app
