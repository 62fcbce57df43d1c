#include "export/MifExportFilter.h"

#include "export/CoordSysWriter.h"
#include "export/ErrorOrigins.h"
#include "export/MifExportDlg.h"
#include "export/StyleCodes.h"
#include "host/platform/Stdio.h"
#include "host/shr/CPath.h"
#include "host/zeio/IoManager.h"

#include <algorithm>
#include <cerrno>
#include <iterator>

namespace mif {

namespace {

constexpr const wchar_t* kModuleName = L"qolf";
constexpr const wchar_t* kAreasToCurves = L"AreasToCurves";
constexpr const wchar_t* kRenderText = L"RenderText";
constexpr const wchar_t* kRenderMarkers = L"RenderMarkers";

constexpr unsigned kManyObjectsVersion = 800;
constexpr std::uint64_t kManyObjects = 32000;  // PLINE and REGION objects that 300 can hold
constexpr std::uint32_t kObjectsPerProgressStep = 100;

constexpr const wchar_t* kOpenError = L"File write or file create error";
constexpr const wchar_t* kWriteError = L"File write error";

// Four characters wide, so that a later version takes the place of an earlier one.
std::string VersionLine(unsigned version) {
    std::string number = std::to_string(version);
    number.insert(0, number.size() < 4 ? 4 - number.size() : 0, ' ');
    return "VERSION " + number + '\n';
}

}  // namespace

template <class Object, void (MifExportFilter::*Handler)(Object&)>
constexpr MifExportFilter::ObjectKind MifExportFilter::Kind(bool isGraphic) {
    // Functions of our own: the address of one in another library is no constant on every system.
    return {.typeId = [] { return Object::GetClassTypeId(); },
            .handle = [](MifExportFilter& filter,
                         zeio::TrBase& object) { (filter.*Handler)(static_cast<Object&>(object)); },
            .isGraphic = isGraphic};
}

// The first kind that fits counts; every kind stands once.
constinit const MifExportFilter::ObjectKind MifExportFilter::kObjectKinds[] = {
    Kind<zeio::TrPolyline, &MifExportFilter::WritePolyline>(/*isGraphic=*/true),
    Kind<zeio::TrPolygon, &MifExportFilter::WritePolygon>(/*isGraphic=*/true),
    Kind<zeio::TrMarkerSet, &MifExportFilter::WriteMarkers>(/*isGraphic=*/true),
    Kind<zeio::TrNamedIds, &MifExportFilter::TakeColumns>(/*isGraphic=*/false),
    Kind<zeio::TrRectangle, &MifExportFilter::WriteRectangle>(/*isGraphic=*/true),
    Kind<zeio::TrEllipse, &MifExportFilter::WriteEllipse>(/*isGraphic=*/true),
    Kind<zeio::TrText, &MifExportFilter::WriteText>(/*isGraphic=*/true),
    Kind<zeio::TrCRS, &MifExportFilter::TakeCoordinateSystem>(/*isGraphic=*/false),
    Kind<zeio::TrFont, &MifExportFilter::TakeFont>(/*isGraphic=*/false),
    Kind<zeio::TrPen, &MifExportFilter::TakePen>(/*isGraphic=*/false),
    Kind<zeio::TrBrush, &MifExportFilter::TakeBrush>(/*isGraphic=*/false),
    Kind<zeio::TrInitGraphicsExp, &MifExportFilter::AnswerInitGraphics>(/*isGraphic=*/false),
};

MifExportFilter::MifExportFilter(zeio::IoManager& manager)
    : IoExportFilter(manager), pen_(zeio::TrPen::Style::Undefined, shr::Color4b(0U), 0.0),
      brush_(zeio::TrBrush::Pattern::None), font_(std::wstring()), version_(kFirstVersion) {}

MifExportFilter::~MifExportFilter() {
    try {
        mif_.Discard();
    } catch (...) {
        shr::LogExceptionInfo(kModuleName, kCannotDeleteMif.source, kCannotDeleteMif.line);
    }
    try {
        mid_.Discard();
    } catch (...) {
        shr::LogExceptionInfo(kModuleName, kCannotDeleteMid.source, kCannotDeleteMid.line);
    }
}

void MifExportFilter::GetPropertyPages(std::vector<zeio::IoPropertyPage*>& pages,
                                       const std::wstring& title) {
    ReadSavedOptions(/*persistent=*/true);
    page_ = std::make_unique<MifExportDlg>(Manager(), *this, title, options_);
    page_->Describe(Manager().GetModuleInstance());
    pages.push_back(page_.get());
}

void MifExportFilter::SetOptionsFromString(const std::wstring& options) {
    zeio::IoManager& manager = Manager();
    bool wantsDefaults = false;
    bool forgets = false;
    manager.GetStringOption(options, L"Defaults", wantsDefaults);
    manager.GetStringOption(options, L"ForgetOptions", forgets);
    if (wantsDefaults) {
        options_ = {};
    } else {
        ReadSavedOptions(/*persistent=*/true);
    }
    manager.GetStringOption(options, kAreasToCurves, options_.areasToCurves);
    manager.GetStringOption(options, kRenderText, options_.renderText);
    manager.GetStringOption(options, kRenderMarkers, options_.renderMarkers);
    StoreOptions(!forgets);
}

bool MifExportFilter::SupportsObjectType(const shr::CTypeInfo* type) const {
    return std::any_of(std::begin(kObjectKinds), std::end(kObjectKinds),
                       [type](const ObjectKind& kind) { return kind.typeId() == type; });
}

void MifExportFilter::TakeOptionsFromPage(bool persistent) {
    if (page_ == nullptr) {
        Throw_ERR_INTERNAL(kNoPageToTakeOptionsFrom.source, kNoPageToTakeOptionsFrom.line);
    }
    options_ = page_->options();
    StoreOptions(persistent);
}

void MifExportFilter::ReadSavedOptions(bool persistent) {
    const zeio::IoManager& manager = Manager();
    manager.GetOption(kAreasToCurves, options_.areasToCurves, persistent);
    manager.GetOption(kRenderText, options_.renderText, persistent);
    manager.GetOption(kRenderMarkers, options_.renderMarkers, persistent);
}

void MifExportFilter::StoreOptions(bool persistent) {
    zeio::IoManager& manager = Manager();
    manager.SetOption(kAreasToCurves, options_.areasToCurves, persistent);
    manager.SetOption(kRenderText, options_.renderText, persistent);
    manager.SetOption(kRenderMarkers, options_.renderMarkers, persistent);
}

zeio::ExportStatus MifExportFilter::BeginExport(const std::wstring& path) {
    ForgetRun();  // first, so that EndExport has nothing to finish whatever fails from here on
    if (page_ != nullptr) {
        TakeOptionsFromPage(/*persistent=*/true);
        page_.reset();
    } else {
        options_ = {};
        ReadSavedOptions(/*persistent=*/true);
    }

    progress_.reset();  // an unfinished run's display ends before the next one starts
    progress_ = std::make_unique<zeio::CProgress>(Manager());
    // Started a second time, since the object itself has promised a proportion, and the filter does
    // not know how many objects are still to come.
    Manager().ProgressStart(std::wstring(), /*canCancel=*/true, /*hasProportion=*/false);
    progress_->MessageVA(L"Exporting data to MIF file %s",
                         shr::CPath(path).GetNameAndExtension().c_str());
    OpenFiles(path);
    WriteFirstLines();
    isIncomplete_ = false;
    return zeio::ExportStatus::Done;
}

// Kept: bounds, columns and styles are those that the filter already has. A host that exports twice
// with one filter gets the box of both runs in the second file.
void MifExportFilter::ForgetRun() {
    isHeaderWritten_ = false;
    failedWrite_ = nullptr;
    isIncomplete_ = true;  // until the next one has begun
    version_ = kFirstVersion;
    plineCount_ = 0;
    regionCount_ = 0;
    objectCount_ = 0;
    penWidthPatches_.clear();  // offsets into an earlier run's file
    text_.clear();
    DiscardFiles();
}

void MifExportFilter::OpenFiles(const std::wstring& path) {
    const auto fail = [this](const ErrorOrigin& origin, const std::wstring& name, int error) {
        Throw_ERR_FILE_OPEN(origin.source, origin.line, name,
                            error != 0 ? shr::FormatSystemErrorMsg(error) : kOpenError);
    };
    mif_.SetPath(path);
    mid_.SetPath(shr::CPath::ChangeExtension(path, L".mid"));
    // Some systems don't tell names apart that differ in case only.
    if (mid_.path().size() == path.size() &&
        platform::CompareNoCase(mid_.path().c_str(), path.c_str(), path.size()) == 0) {
        fail(kCannotOpenMif, path, 0);  // both files would be one
    }
    if (!mif_.Open()) {
        fail(kCannotOpenMif, mif_.path(), errno);
    }
    if (!mid_.Open()) {
        fail(kCannotOpenMid, mid_.path(), errno);
    }
}

void MifExportFilter::WriteFirstLines() {
    WriteMif(VersionLine(version_));
    WriteMif("CHARSET \"WindowsLatin1\"\n");
    WriteMif("DELIMITER \",\"\n");
}

zeio::ExportStatus MifExportFilter::ExportObject(zeio::TrBase& object) {
    if (HasFailed()) {
        ThrowWriteError(failedWrite_ != nullptr ? *failedWrite_ : kCannotWriteMif);
    }
    ++objectCount_;
    if (objectCount_ % kObjectsPerProgressStep == 0) {
        Manager().ProgressIndeterminate();
    }
    const shr::CTypeInfo* type = object.GetTypeId();
    for (const ObjectKind& kind : kObjectKinds) {
        if (kind.typeId() == type) {
            isIncomplete_ = kind.isGraphic;  // stays when an exception leaves the handler
            kind.handle(*this, object);
            isIncomplete_ = false;
            return zeio::ExportStatus::Done;
        }
    }
    return zeio::ExportStatus::NotHandled;
}

void MifExportFilter::WriteRestOfHeader() {
    if (isHeaderWritten_) {
        return;
    }
    isHeaderWritten_ = true;
    WriteMif(CoordSysClause());

    boundsOffset_ = mif_.Tell();
    AppendBoundsLine(text_, OutputBounds());
    FlushText();

    if (columns_.size() == 0) {
        columns_.AppendDefault();
    }
    columnsOffset_ = mif_.Tell();
    columns_.AppendBlock(text_);
    text_ += "\nDATA\n";
    FlushText();
}

// The clause of the current system, or of a plane in metres when MIF can't express it.
std::string MifExportFilter::CoordSysClause() {
    std::string clause;
    const gcs::CSDef* definition = system_.GetCS();
    if (definition != nullptr && definition->Type() == gcs::CSType::Earth) {
        unsigned minVersion = kFirstVersion;
        WriteCoordSys(definition, clause, minVersion, /*inlineForm=*/false);
        RaiseVersion(minVersion);
    }
    return clause.empty() ? "COORDSYS Nonearth\n  Units \"m\"\n" : clause;
}

zeio::ExportStatus MifExportFilter::EndExport() {
    if (plineCount_ + regionCount_ > kManyObjects) {
        RaiseVersion(kManyObjectsVersion);
    }
    const bool isComplete = !HasFailed() && (!mif_.isOpen() || Complete());
    // Both are closed whatever the other one says.
    const bool isMifWhole = mif_.Close();
    const bool isMidWhole = mid_.Close();
    if (!isHeaderWritten_) {
        DiscardFiles();
        progress_.reset();
        return zeio::ExportStatus::NothingWritten;
    }
    if (!isComplete || !isMifWhole || !isMidWhole) {
        progress_.reset();
        DiscardFiles();
        FailWriting(kCannotComplete);
    }
    mif_.Keep();
    mid_.Keep();
    progress_.reset();
    return zeio::ExportStatus::Done;
}

// Overwrites what was written ahead of its time. False when a write failed; one that the stream has
// only put off shows when the file is closed.
bool MifExportFilter::Complete() {
    if (!isHeaderWritten_) {
        WarnOfLimits();  // both files go, but the user hears of the limits all the same
        return true;
    }
    if (version_ > kFirstVersion && !OverwriteMif(0, VersionLine(version_))) {
        return false;
    }
    std::string boundsLine;
    AppendBoundsLine(boundsLine, bounds_);
    if (!PatchPenWidths() || !OverwriteMif(boundsOffset_, boundsLine)) {
        return false;
    }
    WarnOfLimits();
    // Kept: columns that were replaced after the header was written give a block of another
    // length, which runs into the lines behind it or leaves some of its own. Hosts send the names
    // first.
    std::string block;
    columns_.AppendBlock(block);
    return OverwriteMif(columnsOffset_, block);
}

bool MifExportFilter::PatchPenWidths() {
    const double diagonal = bounds_.Diagonal();
    return std::all_of(
        penWidthPatches_.begin(), penWidthPatches_.end(), [&](const PenWidthPatch& patch) {
            return OverwriteMif(patch.offsetBytes,
                                std::to_string(GradePenWidth(patch.widthWorld, diagonal)));
        });
}

// A seek hands what was written before to the system, so its failure is a failed write too; a
// write after it would land in the wrong place.
bool MifExportFilter::OverwriteMif(std::uint64_t offsetBytes, std::string_view text) {
    return mif_.SeekTo(offsetBytes) && mif_.Write(text);
}

void MifExportFilter::WarnOfLimits() const {
    if (const wchar_t* warning = columns_.LimitWarning(); warning != nullptr) {
        Manager().Warning(shr::IError::WarnStyle::Ordinary, warning);
    }
}

void MifExportFilter::DiscardFiles() {
    mif_.Discard();
    mid_.Discard();
}

void MifExportFilter::RaiseVersion(unsigned atLeast) {
    version_ = std::max(version_, atLeast);
}

void MifExportFilter::FlushText() {
    WriteMif(text_);
    text_.clear();
}

void MifExportFilter::WriteMif(std::string_view text) {
    if (!mif_.Write(text)) {
        FailWriting(kCannotWriteMif);
    }
}

void MifExportFilter::WriteMifWide(const std::wstring& text) {
    if (!mif_.WriteWide(text)) {
        FailWriting(kCannotWriteMif);
    }
}

void MifExportFilter::WriteMidRow(const shr::CParamList& attributes) {
    row_.clear();
    columns_.AppendRow(row_, attributes);
    if (!mid_.Write(row_)) {
        FailWriting(kCannotWriteMid);
    }
}

void MifExportFilter::FailWriting(const ErrorOrigin& origin) {
    failedWrite_ = &origin;
    ThrowWriteError(origin);
}

// Kept: the .mid file's errors name the .mif file too. It is the file that the user knows.
void MifExportFilter::ThrowWriteError(const ErrorOrigin& origin) const {
    Throw_ERR_FILE_WRITE(origin.source, origin.line, mif_.path(), kWriteError);
}

}  // namespace mif
