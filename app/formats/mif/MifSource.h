// Reads a MIF/MID pair: as its author meant it, or with --as-is what the module makes of it.
#pragma once

#include "app/feature/Source.h"
#include "app/mif/Cares.h"
#include "app/mif/PairReading.h"
#include "app/mif/RowReader.h"
#include "app/run/ImportRun.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace app {

class PairFeatures;

class MifSource : public Source {
public:
    // Opens nothing yet. The path may be that of the .mid file.
    MifSource(const std::filesystem::path& path, SourceOptions options);
    ~MifSource() override;

    // One layer, with the stem of the file's name.
    std::vector<std::string> LayerNames() const override;

    // Passes over both files, or with --as-is reads the header by the module.
    LayerFacts Begin(std::size_t layer, Reporter& reporter) override;

    // Says on the reporter what was read differently from what the file says, once for all kinds
    // of faults, the first time.
    void Read(Reporter& reporter, const FeatureSink& sink) override;

    // The objects of the layer as the module hands them over, in place of Read. With --as-is only.
    void ReadObjects(Reporter& reporter, const ObjectSink& sink);

    const std::filesystem::path& Path() const { return path_; }

    // In place of Begin: takes a header that was read already, and may lack its end. Read can't
    // follow.
    LayerFacts BeginHeader(const PassedHeader& passed, Reporter& reporter);

    // Once Begin or BeginHeader was called.
    const MifHeader& Header() const { return header_; }
    const ImportRun& Run() const { return *run_; }

private:
    void BeginAsIs(Reporter& reporter);
    void BeginReading(Reporter& reporter);
    void UseOwnCodePage() const;
    void FillFacts();
    LayerFacts CompletedFacts();
    void MakeRun(const std::filesystem::path& path, Reporter& reporter);
    void ReadJoined(Reporter& reporter, const FeatureSink& sink);
    void ReadAsIs(Reporter& reporter, const FeatureSink& sink);
    void SayCares(const PairFeatures& features, const RowCares& rowCares, bool hasMoreRows,
                  Reporter& reporter);
    void SayAll(const std::vector<Care>& cares, Reporter& reporter) const;

    std::filesystem::path path_;
    SourceOptions options_;
    MifHeader header_;
    std::unique_ptr<PairReading> reading_;  // null with --as-is, and before the first Begin
    std::optional<ImportRun> run_;          // absent before the first Begin
    LayerFacts facts_;
    std::string
        codePage_;  // once begun without --as-is: the process may read one file after another
    bool hasSaidCares_ = false;
};

}  // namespace app
