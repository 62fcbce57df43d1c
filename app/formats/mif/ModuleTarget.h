// Writes features to a MIF/MID pair through the module's export filter: what --as-is asks for.
#pragma once

#include "app/feature/Target.h"
#include "app/run/ExportRun.h"
#include "host/zeio/TrObjects.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace app {

// What the options mean for an export to `path`.
ExportSettings ExportSettingsOf(const std::filesystem::path& path, const TargetOptions& options);

class ModuleTarget : public Target {
public:
    // reporter must outlive the target. Throws Failure.
    ModuleTarget(const std::filesystem::path& path, const TargetOptions& options,
                 Reporter& reporter);
    ~ModuleTarget() override;

    void BeginLayer(const LayerFacts& layer) override;

    // Geometries without a pen are written with a thin black one, and without a brush with no fill.
    // Each section of a line and each member of a collection becomes an object of its own with the
    // feature's values; an arc becomes a line. Texts and points are left out when the filter's
    // answer says that it does not render them, and so are features without geometry: the filter
    // knows no object for them.
    void Write(Feature& feature) override;

    // Warns of features that were left out for want of a geometry.
    bool Finish() override;

private:
    void WriteGeometry(Geometry& geometry, const shr::CParamList& attributes);
    void SendStyle(const Geometry& geometry);
    void SendGeometry(const Geometry& geometry, const shr::CParamList& attributes);
    void SendText(const Geometry& geometry, const shr::CParamList& attributes);
    void Send(zeio::TrGraphics& object, const shr::CParamList& attributes);
    shr::CParamList Attributes(const Feature& feature) const;

    ExportRun run_;
    std::vector<std::wstring> names_;  // of the columns
    std::optional<zeio::TrPen> pen_;   // the one sent last
    std::optional<zeio::TrBrush> brush_;
    std::uint64_t withoutGeometry_ = 0;
    Reporter& reporter_;
    std::string name_;  // of the output, in messages
};

// The value as the text of a row: numbers in their shortest form, no value as an empty text.
std::string TextOfValue(const Value& value);

}  // namespace app
