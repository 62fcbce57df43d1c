#include "app/run/ExportRun.h"

#include "app/base/Errors.h"
#include "app/base/Paths.h"
#include "host/zeio/Errors.h"
#include "standalone/Text.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>

namespace app {
namespace {

// Bits of the filter's answer.
constexpr std::uint32_t kRendersText = 0x1;
constexpr std::uint32_t kRendersMarkers = 0x2;

// Whether a failed write can have this reason.
bool IsReason(int errorNumber) {
    constexpr std::array kReasons{ENOSPC, EFBIG, EIO};
    return std::ranges::find(kReasons, errorNumber) != kReasons.end();
}

class ExportHost : public ReportingHost {
public:
    ExportHost(standalone::OptionStore& store, Reporter& reporter, std::string subject)
        : ReportingHost(store, reporter, std::move(subject)) {}

    // The reading side shows the progress: it knows how much of the input is left.
    void ProgressStart(const std::wstring&, bool, bool) override {}
    void ProgressIndeterminate() override {}
    void ProgressEnd() override {}
};

}  // namespace

// Members are destroyed from the last to the first: first the filter, which deletes unfinished
// files, and at last the pair's private folder.
struct ExportRun::Parts {
    Parts(const ExportSettings& exportSettings, Reporter& reporter, ObservingHost* theObserver)
        : settings(exportSettings), pair(settings.path, settings.ifExists),
          module(settings.modulePath), store(OpenOptionStore(settings.noStore)),
          ownHost(*store, reporter, PathText(settings.path)), observer(theObserver),
          manager(observer != nullptr ? static_cast<zeio::IoHost&>(*observer) : ownHost),
          filter(module.NewExportFilter(manager)) {}

    // Passes the filter's error to the observer, and throws it as a Failure with the user's path
    // and the system's reason, where `errorNumber` is one for a failed write.
    [[noreturn]] void Rethrow(const shr::IError& error, int errorNumber) const;

    ExportSettings settings;
    OutputPair pair;
    Module module;
    std::unique_ptr<standalone::OptionStore> store;
    ExportHost ownHost;
    ObservingHost* observer;  // null without one
    zeio::IoManager manager;
    ExportFilterPtr filter;
};

void ExportRun::Parts::Rethrow(const shr::IError& error, int errorNumber) const {
    if (observer != nullptr) {
        observer->Thrown(error,
                         [this](const std::wstring& text) { return pair.WithFinalPath(text); });
    }
    // The filter only says that it can't write.
    if (IsReason(errorNumber) && dynamic_cast<const zeio::FileWriteError*>(&error) != nullptr) {
        throw Failure(PathText(settings.path) + ": can't write: " + std::strerror(errorNumber));
    }
    const std::string text = standalone::Narrow(pair.WithFinalPath(error.Message()));
    const std::string name = PathText(settings.path.filename());
    throw Failure(text.find(name) == std::string::npos ? PathText(settings.path) + ": " + text
                                                       : text);
}

ExportRun::ExportRun(const ExportSettings& settings, Reporter& reporter, ObservingHost* observer)
    : parts_(std::make_unique<Parts>(settings, reporter, observer)) {
    errno = 0;
    try {
        if (settings.optionString) {
            parts_->filter->SetOptionsFromString(standalone::Widen(*settings.optionString));
        }
        beginStatus_ = parts_->filter->BeginExport(WidePath(parts_->pair.WorkPath()));
    } catch (const shr::IError& error) {
        parts_->Rethrow(error, errno);
    }
}

ExportRun::~ExportRun() = default;

zeio::ExportStatus ExportRun::Begin(const shr::Box3d& extent) {
    zeio::TrInitGraphicsExp questions;
    questions.extent = extent;
    const zeio::ExportStatus status = Send(questions);
    capabilities_ = questions.capabilities;
    return status;
}

bool ExportRun::RendersText() const {
    return (capabilities_ & kRendersText) != 0;
}

bool ExportRun::RendersMarkers() const {
    return (capabilities_ & kRendersMarkers) != 0;
}

void ExportRun::SendSystem(const gcs::CSDef& system) {
    zeio::TrCRS object;
    object.SetCS(&system);
    Send(object);
}

void ExportRun::SendColumns(const std::vector<std::wstring>& names) {
    zeio::TrNamedIds object;
    object.names = names;
    Send(object);
}

zeio::ExportStatus ExportRun::Send(zeio::TrBase& object) {
    errno = 0;
    try {
        return parts_->filter->ExportObject(object);
    } catch (const shr::IError& error) {
        parts_->Rethrow(error, errno);
    }
}

bool ExportRun::Finish() {
    zeio::ExportStatus status = zeio::ExportStatus::NothingWritten;
    errno = 0;
    try {
        status = parts_->filter->EndExport();
    } catch (const shr::IError& error) {
        parts_->Rethrow(error, errno);
    }
    if (status == zeio::ExportStatus::NothingWritten) {
        return false;
    }
    parts_->pair.Finish();
    return true;
}

}  // namespace app
