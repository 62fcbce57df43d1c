// Writes features to a MIF/MID pair as people want it: with column types, styles, a charset that
// has every text, and one row for each feature.
#pragma once

#include "app/base/Reporter.h"
#include "app/feature/Target.h"
#include "app/formats/mif/PairWriter.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace app {

class MifTarget : public Target {
public:
    // reporter must outlive the target. Throws Failure; UsageError for an encoding that MIF files
    // don't have.
    MifTarget(const std::filesystem::path& path, const TargetOptions& options, Reporter& reporter);

    // Once only. A layer that comes from a MIF pair keeps its charset, delimiter, clause and column
    // types.
    void BeginLayer(const LayerFacts& layer) override;

    // A feature without a place becomes a None object.
    void Write(Feature& feature) override;

    // Says what was renamed, cut or lost.
    bool Finish() override;

private:
    std::optional<PairCharset> CharsetFor(const LayerFacts& layer) const;
    void TellNames(const std::vector<ColumnOutcome>& columns);
    void TellValues(const std::vector<ColumnOutcome>& columns);
    void TellSizes(const std::vector<ColumnOutcome>& columns);

    TargetOptions options_;
    Reporter& reporter_;
    std::string name_;  // of the output, in messages
    PairWriter writer_;
    bool isBegun_ = false;
    bool isFromPair_ = false;
    std::vector<std::string> wantedNames_;  // of the columns, in the source
};

}  // namespace app
