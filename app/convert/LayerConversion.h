// A layer's way from a source's features to a target.
#pragma once

#include "app/base/Reporter.h"
#include "app/convert/ConvertOptions.h"
#include "app/convert/FeatureFilter.h"
#include "app/convert/SystemPlan.h"
#include "app/feature/Target.h"
#include "app/formats/Formats.h"

#include <cstdint>
#include <string>

namespace app {

// Selects, reprojects and flattens what the options and the target's format ask for. All that it is
// made with must outlive it.
class LayerConversion {
public:
    LayerConversion(const ConvertOptions& options, const Format& format, Target& target,
                    Reporter& reporter);

    // Begins the target's layer. `facts` are the source's, and `subject` is its name. False when no
    // feature is wanted. Throws Failure; UsageError for a system that the format can't have and for
    // a question that is no expression.
    bool Begin(LayerFacts facts, const std::string& subject);

    // Writes the feature, unless --where or --bbox keeps it out. False when that was the last one.
    bool Take(Feature& feature);

    // Warns when --where and --bbox have kept everything out, and of objects that have no place in
    // the output's system. Throws Failure when no object has one.
    void End();

    // How many features the target was given.
    std::uint64_t WrittenCount() const { return writtenCount_; }

private:
    void Reproject(Feature& feature);
    void SayUnplaced() const;

    const ConvertOptions& options_;
    const Format& format_;
    Target& target_;
    Reporter& reporter_;
    FeatureFilter filter_;
    SystemPlan plan_;
    std::string subject_;
    std::uint64_t unaskedCount_ = 0;   // features that --where has kept out
    std::uint64_t outsideCount_ = 0;   // features that --bbox has kept out
    std::uint64_t unplacedCount_ = 0;  // features with a point that can't be reprojected
    bool isAnyPlaced_ = false;
    std::uint64_t writtenCount_ = 0;
};

}  // namespace app
