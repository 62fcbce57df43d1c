#include "app/run/ImportRun.h"

#include "app/base/Errors.h"
#include "app/base/Paths.h"
#include "app/mif/CoordSysCodes.h"
#include "app/mif/MifHeader.h"
#include "standalone/Text.h"

#include <memory>
#include <utility>

namespace app {
namespace {

// Ends an import once its first part is known.
struct HeaderIsOver {};

bool IsOfHeader(const zeio::TrBase& object) {
    const shr::CTypeInfo* type = object.GetTypeId();
    return type == zeio::TrInitGraphicsImp::GetClassTypeId() ||
           type == zeio::TrCRS::GetClassTypeId() || type == zeio::TrNamedIds::GetClassTypeId();
}

// Why the module does not take the projection of a file that it stopped at; "" when it does.
std::string ProblemOfProjection(const MifHeader& header) {
    if (!header.unknownProjection) {
        return "";
    }
    const std::int64_t code = *header.unknownProjection;
    return " Projection code " + std::to_string(code) + " is " + ProjectionInWords(code) + ".";
}

}  // namespace

bool IsGraphics(const zeio::TrBase& object) {
    const shr::CTypeInfo* type = object.GetTypeId();
    return type == zeio::TrPolyline::GetClassTypeId() ||
           type == zeio::TrPolygon::GetClassTypeId() ||
           type == zeio::TrMarkerSet::GetClassTypeId() ||
           type == zeio::TrRectangle::GetClassTypeId() ||
           type == zeio::TrEllipse::GetClassTypeId() || type == zeio::TrText::GetClassTypeId();
}

std::unique_ptr<standalone::OptionStore> OpenOptionStore(bool noStore) {
    const std::filesystem::path file = standalone::OptionStore::UserFile();
    return noStore || file.empty() ? std::make_unique<standalone::OptionStore>()
                                   : std::make_unique<standalone::OptionStore>(file);
}

ReportingHost::ReportingHost(standalone::OptionStore& store, Reporter& reporter,
                             std::string subject)
    : IoHost(store), reporter_(reporter), subject_(std::move(subject)) {}

int ReportingHost::Warning(shr::IError::WarnStyle, const std::wstring& text) {
    std::string message = standalone::Narrow(text);
    // The reporter says "warning" itself.
    if (message.starts_with("WARNING:\n")) {
        message.erase(0, std::string("WARNING:\n").size());
    }
    reporter_.Warning(subject_ + ": " + message);
    return 0;
}

void ReportingHost::ProgressStart(const std::wstring&, bool, bool) {
    reporter_.StartProgress(subject_, SizeOfFile(PathFromArgument(subject_)));
}

void ReportingHost::ProgressProportion(double fraction) {
    reporter_.Progress(fraction);
}

void ReportingHost::ProgressIndeterminate() {
    reporter_.Progress(-1.0);
}

void ReportingHost::ProgressEnd() {
    reporter_.EndProgress();
}

// Forwards the objects to a sink, and the module's texts with the user's own path in them.
class ImportRun::Host : public ReportingHost {
public:
    Host(standalone::OptionStore& store, Reporter& reporter, const ImportRun& run,
         const ObjectSink& sink)
        : ReportingHost(store, reporter, run.ShownName()), run_(run), sink_(sink) {}

    int Warning(shr::IError::WarnStyle style, const std::wstring& text) override {
        return run_.hasWarned_ ? 0 : ReportingHost::Warning(style, run_.WithShownPath(text));
    }

    void ImportObject(zeio::TrBase& object) override { sink_(object); }

private:
    const ImportRun& run_;
    const ObjectSink& sink_;
};

ImportRun::ImportRun(ImportSettings settings, Reporter& reporter)
    : settings_(std::move(settings)), module_(settings_.modulePath) {
    reporter.Detail("module: " + PathText(module_.Path()));
}

ImportRun::~ImportRun() = default;

std::string ImportRun::ShownName() const {
    return PathText(settings_.shownPath.empty() ? settings_.path : settings_.shownPath);
}

std::wstring ImportRun::WithShownPath(std::wstring text) const {
    const std::wstring read = WidePath(settings_.path);
    const std::wstring shown = standalone::Widen(ShownName());
    for (std::size_t at = text.find(read); at != std::wstring::npos; at = text.find(read, at)) {
        text.replace(at, read.size(), shown);
        at += shown.size();
    }
    return text;
}

void ImportRun::Rethrow(const shr::IError& error) const {
    std::string text = standalone::Narrow(WithShownPath(error.Message()));
    const std::string name = ShownName();
    if (text.find(name) == std::string::npos) {
        text = name + ": " + text;
    }
    while (text.ends_with(' ')) {
        text.pop_back();
    }
    // The module has no words for a file that ends before its header does.
    if (text.ends_with("'.")) {
        text += "  The file ends before the line Data.";
    }
    text += text.ends_with('.') ? "" : ".";
    const MifHeader header = ScanHeader(settings_.path);
    throw ImportFailure(text + ProblemOfProjection(header),
                        header.unknownProjection ? AdviceForProjection(*header.unknownProjection)
                                                 : "'qolf check " + name + "' says more.");
}

void ImportRun::RunFilter(Reporter& reporter, const ObjectSink& sink) {
    if (!settings_.codePage.empty()) {
        static_cast<void>(standalone::SetCodePage0(settings_.codePage));  // others set theirs, too
    }
    const auto store = OpenOptionStore(settings_.noStore);
    Host host(*store, reporter, *this, sink);
    zeio::IoManager manager(host);
    const ImportFilterPtr filter = module_.NewImportFilter(manager);
    if (settings_.optionString) {
        filter->SetOptionsFromString(standalone::Widen(*settings_.optionString));
    }
    filter->Import(WidePath(settings_.path));
    hasWarned_ = true;
}

void ImportRun::ImportHeader(Reporter& reporter, const ObjectSink& sink) {
    Reporter withoutProgress = reporter;
    withoutProgress.SetProgress(false);
    try {
        RunFilter(withoutProgress, [&sink](zeio::TrBase& object) {
            if (!IsOfHeader(object)) {
                throw HeaderIsOver();
            }
            sink(object);
        });
    } catch (const HeaderIsOver&) {
        hasWarned_ = true;
    } catch (const shr::IError& error) {
        Rethrow(error);
    }
}

std::uint64_t ImportRun::Import(Reporter& reporter, const ObjectSink& sink) {
    std::uint64_t objectCount = 0;
    const ObjectSink counting = [&](zeio::TrBase& object) {
        objectCount += IsGraphics(object) ? 1 : 0;
        sink(object);
    };
    try {
        RunFilter(reporter, counting);
    } catch (const shr::IError& error) {
        Rethrow(error);
    }
    return objectCount;
}

}  // namespace app
