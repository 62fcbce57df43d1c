#include "app/draw/MapReader.h"

#include "app/base/Errors.h"
#include "app/base/Paths.h"
#include "app/batch/BatchPlan.h"
#include "app/crs/Definitions.h"
#include "app/crs/SystemNotes.h"
#include "app/draw/TextFrame.h"
#include "app/formats/Formats.h"
#include "app/json/ShortestNumber.h"

#include <algorithm>
#include <array>
#include <utility>

namespace app {

namespace {

constexpr std::string_view kManifold = ".json";

// Edges of a full turn when curves are moved into another system.
constexpr int kSegments = 180;

std::vector<std::string_view> MapExtensions() {
    std::vector<std::string_view> extensions;
    for (const Format& format : Formats()) {
        extensions.insert(extensions.end(), format.extensions.begin(), format.extensions.end());
    }
    std::erase(extensions, kManifold);
    return extensions;
}

// "LAYER:COLUMN" for a layer, or "COLUMN" for any: the column's place in the layer.
std::optional<std::size_t> ColumnOfLabel(const std::string& label, const LayerFacts& layer) {
    for (std::size_t i = 0; i < layer.columns.size(); ++i) {
        const std::string& column = layer.columns[i].name;
        if (label == column || label == layer.name + ":" + column) {
            return i;
        }
    }
    return std::nullopt;
}

void Place(Geometry& geometry, LayerTransform& transform) {
    if (geometry.kind == GeometryKind::Text) {
        SetTextFrame(geometry);
    }
    if (transform.IsNeeded()) {
        FlattenCurves(geometry, kSegments);
        transform.Apply(geometry.points);
    }
}

}  // namespace

MapReader::MapReader(const MapInput& input, SystemPtr target)
    : input_(input), files_(FilesOf(input.paths)), systems_(std::move(target)),
      isAnyPlaced_(systems_.Target() != nullptr), isLabelFound_(input.labels.size(), false) {
    for (const std::string& file : files_) {
        static_cast<void>(FormatOfPath(file));  // throws for one of no format
    }
}

void MapReader::Read(MapSink& sink, Reporter& reporter) {
    for (const std::string& file : files_) {
        ReadFile(file, sink, reporter);
    }
    CheckLabels();
    for (const std::string& layer : isAnyPlaced_ ? unplaced_ : std::vector<std::string>()) {
        reporter.Warning(layer + "; drawn as it stands");
    }
}

void MapReader::ReadFile(const std::string& file, MapSink& sink, Reporter& reporter) {
    SourceOptions options;
    options.asIs = input_.asIs;
    options.noStore = true;  // a picture does not depend on what an earlier run remembered
    options.encoding = input_.encoding;
    options.modulePath = input_.modulePath;
    if (!input_.assumedCrs.empty()) {
        options.assumedSystem = SystemOfOption("--assume-crs", input_.assumedCrs, reporter);
    }
    const std::unique_ptr<Source> source = FormatOfPath(file).openSource(file, options);
    const std::size_t layers = source->LayerNames().size();
    for (std::size_t layer = 0; layer < layers; ++layer) {
        const LayerFacts facts = source->Begin(layer, reporter);
        const std::string subject =
            source->Name() + (layers > 1 ? ", layer " + facts.name : std::string());
        std::string problem;
        LayerTransform transform = systems_.TransformFrom(facts.system, problem);
        isAnyPlaced_ = isAnyPlaced_ || problem.empty();
        if (facts.system != nullptr && !facts.system->problem.empty()) {
            reporter.Warning(subject + ": " + facts.system->problem + "; drawn as it stands");
        } else if (!problem.empty()) {
            unplaced_.push_back(subject + ": " + problem);
        }
        if (facts.system != nullptr) {
            SayNotes(*facts.system, subject + ": ", reporter);
        }
        sink.BeginLayer(LayerOf(facts));
        source->Read(reporter, [&](Feature& feature) {
            Place(feature.geometry, transform);
            for (Geometry& member : feature.members) {
                Place(member, transform);
            }
            sink.Take(feature);
            return true;
        });
    }
}

MapLayer MapReader::LayerOf(const LayerFacts& facts) {
    MapLayer layer{facts.name, facts.columns, std::nullopt};
    for (std::size_t i = 0; i < input_.labels.size(); ++i) {
        if (const auto column = ColumnOfLabel(input_.labels[i], facts)) {
            layer.labelColumn = column;
            isLabelFound_[i] = true;
        }
    }
    for (const LayerColumn& column : facts.columns) {
        if (!input_.labels.empty() && std::ranges::count(labelNames_, column.name) == 0) {
            labelNames_.push_back(column.name);
        }
    }
    return layer;
}

void MapReader::CheckLabels() const {
    const auto missing = std::ranges::find(isLabelFound_, false);
    if (missing == isLabelFound_.end()) {
        return;
    }
    std::string names;
    for (const std::string& name : labelNames_) {
        names += (names.empty() ? "" : ", ") + name;
    }
    throw Failure("--label " +
                  input_.labels[static_cast<std::size_t>(missing - isLabelFound_.begin())] +
                  ": no layer has such a column; the columns are: " + names);
}

std::vector<std::string> FilesOf(const std::vector<std::string>& paths) {
    std::vector<std::string> files;
    for (const std::string& path : paths) {
        std::error_code error;
        if (path == "-" || !std::filesystem::is_directory(PathFromArgument(path), error)) {
            files.push_back(path);
            continue;
        }
        const std::vector<std::filesystem::path> found =
            FilesBelow(PathFromArgument(path), MapExtensions());
        if (found.empty()) {
            throw Failure(path + ": holds no map");
        }
        for (const std::filesystem::path& file : found) {
            files.push_back(ArgumentFromPath(file));
        }
    }
    return files;
}

std::string TextOf(const Value& value) {
    struct Writer {
        std::string operator()(std::monostate) const { return ""; }
        std::string operator()(const std::string& text) const { return text; }
        std::string operator()(std::int64_t number) const { return std::to_string(number); }
        std::string operator()(bool isTrue) const { return isTrue ? "true" : "false"; }
        std::string operator()(double number) const {
            std::array<char, kShortestNumberSize> digits{};
            return {digits.data(), WritePlain(digits.data(), number)};
        }
    };
    return std::visit(Writer(), value);
}

}  // namespace app
