// Prints what differs between two files, for people or as one JSON document.
#pragma once

#include "app/base/Output.h"
#include "app/diff/LayerDiff.h"
#include "app/diff/SharedColumns.h"

#include <cstdint>
#include <string>
#include <vector>

namespace app {

struct DiffTotals {
    std::uint64_t added = 0;
    std::uint64_t removed = 0;
    std::uint64_t changed = 0;
    std::uint64_t same = 0;

    std::uint64_t Different() const { return added + removed + changed; }
};

struct ReportSettings {
    bool json = false;
    std::uint64_t most = 100;  // features that are printed of a layer; 0: all
};

// One comparison of two layers after another. The output must outlive the report.
class DiffReport : public DiffSink {
public:
    // `left` and `right` name the files.
    DiffReport(OutputFile& output, ReportSettings settings, std::string left, std::string right);

    // Layers that only one of the files has; called before the first BeginLayer.
    void OnlyLayers(const std::vector<std::string>& inLeft,
                    const std::vector<std::string>& inRight);

    // `left` and `right` name the layers, with their files. `columns` must stay until EndLayer.
    void BeginLayer(const std::string& left, const std::string& right,
                    const SharedColumns& columns);

    void Removed(const Feature& left) override;
    void Added(const Feature& right) override;
    void Changed(const Feature& left, const Feature& right,
                 const FeatureDifference& difference) override;
    void Same() override { ++totals_.same; }

    // Returns the counts of the layer.
    DiffTotals EndLayer();

    // Ends the document. True when nothing differs in any layer.
    bool Finish();

private:
    bool IsShown();
    void BeginText();
    void Line(const std::string& text);
    std::string Name(const Feature& feature) const;
    std::string ValuesInWords(const Feature& feature) const;
    void OneSided(const char* change, const Feature& feature);
    void WriteJson(const std::string& object);

    OutputFile& output_;
    ReportSettings settings_;
    std::string left_;
    std::string right_;
    std::string leftLayer_;
    std::string rightLayer_;
    const SharedColumns* columns_ = nullptr;  // of the layer under way
    DiffTotals totals_;
    std::uint64_t shown_ = 0;
    bool hasHeading_ = false;  // the names of the layers are printed
    bool hasLayer_ = false;    // JSON: a layer stands before the next one
    bool isAnyDifferent_ = false;
};

}  // namespace app
