#include "app/run/ImportRun.h"

#include "app/base/Errors.h"
#include "app/base/InputFile.h"
#include "app/base/Paths.h"
#include "app/mif/CoordSysCodes.h"
#include "standalone/Text.h"

#ifdef QOLF_HAS_CRS
#include "app/mif/Charsets.h"
#endif

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <memory>
#include <utility>

namespace app {
namespace {

// Longer headers are not kept in memory for ImportHeader.
constexpr std::uint64_t kMostHeaderBytes = std::uint64_t{1} << 20;

// Ends an import once its first part is known.
struct HeaderIsOver {};

bool IsOfHeader(const zeio::TrBase& object) {
    const shr::CTypeInfo* type = object.GetTypeId();
    return type == zeio::TrInitGraphicsImp::GetClassTypeId() ||
           type == zeio::TrCRS::GetClassTypeId() || type == zeio::TrNamedIds::GetClassTypeId();
}

// Says what a user can do when the module stopped an import.
std::string AdviceFor(const MifHeader& header, const std::string& name) {
    if (header.unknownProjection) {
        const std::int64_t code = *header.unknownProjection;
        return "Projection code " + std::to_string(code) + " is " + ProjectionInWords(code) + ". " +
               AdviceForProjection(code);
    }
    return "'qolf check " + name + "' says more.";
}

// Scans the header, and keeps its bytes up to the line after Data when they are few.
MifHeader ReadHeader(const std::filesystem::path& path, std::string& bytes) {
    const InputFile stream = OpenInput(path);
    if (stream == nullptr) {
        throw Failure(PathText(path) + ": can't open: " + std::strerror(errno));
    }
    MifHeader header = ScanHeader(stream.get());
    if (header.hasData && header.dataOffset <= kMostHeaderBytes) {
        bytes.resize(static_cast<std::size_t>(header.dataOffset));
        std::rewind(stream.get());
        bytes.resize(std::fread(bytes.data(), 1, bytes.size(), stream.get()));
    }
    return header;
}

// Returns the bytes with an empty line at each offset.
std::string Padded(std::string bytes, const std::vector<std::uint64_t>& offsets) {
    for (auto offset = offsets.rbegin(); offset != offsets.rend(); ++offset) {
        bytes.insert(static_cast<std::size_t>(*offset), 1, '\n');
    }
    return bytes;
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

void ChooseCodePage(const MifHeader& header, const std::string& name, const std::string& encoding,
                    Reporter& reporter) {
    if (!encoding.empty()) {
        if (!standalone::SetCodePage0(encoding)) {
            throw UsageError("--encoding " + encoding + ": the system knows no such encoding");
        }
        return;
    }
#ifdef QOLF_HAS_CRS
    const CodePageChoice choice = CodePageOf(header);
    if (!choice.warning.empty()) {
        reporter.Warning(name + ": " + choice.warning);
    }
    if (!standalone::SetCodePage0(choice.codePage)) {
        reporter.Warning(name + ": the system can't read " + choice.codePage +
                         "; taken as Windows-1252");
        static_cast<void>(standalone::SetCodePage0("CP1252"));  // the host's own, always there
    }
#else
    static_cast<void>(header);
    static_cast<void>(name);
    static_cast<void>(reporter);
#endif
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
        return run_.hasWarned_ ? 0
                               : ReportingHost::Warning(style, run_.copy_->WithOriginalPath(text));
    }

    void ImportObject(zeio::TrBase& object) override { sink_(object); }

private:
    const ImportRun& run_;
    const ObjectSink& sink_;
};

ImportRun::ImportRun(ImportSettings settings, Reporter& reporter)
    : settings_(std::move(settings)), header_(ReadHeader(settings_.path, headerBytes_)),
      module_(settings_.modulePath) {
    if (const std::string problem = UnitProblem(header_); !problem.empty()) {
        reporter.Warning(ShownName() + ": " + problem);
    }
    ChooseCodePage(header_, PathText(settings_.path), settings_.encoding, reporter);
    codePage_ = standalone::CodePage0();
    MifHeader careHeader = header_;
    if (settings_.asIs) {
        careHeader.careOffsets.clear();
    }
    copy_.emplace(settings_.path, careHeader);
    headerBytes_ = Padded(std::move(headerBytes_), careHeader.careOffsets);
    reporter.Detail("module: " + PathText(module_.Path()));
}

ImportRun::~ImportRun() = default;

std::string ImportRun::ShownName() const {
    return PathText(settings_.shownPath.empty() ? settings_.path : settings_.shownPath);
}

void ImportRun::Rethrow(const shr::IError& error) const {
    std::string text = standalone::Narrow(copy_->WithOriginalPath(error.Message()));
    const std::string read = PathText(settings_.path);
    const std::string name = ShownName();
    if (const std::size_t at = text.find(read); at != std::string::npos) {
        text.replace(at, read.size(), name);
    }
    if (text.find(name) == std::string::npos) {
        text = name + ": " + text;
    }
    throw Failure(text + (text.ends_with('.') ? " " : ". ") + AdviceFor(header_, name));
}

void ImportRun::Import(const std::filesystem::path& path, Reporter& reporter,
                       const ObjectSink& sink) {
    static_cast<void>(standalone::SetCodePage0(codePage_));  // other runs may have set theirs since
    const auto store = OpenOptionStore(settings_.noStore);
    Host host(*store, reporter, *this, sink);
    zeio::IoManager manager(host);
    const ImportFilterPtr filter = module_.NewImportFilter(manager);
    if (settings_.optionString) {
        filter->SetOptionsFromString(standalone::Widen(*settings_.optionString));
    }
    filter->Import(WidePath(path));
    hasWarned_ = true;
}

void ImportRun::ImportHeader(Reporter& reporter, const ObjectSink& sink) {
    Reporter withoutProgress = reporter;
    withoutProgress.SetProgress(false);
    const ObjectSink headerSink = [&sink](zeio::TrBase& object) {
        if (!IsOfHeader(object)) {
            throw HeaderIsOver();
        }
        sink(object);
    };
    if (!headerBytes_.empty()) {
        const TempFolder folder;
        const std::filesystem::path path = folder.File(settings_.path.filename());
        std::ofstream(path, std::ios::binary) << headerBytes_;
        try {
            Import(path, withoutProgress, headerSink);
            return;
        } catch (const shr::IError&) {
            // Imported again from the file itself, for the error with the user's path; or because
            // the module looks for the header's end behind this Data line.
        }
    }
    try {
        Import(ReadPath(), withoutProgress, headerSink);
    } catch (const HeaderIsOver&) {
        hasWarned_ = true;
    } catch (const shr::IError& error) {
        Rethrow(error);
    }
}

void ImportRun::Import(Reporter& reporter, const ObjectSink& sink) {
    std::uint64_t objectCount = 0;
    const ObjectSink counting = [&](zeio::TrBase& object) {
        objectCount += IsGraphics(object) ? 1 : 0;
        sink(object);
    };
    try {
        Import(ReadPath(), reporter, counting);
    } catch (const shr::IError& error) {
        Rethrow(error);
    }
    if (objectCount == 0) {
        reporter.Warning(ShownName() + ": holds no objects");
    }
}

void RunImport(const ImportSettings& settings, Reporter& reporter, const ObjectSink& sink) {
    ImportRun(settings, reporter).Import(reporter, sink);
}

}  // namespace app
