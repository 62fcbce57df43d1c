#include "app/page/PageLayers.h"

#include "app/base/Angles.h"
#include "app/json/JsonObjectWriter.h"
#include "app/json/JsonText.h"
#include "app/map/MapExtent.h"
#include "app/page/PageText.h"

#include <algorithm>
#include <cmath>
#include <type_traits>
#include <variant>

namespace app {

namespace {

// The finest tolerance: nobody would see less. Parts of the map's longer side, and metres.
constexpr double kFinestPart = 1.0 / (1 << 20);
constexpr double kFinestMetres = 0.1;
constexpr double kUnitsOfPoint = 0.001;  // of a plane with a single point

constexpr double kMetresPerDegree = 111319.490793;
constexpr int kMostDecimals = 9;

// Steps are quarters of an octave around a length of 1.
constexpr double kStepsPerOctave = 4.0;
constexpr double kStepOfOne = 160.0;

// The bytes around the parts of a feature that are counted exactly.
constexpr std::uint64_t kFrameBytes = 100;
constexpr std::uint64_t kPartBytes = 6;

// A whole number that a script can't hold is a text for it.
constexpr std::int64_t kLargestWhole = std::int64_t{1} << 53;

void AppendValue(std::string& out, const Value& value) {
    std::visit(
        [&out](const auto& held) {
            using Held = std::decay_t<decltype(held)>;
            if constexpr (std::is_same_v<Held, bool>) {
                out += held ? "true" : "false";
            } else if constexpr (std::is_same_v<Held, std::string>) {
                AppendPageString(out, held);
            } else if constexpr (std::is_same_v<Held, std::int64_t>) {
                const bool isExact = held >= -kLargestWhole && held <= kLargestWhole;
                out += isExact ? std::to_string(held) : '"' + std::to_string(held) + '"';
            } else if constexpr (std::is_same_v<Held, double>) {
                AppendJsonNumber(out, held);
            }
        },
        value);
}

bool IsShown(const Value& value) {
    const auto* const text = std::get_if<std::string>(&value);
    return !std::holds_alternative<std::monostate>(value) && (text == nullptr || !text->empty());
}

bool DoMeet(const shr::Box2d& left, const shr::Box2d& right) {
    return left.minX <= right.maxX && left.maxX >= right.minX && left.minY <= right.maxY &&
           left.maxY >= right.minY;
}

shr::Box2d BoxAround(const shr::Box2d& left, const shr::Box2d& right) {
    return {std::min(left.minX, right.minX), std::min(left.minY, right.minY),
            std::max(left.maxX, right.maxX), std::max(left.maxY, right.maxY)};
}

double LongerSide(const std::optional<shr::Box2d>& extent, PagePlane plane) {
    if (!extent) {
        return 0.0;
    }
    const shr::Vec2d low = OnPlane({extent->minX, extent->minY}, plane);
    const shr::Vec2d high = OnPlane({extent->maxX, extent->maxY}, plane);
    return std::max(high.x - low.x, high.y - low.y);
}

std::size_t DegreeOf(double longitude) {
    const double turns = std::floor(longitude / kTurn);
    return static_cast<std::size_t>(std::clamp(longitude - turns * kTurn, 0.0, kTurn - 1.0));
}

}  // namespace

PageLayers::PageLayers(std::optional<shr::Box2d> view, StyleSource styleSource)
    : view_(view), styles_(styleSource) {}

void PageLayers::BeginLayer(const MapLayer& layer) {
    if (layers_.empty()) {
        firstSystem_ = layer.system;
    }
    spool_.BeginLayer(layers_.size());
    styles_.BeginLayer(layers_.size());
    Layer own;
    own.name = layer.name;
    own.plane = layer.isPlaced ? PagePlane::Degrees : PagePlane::Units;
    own.unwraps = layer.isPlaced && layer.system != nullptr && !layer.system->isGeographic;
    for (const LayerColumn& column : layer.columns) {
        AppendPageString(own.keys.emplace_back(), column.name);
    }
    own.head = HeadOf(layer, own.keys);
    halves_[static_cast<std::size_t>(own.plane)].otherBytes += own.head.size();
    layers_.push_back(std::move(own));
}

std::string PageLayers::HeadOf(const MapLayer& layer, const std::vector<std::string>& keys) {
    std::string head;
    JsonObjectWriter object(head);
    object.Text("type", std::string_view("FeatureCollection"));
    AppendPageString(object.Member("name"), layer.name);
    if (layer.labelColumn) {
        object.Member("label") += keys[*layer.labelColumn];
    }
    std::string& columns = object.Member("columns");
    columns += '[';
    for (const std::string& key : keys) {
        columns += (columns.back() == '[' ? "" : ",") + key;
    }
    columns += ']';
    object.Member("features") += '[';
    return head;
}

void PageLayers::Take(Feature& feature) {
    PageFeature taken;
    taken.number = feature.number;
    const bool isCollection = feature.geometry.kind == GeometryKind::Collection;
    std::span<Geometry> geometries(&feature.geometry, 1);
    if (isCollection) {
        geometries = feature.members;
    }
    for (Geometry& geometry : geometries) {
        if (std::optional<PageMember> member = TakeGeometry(geometry)) {
            taken.members.push_back(std::move(*member));
        }
    }
    if (!taken.members.empty()) {
        taken.properties = PropertiesOf(feature);
        Note(taken);
        spool_.Add(taken);
    }
}

std::optional<PageMember> PageLayers::TakeGeometry(Geometry& geometry) {
    const Layer& layer = layers_.back();
    FlattenCurves(geometry, kTurnSegments);
    PageMember member = MemberOf(geometry, layer.plane, layer.unwraps);
    if (member.points.empty()) {
        return std::nullopt;
    }
    const shr::Box2d box = geometry.kind == GeometryKind::Text
                               ? DrawableBox(geometry)
                               : BoxOf(std::span<const shr::Vec2d>(member.points));
    if (view_ && !DoMeet(box, *view_)) {
        return std::nullopt;
    }
    member.style = styles_.NumberOf(geometry);
    Half& half = halves_[static_cast<std::size_t>(layer.plane)];
    half.extent = half.extent ? BoxAround(*half.extent, box) : box;
    half.farObjects.Add(box);
    if (layer.plane == PagePlane::Degrees) {
        const double first = std::floor(box.minX);
        for (int i = 0; i < kTurn && first + i <= box.maxX; ++i) {
            half.longitudes.set(DegreeOf(first + i));
        }
    }
    return member;
}

std::string PageLayers::PropertiesOf(const Feature& feature) const {
    const std::vector<std::string>& keys = layers_.back().keys;
    std::string text = "{";
    for (std::size_t i = 0; i < std::min(keys.size(), feature.values.size()); ++i) {
        if (IsShown(feature.values[i])) {
            text += text.size() > 1 ? "," : "";
            text += keys[i] + ':';
            AppendValue(text, feature.values[i]);
        }
    }
    return text + '}';
}

void PageLayers::Note(const PageFeature& feature) {
    Half& half = halves_[static_cast<std::size_t>(layers_.back().plane)];
    half.otherBytes += kFrameBytes + feature.properties.size();
    for (const PageMember& member : feature.members) {
        half.otherBytes += member.text.size() + kPartBytes * member.parts.size();
        if (member.weights.empty()) {
            half.vertices.back() += member.points.size();
        }
        for (const float weight : member.weights) {
            ++half.vertices[StepOf(weight)];
        }
    }
}

std::vector<std::string> PageLayers::Names() const {
    std::vector<std::string> names;
    for (const Layer& layer : layers_) {
        if (layer.plane == plane_) {
            names.push_back(layer.name);
        }
    }
    return names;
}

std::optional<FarObjectsFound> PageLayers::FindFarObjects() {
    return Chosen().farObjects.Find(*Extent(), [this](const auto& take) {
        spool_.Read([&](std::size_t layer, const PageFeature& feature) {
            for (const PageMember& member : feature.members) {
                if (layers_[layer].plane == plane_) {
                    take(BoxOf(std::span<const shr::Vec2d>(member.points)));
                }
            }
            return true;
        });
    });
}

std::optional<double> PageLayers::Seam() const {
    const std::bitset<kTurn>& taken = Chosen().longitudes;
    if (plane_ != PagePlane::Degrees || taken.none() || taken.all()) {
        return std::nullopt;
    }
    int widest = 0;
    int end = 0;  // behind the widest range without an object
    int width = 0;
    for (int degree = 0; degree < 2 * kTurn; ++degree) {
        width = taken[static_cast<std::size_t>(degree % kTurn)] ? 0 : width + 1;
        if (width > widest) {
            widest = width;
            end = degree + 1;
        }
    }
    const double middle = end - widest / 2.0;
    const double seam = middle - kTurn * std::floor((middle + kTurn / 2.0) / kTurn);
    const double gained = Extent()->maxX - Extent()->minX - (kTurn - widest);
    constexpr double kWorthIt = 20.0;
    return gained > kWorthIt ? std::optional(seam) : std::nullopt;
}

std::size_t PageLayers::StepOf(double length) {
    if (std::isinf(length)) {
        return kSteps - 1;
    }
    const double step = std::log2(std::max(length, 1e-30)) * kStepsPerOctave + kStepOfOne;
    return static_cast<std::size_t>(std::clamp(step, 0.0, kSteps - 2.0));
}

double PageLayers::LengthOf(std::size_t step) {
    return std::exp2((static_cast<double>(step) - kStepOfOne) / kStepsPerOctave);
}

double PageLayers::FinestTolerance() const {
    const double part = LongerSide(Extent(), plane_) * kFinestPart;
    if (plane_ == PagePlane::Degrees) {
        return std::max(part, kFinestMetres);
    }
    return part > 0.0 ? part : kUnitsOfPoint;
}

int PageLayers::DecimalsFor(double tolerance) const {
    const double unit = plane_ == PagePlane::Degrees ? kMetresPerDegree : 1.0;
    const double decimals = std::ceil(-std::log10(tolerance / unit / 2.0));
    return static_cast<int>(std::clamp<double>(decimals, 0, kMostDecimals));
}

double PageLayers::BytesAt(std::size_t step) const {
    const Half& half = Chosen();
    std::uint64_t kept = 0;
    for (std::size_t i = step; i < kSteps; ++i) {
        kept += half.vertices[i];
    }
    constexpr double kPunctuation = 4.0;  // [,],
    double digits = 0.0;
    for (const double number : {Extent()->minX, Extent()->maxX, Extent()->minY, Extent()->maxY}) {
        digits += std::log10(std::max(std::abs(number), 1.0)) / 2.0 + 0.5;
    }
    const int decimals = DecimalsFor(LengthOf(step));
    const double each = digits + 2.0 * (decimals > 0 ? decimals + 1 : 0) + kPunctuation;
    return static_cast<double>(half.otherBytes) + static_cast<double>(kept) * each;
}

std::size_t PageLayers::LeastSize() const {
    return Extent() ? static_cast<std::size_t>(BytesAt(kSteps - 1)) : 0;
}

std::optional<PageContent> PageLayers::Within(std::size_t most) {
    const double finest = FinestTolerance();
    if (!Extent()) {
        return PageContent{Written(finest, most).value_or(std::vector<std::string>()), finest,
                           false};
    }
    // The count of bytes is an estimate, so a step that should fit is tried, and the next one when
    // it does not.
    constexpr double kTooLarge = 1.1;
    double tolerance = finest;
    for (std::size_t step = StepOf(finest); step < kSteps; ++step) {
        if (BytesAt(step) <= kTooLarge * static_cast<double>(most)) {
            if (auto layers = Written(tolerance, most)) {
                return PageContent{std::move(*layers), tolerance, tolerance > finest};
            }
        }
        tolerance = LengthOf(step + 1);
    }
    return std::nullopt;
}

// Absent when they would be larger.
std::optional<std::vector<std::string>> PageLayers::Written(double tolerance, std::size_t most) {
    const int decimals = DecimalsFor(tolerance);
    std::vector<std::string> texts(layers_.size());
    for (std::size_t i = 0; i < layers_.size(); ++i) {
        texts[i] = layers_[i].head;
    }
    std::size_t total = 0;
    spool_.Read([&](std::size_t layer, const PageFeature& feature) {
        if (layers_[layer].plane == plane_) {
            std::string& text = texts[layer];
            const std::size_t before = text.size();
            text += text.back() == '[' ? "\n" : ",\n";
            AppendFeature(text, feature, static_cast<float>(tolerance), decimals);
            total += text.size() - before;
        }
        return total <= most;
    });
    if (total > most) {
        return std::nullopt;
    }
    std::vector<std::string> chosen;
    for (std::size_t i = 0; i < layers_.size(); ++i) {
        if (layers_[i].plane == plane_) {
            chosen.push_back(std::move(texts[i]) + "\n]}");
        }
    }
    return chosen;
}

}  // namespace app
