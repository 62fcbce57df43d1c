// Reads the layers of a map, each once, and brings them into one coordinate system.
#pragma once

#include "app/base/Reporter.h"
#include "app/feature/Feature.h"
#include "app/feature/LayerFacts.h"
#include "app/map/LayerSystems.h"
#include "app/query/Question.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace app {

struct MapInput {
    std::vector<std::string> paths;  // the top one last
    std::string crs;                 // of the map: a definition; empty: that of the first layer
    std::string assumedCrs;          // of MIF files, whatever their headers say; empty: their own
    std::string encoding;            // of the texts of MIF files; empty: by their headers
    bool asIs = false;
    std::string modulePath;
    std::vector<std::string> labels;  // "COLUMN" or "LAYER:COLUMN"
    std::string where;                // objects to draw, in SQL; empty: all
    bool needsValues = false;         // else features may come without theirs
    bool leavesOutUnplaced = false;  // the caller shows no layer without a place beside one with it
};

struct MapLayer {
    std::string name;  // UTF-8
    std::vector<LayerColumn> columns;
    std::optional<std::size_t> labelColumn;  // whose values label the objects
    SystemPtr system = nullptr;              // of the file; null when it names none
    bool isPlaced = false;                   // the coordinates are in the map's system
};

// Receives the layers of a map and their objects, in their order.
class MapSink {
public:
    virtual ~MapSink() = default;

    virtual void BeginLayer(const MapLayer& layer) = 0;

    // The feature's coordinates are the map's; a point without a place is infinite. Curves have
    // become lines and regions where coordinates were moved. A Text has its frame for points
    // (app/map/TextFrame.h). The feature may be changed.
    virtual void Take(Feature& feature) = 0;
};

class MapReader {
public:
    // `target` is the map's system, null to leave it to the first layer that has one. Unless the
    // user named it (`input.crs`), layers that all have no place on the Earth are no fault. Throws
    // UsageError for an input of an unknown format.
    MapReader(const MapInput& input, SystemPtr target);

    // Hands over everything. Layers that have no place in the map's system are handed over with
    // their coordinates unchanged, with a warning when others have one, and those that lack a
    // column of the question whole, with a note. Throws Failure; UsageError for a column of a label
    // or of the question that no layer has.
    void Read(MapSink& sink, Reporter& reporter);

    // After Read: the map's system.
    const LayerSystems& Systems() const { return systems_; }

    // After Read: whether any layer has a place on the Earth.
    bool IsAnyPlaced() const { return isAnyPlaced_; }

private:
    // A layer that is nowhere on the Earth.
    struct Unplaced {
        std::string problem;  // its name and why
        bool isFault;         // of its system: said also when no layer has a place
    };

    void ReadFile(const std::string& file, MapSink& sink, Reporter& reporter);
    MapLayer LayerOf(const LayerFacts& facts);
    void CheckLabels() const;
    std::optional<Question> QuestionTo(const LayerFacts& facts, const std::string& subject);
    void CheckQuestion(Reporter& reporter) const;

    const MapInput& input_;
    LayerSystems systems_;
    bool isAnyPlaced_;
    std::vector<Unplaced> unplaced_;
    std::vector<bool> isLabelFound_;       // by the labels of the input
    std::vector<std::string> labelNames_;  // that there are, for a message
    bool isAnswered_ = false;              // whether any layer has the columns of the question
    std::string questionProblem_;          // of the last layer that lacks one
    std::vector<std::string> whole_;       // the layers that lack one
};

}  // namespace app
