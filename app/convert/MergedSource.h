// Several layers as one: --merge.
#pragma once

#include "app/convert/MergedColumns.h"
#include "app/crs/Reprojection.h"
#include "app/feature/Source.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace app {

// A layer that is to be merged.
struct MergePart {
    std::function<std::unique_ptr<Source>()> open;
    std::size_t layer = 0;
    std::string label;  // the value of the column "source"
};

struct MergeSettings {
    std::string name;  // of the layer
    bool withSourceColumn = false;
    int segments = 64;  // edges of a full turn of a curve that is moved
    // The system that the conversion is to end in, which saves moving twice; null when it follows
    // the input.
    SystemPtr wantedSystem;
};

// Has one layer: the features of all parts, one part behind the other, numbered anew. Coordinates
// of different systems are moved into `wantedSystem`, or into that of the first part on the Earth.
class MergedSource : public Source {
public:
    MergedSource(std::vector<MergePart> parts, MergeSettings settings);

    std::vector<std::string> LayerNames() const override { return {settings_.name}; }

    // Begins every part. Says on the reporter which parts are moved, and what became of columns.
    LayerFacts Begin(std::size_t layer, Reporter& reporter) override;
    void Read(Reporter& reporter, const FeatureSink& sink) override;

private:
    struct Begun {
        std::unique_ptr<Source> source;  // null: opened anew for reading
        LayerFacts facts;
        std::optional<Reprojection> way;
    };

    SystemPtr CommonSystem() const;
    void PlanWays(const SystemPtr& common, Reporter& reporter);
    void ReadPart(std::size_t number, Reporter& reporter, const FeatureSink& sink);
    std::optional<PairFacts> CommonPair() const;
    std::optional<shr::Box2d> CommonExtent() const;

    std::vector<MergePart> parts_;
    MergeSettings settings_;
    std::vector<Begun> begun_;  // by part
    MergedColumns columns_;
    std::uint64_t count_ = 0;  // features that were handed over
    bool isEnough_ = false;    // the sink wants no more
};

}  // namespace app
