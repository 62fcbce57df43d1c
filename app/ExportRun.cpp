#include "app/ExportRun.h"

#include "app/Errors.h"
#include "app/Paths.h"
#include "app/TraceHost.h"
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
    Parts(const ExportSettings& exportSettings, Reporter& reporter, TraceHost* traceHost)
        : settings(exportSettings), pair(settings.path, settings.ifExists),
          module(settings.modulePath), store(OpenOptionStore(settings.noStore)),
          ownHost(*store, reporter, PathText(settings.path)), trace(traceHost),
          manager(trace != nullptr ? static_cast<zeio::IoHost&>(*trace) : ownHost),
          filter(module.NewExportFilter(manager)) {}

    // Tells the trace what the filter threw, and the user in the user's own words for the files.
    [[noreturn]] void Rethrow(const shr::IError& error) const;

    ExportSettings settings;
    OutputPair pair;
    Module module;
    std::unique_ptr<standalone::OptionStore> store;
    ExportHost ownHost;
    TraceHost* trace;  // null without one
    zeio::IoManager manager;
    ExportFilterPtr filter;
};

void ExportRun::Parts::Rethrow(const shr::IError& error) const {
    if (trace != nullptr) {
        trace->Thrown(error, [this](const std::wstring& text) { return pair.WithFinalPath(text); });
    }
    const std::string text = standalone::Narrow(pair.WithFinalPath(error.Message()));
    const std::string name = PathText(settings.path.filename());
    throw Failure(text.find(name) == std::string::npos ? PathText(settings.path) + ": " + text
                                                       : text);
}

ExportRun::ExportRun(const ExportSettings& settings, Reporter& reporter, TraceHost* trace)
    : parts_(std::make_unique<Parts>(settings, reporter, trace)) {
    try {
        if (settings.optionString) {
            parts_->filter->SetOptionsFromString(standalone::Widen(*settings.optionString));
        }
        beginStatus_ = parts_->filter->BeginExport(WidePath(parts_->pair.WorkPath()));
    } catch (const shr::IError& error) {
        parts_->Rethrow(error);
    }
}

ExportRun::~ExportRun() = default;

zeio::ExportStatus ExportRun::Send(zeio::TrBase& object) {
    try {
        return parts_->filter->ExportObject(object);
    } catch (const shr::IError& error) {
        parts_->Rethrow(error);
    }
}

bool ExportRun::Finish() {
    zeio::ExportStatus status = zeio::ExportStatus::NothingWritten;
    try {
        status = parts_->filter->EndExport();
    } catch (const shr::IError& error) {
        parts_->Rethrow(error);
    }
    if (status == zeio::ExportStatus::NothingWritten) {
        return false;
    }
    parts_->pair.Finish();
    return true;
}

}  // namespace app
