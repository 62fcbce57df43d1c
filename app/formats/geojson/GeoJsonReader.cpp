#include "app/formats/geojson/GeoJsonReader.h"

#include "app/base/Errors.h"
#include "app/base/Paths.h"
#include "app/crs/Reprojection.h"
#include "app/formats/geojson/GeoJsonGeometry.h"
#include "app/formats/geojson/SimpleStyle.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace app {

namespace {

// Keeps the order of the members, which becomes the order of the columns.
using Json = nlohmann::ordered_json;
using JsonSink = std::function<void(Json&)>;

// Ends the parsing of an input once a sink has enough.
struct EnoughRead {};

constexpr int kRecordSeparator = 0x1E;
constexpr std::size_t kSniffedBytes = 65536;
constexpr int kDeepestNesting = 1000;  // writing and reading a nested value takes stack

// How the JSON texts of an input follow one another.
enum class Framing { OneText, Lines, Sequence };

[[noreturn]] void Fail(const std::string& name, const std::string& problem) {
    throw Failure(name + ": " + problem);
}

// Throws the parser's error without the prefix of the JSON library.
[[noreturn]] void FailParsing(const std::string& name, const Json::exception& error) {
    std::string text = error.what();
    const std::size_t end = text.find("] ");
    if (text.starts_with('[') && end != std::string::npos) {
        text.erase(0, end + 2);
    }
    Fail(name, "is not valid GeoJSON: " + text);
}

Framing FramingOf(const RereadableInput& input) {
    InputStream stream(input);
    std::string start(kSniffedBytes, '\0');
    start.resize(std::fread(start.data(), 1, start.size(), stream.Stream()));
    const std::size_t first = start.find_first_not_of(" \t\r\n");
    if (first == std::string::npos) {
        return Framing::OneText;
    }
    if (start[first] == kRecordSeparator) {
        return Framing::Sequence;
    }
    const std::size_t lineEnd = start.find('\n', first);
    if (lineEnd == std::string::npos ||
        start.find_first_not_of(" \t\r\n", lineEnd) == std::string::npos) {
        return Framing::OneText;
    }
    const char* const text = start.data();
    const Json line = Json::parse(text + first, text + lineEnd, nullptr,
                                  /*allow_exceptions=*/false);
    return line.is_discarded() ? Framing::OneText : Framing::Lines;
}

void CheckNesting(int depth, const std::string& name) {
    if (depth > kDeepestNesting) {
        Fail(name, "is nested deeper than " + std::to_string(kDeepestNesting) + " levels");
    }
}

// Reads one text, and hands each feature of a collection to the sink as soon as it is complete.
// What is left of the text goes to `rest`.
void ReadOneText(std::FILE* stream, const std::string& name, Json& rest, const JsonSink& sink) {
    std::string member;  // of the outermost object
    const auto onEvent = [&](int depth, Json::parse_event_t event, Json& parsed) {
        CheckNesting(depth, name);
        if (event == Json::parse_event_t::key && depth == 1) {
            member = parsed.get<std::string>();
        } else if (event == Json::parse_event_t::object_end && depth == 2 && member == "features") {
            sink(parsed);
            return false;
        }
        return true;
    };
    try {
        rest = Json::parse(stream, onEvent);
    } catch (const Json::exception& error) {
        FailParsing(name, error);
    }
}

// Reads bytes up to the separator, without it. Returns false at the end.
bool NextText(std::FILE* stream, int separator, std::string& text) {
    text.clear();
    int c = std::getc(stream);
    if (c == EOF) {
        return false;
    }
    for (; c != EOF && c != separator; c = std::getc(stream)) {
        text += static_cast<char>(c);
    }
    return true;
}

// Whether there is only white space between two separators.
bool IsBlank(std::string_view text) {
    return text.find_first_not_of(" \t\r\n") == std::string_view::npos;
}

std::optional<shr::Box2d> BoxOf(const Json& object) {
    const auto at = object.is_object() ? object.find("bbox") : object.end();
    if (!object.is_object() || at == object.end() || !at->is_array() ||
        (at->size() != 4 && at->size() != 6) ||
        !std::all_of(at->begin(), at->end(), [](const Json& n) { return n.is_number(); })) {
        return std::nullopt;
    }
    const std::size_t high = at->size() / 2;
    return shr::Box2d{(*at)[0].get<double>(), (*at)[1].get<double>(), (*at)[high].get<double>(),
                      (*at)[high + 1].get<double>()};
}

// The beginning of a value's JSON, for messages.
std::string Shown(const Json& value) {
    constexpr std::size_t kMostBytes = 40;
    return value.dump(-1, ' ', true, Json::error_handler_t::replace).substr(0, kMostBytes);
}

Json& FeaturesOf(Json& collection, const std::string& name) {
    const auto at = collection.find("features");
    if (at == collection.end() || !at->is_array()) {
        Fail(name, "the FeatureCollection has no array \"features\"");
    }
    return *at;
}

// Hands every feature of the input to the sink; a bare geometry becomes a feature without
// properties. Returns the bbox of a collection.
std::optional<shr::Box2d> ForEachFeature(const RereadableInput& input, Reporter& reporter,
                                         const JsonSink& sink) {
    const Framing framing = FramingOf(input);
    InputStream stream(input);
    const auto take = [&](Json& object) {
        sink(object);
        reporter.Progress(stream.Fraction());
    };
    const auto takeText = [&](Json& text) {
        const std::string type = TypeOf(text);
        if (type == "FeatureCollection") {
            for (Json& feature : FeaturesOf(text, input.Name())) {
                take(feature);
            }
        } else if (type == "Feature") {
            take(text);
        } else {
            Json feature = {{"type", "Feature"}, {"properties", nullptr}};
            feature["geometry"] = std::move(text);
            take(feature);
        }
    };
    if (framing == Framing::OneText) {
        Json rest;
        ReadOneText(stream.Stream(), input.Name(), rest, take);
        const std::optional<shr::Box2d> box = BoxOf(rest);
        if (TypeOf(rest) != "FeatureCollection") {
            takeText(rest);
        } else if (const Json& left = FeaturesOf(rest, input.Name()); !left.empty()) {
            Fail(input.Name(),
                 "\"features\" holds " + Shown(left.front()) + ", which is not an object");
        }
        return box;
    }
    const int separator = framing == Framing::Lines ? '\n' : kRecordSeparator;
    const auto onEvent = [&](int depth, Json::parse_event_t /*event*/, Json& /*parsed*/) {
        CheckNesting(depth, input.Name());
        return true;
    };
    std::string text;
    while (NextText(stream.Stream(), separator, text)) {
        if (IsBlank(text)) {
            continue;
        }
        try {
            const char* const begin = text.data();
            Json parsed = Json::parse(begin, begin + text.size(), onEvent);
            takeText(parsed);
        } catch (const Json::exception& error) {
            FailParsing(input.Name(), error);
        }
    }
    return std::nullopt;
}

ColumnKind KindOf(const Json& value) {
    if (value.is_boolean()) {
        return ColumnKind::Logical;
    }
    if (value.is_number_integer()) {
        return ColumnKind::LargeInt;
    }
    if (value.is_string()) {
        return KindOfText(value.get_ref<const std::string&>());
    }
    return value.is_number() ? ColumnKind::Float : ColumnKind::Char;
}

// Returns the kind that can hold the values of both.
ColumnKind Common(ColumnKind left, ColumnKind right) {
    if (left == right) {
        return left;
    }
    const auto isNumber = [](ColumnKind kind) {
        return kind == ColumnKind::LargeInt || kind == ColumnKind::Float;
    };
    return isNumber(left) && isNumber(right) ? ColumnKind::Float : ColumnKind::Char;
}

Value ValueOf(const Json& json) {
    switch (json.type()) {
    case Json::value_t::null:
        return std::monostate();
    case Json::value_t::string:
        return json.get<std::string>();
    case Json::value_t::boolean:
        return json.get<bool>();
    case Json::value_t::number_integer:
        return json.get<std::int64_t>();
    case Json::value_t::number_unsigned:
        if (json.get<std::uint64_t>() <= static_cast<std::uint64_t>(INT64_MAX)) {
            return json.get<std::int64_t>();
        }
        return json.dump();
    case Json::value_t::number_float:
        return json.get<double>();
    default:
        return json.dump(-1, ' ', false, Json::error_handler_t::replace);
    }
}

// Finds the columns that hold the properties of every feature.
class PropertyColumns {
public:
    void See(const Json& properties) {
        for (const auto& [name, value] : properties.items()) {
            const auto [at, isNew] = columnAt_.try_emplace(name, columns_.size());
            if (isNew) {
                columns_.push_back({name, ColumnKind::Char, 0, 0});
                hasKind_.push_back(false);
            }
            if (!value.is_null()) {
                ColumnKind& kind = columns_[at->second].kind;
                kind = hasKind_[at->second] ? Common(kind, KindOf(value)) : KindOf(value);
                hasKind_[at->second] = true;
            }
        }
    }

    std::vector<LayerColumn> Take() { return std::move(columns_); }

private:
    std::vector<LayerColumn> columns_;  // in first-seen order
    std::vector<bool> hasKind_;         // false while only null values were seen
    std::unordered_map<std::string, std::size_t> columnAt_;
};

const Json& PropertiesOf(const Json& feature) {
    static const Json kNone = Json::object();
    const auto at = feature.find("properties");
    return at != feature.end() && at->is_object() ? *at : kNone;
}

const Json& GeometryOf(const Json& feature) {
    static const Json kNull;
    const auto at = feature.find("geometry");
    return at != feature.end() ? *at : kNull;
}

void CheckFeature(const Json& feature, const std::string& name, std::uint64_t number) {
    if (!feature.is_object()) {
        Fail(name, "feature " + std::to_string(number) + " is not an object");
    }
}

void TakeGeometry(const Json& json, Feature& feature, const std::string& name,
                  const DamageSink& onDamage) {
    try {
        ReadGeometry(GeometryOf(json), feature);
    } catch (const GeometryError& error) {
        if (!onDamage) {
            Fail(name, "feature " + std::to_string(feature.number) + ": " + error.what());
        }
        onDamage({feature.number, DamageKind::Geometry, error.what()});
        feature.geometry = {};
        feature.members.clear();
    }
}

}  // namespace

GeoJsonReader::GeoJsonReader(const std::filesystem::path& path, DamageSink onDamage)
    : Source(path == "-" ? "standard input" : PathText(path)), isStandardInput_(path == "-"),
      size_(SizeOfFile(path)), input_(path), onDamage_(std::move(onDamage)) {}

std::vector<std::string> GeoJsonReader::LayerNames() const {
    return {isStandardInput_ ? "layer" : PathText(input_.Path().stem())};
}

LayerFacts GeoJsonReader::Begin(std::size_t /*layer*/, Reporter& reporter) {
    LayerFacts facts;
    facts.name = LayerNames().front();
    facts.system = std::make_shared<const CoordinateSystem>(Wgs84System());
    PropertyColumns columns;
    Feature scratch;
    reporter.StartProgress("reading");
    facts.knownExtent = ForEachFeature(input_, reporter, [&](Json& json) {
        CheckFeature(json, Name(), ++scratch.number);
        columns.See(PropertiesOf(json));
        // Damage is for Read to tell.
        TakeGeometry(json, scratch, Name(),
                     onDamage_ ? DamageSink([](const FeatureDamage&) {}) : DamageSink());
    });
    reporter.EndProgress();
    if (scratch.number == 0) {
        reporter.Warning(Name() + ": holds no features");
    }
    columns_ = columns.Take();
    facts.columns = columns_;
    return facts;
}

void GeoJsonReader::Read(Reporter& reporter, const FeatureSink& sink) {
    std::unordered_map<std::string_view, std::size_t> columnAt;
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        columnAt.emplace(columns_[i].name, i);
    }
    const bool hasStyles = std::ranges::any_of(
        columns_, [](const LayerColumn& column) { return IsStyleProperty(column.name); });
    Feature feature;
    reporter.StartProgress(Name(), size_);
    try {
        ForEachFeature(input_, reporter, [&](Json& json) {
            ++feature.number;
            CheckFeature(json, Name(), feature.number);
            feature.values.assign(columns_.size(), Value());
            for (const auto& [name, value] : PropertiesOf(json).items()) {
                if (const auto at = columnAt.find(name); at != columnAt.end()) {
                    feature.values[at->second] = ValueOf(value);
                }
            }
            TakeGeometry(json, feature, Name(), onDamage_);
            if (hasStyles) {
                SetStyles(PropertiesOf(json), feature);
            }
            if (!sink(feature)) {
                throw EnoughRead();
            }
        });
    } catch (const EnoughRead&) {
    }
    reporter.EndProgress();
}

}  // namespace app
