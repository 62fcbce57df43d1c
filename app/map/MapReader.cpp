#include "app/map/MapReader.h"

#include "app/base/Errors.h"
#include "app/crs/Definitions.h"
#include "app/crs/SystemNotes.h"
#include "app/formats/Formats.h"
#include "app/map/TextFrame.h"

#include <algorithm>
#include <utility>

namespace app {

namespace {

// Edges of a full turn when curves are moved into another system.
constexpr int kSegments = 180;

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
    : input_(input), systems_(std::move(target)), isAnyPlaced_(!input.crs.empty()),
      isLabelFound_(input.labels.size(), false) {
    for (const std::string& file : input_.paths) {
        static_cast<void>(FormatOfPath(file));  // throws for one of no format
    }
}

void MapReader::Read(MapSink& sink, Reporter& reporter) {
    for (const std::string& file : input_.paths) {
        ReadFile(file, sink, reporter);
    }
    CheckLabels();
    CheckQuestion(reporter);
    const bool areLeftOut = isAnyPlaced_ && input_.leavesOutUnplaced;
    for (const Unplaced& layer : unplaced_) {
        if (isAnyPlaced_ || layer.isFault) {
            reporter.Warning(layer.problem + (areLeftOut ? "; left out" : "; drawn unchanged"));
        }
    }
}

void MapReader::ReadFile(const std::string& file, MapSink& sink, Reporter& reporter) {
    SourceOptions options;
    options.asIs = input_.asIs;
    options.noStore = true;  // a picture does not depend on what an earlier run remembered
    options.withoutValues = input_.labels.empty() && input_.where.empty() && !input_.needsValues;
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
        const bool isFault = facts.system != nullptr && !facts.system->problem.empty();
        if (isFault || !problem.empty()) {
            unplaced_.push_back(
                {subject + ": " + (isFault ? facts.system->problem : problem), isFault});
        }
        if (facts.system != nullptr) {
            SayNotes(*facts.system, subject + ": ", reporter);
        }
        MapLayer described = LayerOf(facts);
        described.isPlaced = problem.empty();
        sink.BeginLayer(described);
        std::optional<Question> question = QuestionTo(facts, subject);
        source->Read(reporter, [&](Feature& feature) {
            if (question && !question->Holds(feature)) {
                return true;
            }
            Place(feature.geometry, transform);
            for (Geometry& member : feature.members) {
                Place(member, transform);
            }
            sink.Take(feature);
            return true;
        });
    }
}

std::optional<Question> MapReader::QuestionTo(const LayerFacts& facts, const std::string& subject) {
    if (input_.where.empty()) {
        return std::nullopt;
    }
    try {
        Question question(input_.where, facts.columns, subject);
        isAnswered_ = true;
        return question;
    } catch (const UsageError&) {
        throw;  // no layer could answer it
    } catch (const Failure& failure) {
        questionProblem_ = failure.what();
        whole_.push_back(subject);
        return std::nullopt;
    }
}

void MapReader::CheckQuestion(Reporter& reporter) const {
    if (!whole_.empty() && !isAnswered_) {
        throw UsageError(questionProblem_);
    }
    for (const std::string& layer : whole_) {
        reporter.Note(layer + ": lacks a column of --where; drawn whole");
    }
}

MapLayer MapReader::LayerOf(const LayerFacts& facts) {
    MapLayer layer{facts.name, facts.columns, std::nullopt, facts.system, false};
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
    throw UsageError("--label " +
                     input_.labels[static_cast<std::size_t>(missing - isLabelFound_.begin())] +
                     ": no layer has such a column; the columns are: " + names);
}

}  // namespace app
