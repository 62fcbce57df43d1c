// Runs an import of one MIF file through the module.
#pragma once

#include "app/base/Reporter.h"
#include "app/feature/Feature.h"
#include "app/mif/PaddedCopy.h"
#include "app/run/Module.h"
#include "host/gcs/CSDef.h"
#include "host/zeio/TrObjects.h"
#include "standalone/IoHost.h"
#include "standalone/OptionStore.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace app {

// What the subcommands that import have in common.
struct ImportSettings {
    std::filesystem::path path;
    std::filesystem::path shownPath;  // in messages, when path is a copy; empty: path itself
    bool asIs = false;                // --as-is: no care copy
    bool noStore = false;             // --no-store: an empty store that is not written
    std::optional<std::string> optionString;  // --option-string, handed to slot 3 as it stands
    std::string encoding;  // --encoding: code page 0 for the run; empty: by the header's charset
    std::string modulePath;
};

// The options' store of a run: the user's, or with noStore an empty one in memory.
std::unique_ptr<standalone::OptionStore> OpenOptionStore(bool noStore);

// Whether the object is one that is drawn, and so has a row of attributes.
bool IsGraphics(const zeio::TrBase& object);

// Sets the host's code page 0 for a file: as --encoding says, else by the header's charset, with a
// warning that begins with the file's name when that can't be had. Throws UsageError for an
// encoding that the system does not know.
void ChooseCodePage(const MifHeader& header, const std::string& name, const std::string& encoding,
                    Reporter& reporter);

// A host that forwards progress and warnings to a reporter. Objects are dropped; derive for more.
class ReportingHost : public zeio::IoHost {
public:
    // Both must outlive the host. subject names the file in warnings.
    ReportingHost(standalone::OptionStore& store, Reporter& reporter, std::string subject);

    int Warning(shr::IError::WarnStyle style, const std::wstring& text) override;
    void ProgressStart(const std::wstring& title, bool canCancel, bool hasProportion) override;
    void ProgressProportion(double fraction) override;
    void ProgressIndeterminate() override;
    void ProgressEnd() override;

    // Warnings given so far.
    int WarningCount() const { return warningCount_; }

private:
    Reporter& reporter_;
    std::string subject_;
    int warningCount_ = 0;
};

// Receives translation objects as the module hands them over; may move parts out of them.
using ObjectSink = std::function<void(zeio::TrBase&)>;

// Receives features; may change and move them.
using FeatureSink = std::function<void(Feature&)>;

// What an import left to say.
struct ImportResult {
    MifHeader header;
    std::uint64_t objectCount = 0;  // graphic objects that reached the sink
    int warningCount = 0;
};

// Imports the file of the settings into the sink: header scan, care copy, encoding, module, run. A
// run that handed over no graphic object says so on the reporter. Throws Failure (the module's
// errors included, with the user's own path in their texts); what the sink throws passes unchanged.
ImportResult RunImport(const ImportSettings& settings, Reporter& reporter, const ObjectSink& sink);

// What a layer's reader must know before its first feature.
struct Layer {
    MifHeader header;
    std::vector<LayerColumn> columns;
    std::unique_ptr<gcs::CSDef> coordinateSystem;  // null: not an Earth system
};
using LayerSink = std::function<void(const Layer&)>;

// The same as features: layerSink is called once, before the first feature and also when there is
// none.
ImportResult ImportFeatures(const ImportSettings& settings, Reporter& reporter,
                            const LayerSink& layerSink, const FeatureSink& featureSink);

}  // namespace app
