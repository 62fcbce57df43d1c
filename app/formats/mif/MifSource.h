// Reads a MIF/MID pair through the module's import filter.
#pragma once

#include "app/base/TempFolder.h"
#include "app/feature/FeatureBuilder.h"
#include "app/feature/Source.h"
#include "app/mif/CopyWithoutCoordSys.h"
#include "app/run/ImportRun.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace app {

class MifSource : public Source {
public:
    // Opens nothing yet.
    MifSource(const std::filesystem::path& path, SourceOptions options);

    // One layer, with the stem of the file's name.
    std::vector<std::string> LayerNames() const override;

    // Scans the header, and makes the private copies that the file or an option asks for.
    LayerFacts Begin(std::size_t layer, Reporter& reporter) override;

    void Read(Reporter& reporter, const FeatureSink& sink) override;

    // The objects of the layer as the module hands them over, in place of Read.
    void ReadObjects(Reporter& reporter, const ObjectSink& sink);

    // The run behind the layer, once Begin has made it.
    ImportRun& Run() { return *run_; }

private:
    void PrepareCopies(Reporter& reporter);

    std::filesystem::path path_;
    SourceOptions options_;
    std::filesystem::path readPath_;                   // path_, or a private copy
    std::optional<TempFolder> repaired_;               // absent when nothing is repaired
    std::optional<check::NeutralCopy> withoutSystem_;  // absent unless a system is assumed
    std::optional<ImportRun> run_;                     // absent before the first Begin
    LayerFacts facts_;
};

}  // namespace app
