// Writes features to a MIF/MID pair through the module's export filter.
#pragma once

#include "app/feature/Target.h"
#include "app/run/ExportRun.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace app {

class MifTarget : public FeatureTarget {
public:
    // reporter must outlive the target. Throws Failure.
    MifTarget(const ExportSettings& settings, Reporter& reporter);
    ~MifTarget() override;

    void BeginLayer(const LayerFacts& layer) override;

    // Features without a style of their own are written with a thin black pen and no fill. Texts
    // and points are left out when the filter's answer says that it does not render them.
    void Write(Feature& feature) override;
    bool Finish() override;
    bool TakesCurves() const override { return true; }

private:
    void SendStyle(const Feature& feature);
    void SendGeometry(Feature& feature);
    void SendText(const Feature& feature);
    shr::CParamList Attributes(const Feature& feature) const;

    ExportRun run_;
    std::vector<std::wstring> names_;  // of the columns
    std::optional<zeio::TrPen> pen_;   // the one sent last
    std::optional<zeio::TrBrush> brush_;
    std::uint32_t capabilities_ = 0;  // the filter's answer
};

// The filter's capability bits that a host asks before it sends texts and points.
bool RendersText(std::uint32_t capabilities);
bool RendersMarkers(std::uint32_t capabilities);

// The value as the text of a row: numbers in their shortest form, no value as an empty text.
std::string TextOfValue(const Value& value);

}  // namespace app
