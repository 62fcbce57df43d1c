#include "app/ExportRun.h"

#include "app/Errors.h"
#include "app/Paths.h"
#include "standalone/Text.h"

namespace app {
namespace {

class ExportHost : public ReportingHost {
public:
    ExportHost(standalone::OptionStore& store, Reporter& reporter, std::string subject)
        : ReportingHost(store, reporter, std::move(subject)) {}

    // Progress belongs to whoever reads the input: it knows how much is left.
    void ProgressStart(const std::wstring&, bool, bool) override {}
    void ProgressIndeterminate() override {}
    void ProgressEnd() override {}
};

}  // namespace

// Members are destroyed from the last to the first: the filter deletes what is unfinished, then the
// pair's folder goes.
struct ExportRun::Parts {
    Parts(const ExportSettings& exportSettings, Reporter& reporter, zeio::IoHost* otherHost)
        : settings(exportSettings), pair(settings.path, settings.ifExists),
          module(settings.modulePath), store(OpenOptionStore(settings.noStore)),
          ownHost(*store, reporter, PathText(settings.path)),
          manager(otherHost != nullptr ? *otherHost : ownHost),
          filter(module.NewExportFilter(manager)) {}

    ExportSettings settings;
    OutputPair pair;
    Module module;
    std::unique_ptr<standalone::OptionStore> store;
    ExportHost ownHost;
    zeio::IoManager manager;
    ExportFilterPtr filter;
};

namespace {

[[noreturn]] void Rethrow(const shr::IError& error, const OutputPair& pair,
                          const std::filesystem::path& path) {
    const std::string text = standalone::Narrow(pair.WithFinalPath(error.Message()));
    const std::string name = PathText(path.filename());
    throw Failure(text.find(name) == std::string::npos ? PathText(path) + ": " + text : text);
}

}  // namespace

ExportRun::ExportRun(const ExportSettings& settings, Reporter& reporter, zeio::IoHost* host)
    : parts_(std::make_unique<Parts>(settings, reporter, host)) {
    try {
        if (settings.optionString) {
            parts_->filter->SetOptionsFromString(standalone::Widen(*settings.optionString));
        }
        beginStatus_ = parts_->filter->BeginExport(WidePath(parts_->pair.WorkPath()));
    } catch (const shr::IError& error) {
        Rethrow(error, parts_->pair, settings.path);
    }
}

ExportRun::~ExportRun() = default;

zeio::ExportStatus ExportRun::Send(zeio::TrBase& object) {
    try {
        return parts_->filter->ExportObject(object);
    } catch (const shr::IError& error) {
        Rethrow(error, parts_->pair, parts_->settings.path);
    }
}

bool ExportRun::Finish() {
    zeio::ExportStatus status = zeio::ExportStatus::NothingWritten;
    try {
        status = parts_->filter->EndExport();
    } catch (const shr::IError& error) {
        Rethrow(error, parts_->pair, parts_->settings.path);
    }
    if (status == zeio::ExportStatus::NothingWritten) {
        return false;
    }
    parts_->pair.Finish();
    return true;
}

}  // namespace app
