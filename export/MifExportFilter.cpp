#include "export/MifExportFilter.h"

#include "export/CoordSysWriter.h"
#include "export/ErrorOrigins.h"
#include "export/MifExportDlg.h"
#include "export/StyleCodes.h"
#include "host/shr/CPath.h"
#include "host/shr/Files.h"
#include "host/zeio/IoManager.h"

#include <algorithm>
#include <cerrno>
#include <iterator>

namespace mif {

namespace {

constexpr zeio::FilterIdentity kIdentity{"$ZEIO_FILT$", 100, u"qolf", zeio::FilterKind::Export, {}};

constexpr const wchar_t* kModuleName = L"qolf";
constexpr const wchar_t* kAreasToCurves = L"AreasToCurves";
constexpr const wchar_t* kRenderText = L"RenderText";
constexpr const wchar_t* kRenderMarkers = L"RenderMarkers";

constexpr unsigned kFirstVersion = 300;
constexpr unsigned kManyObjectsVersion = 800;
constexpr std::uint64_t kManyObjects = 32000;  // PLINE and REGION objects that 300 can hold
constexpr std::uint32_t kObjectsPerProgressStep = 100;

constexpr const wchar_t* kWriteError = L"File write error";

// Four characters wide, so that a later version takes the place of an earlier one.
std::string VersionLine(unsigned version) {
    std::string number = std::to_string(version);
    number.insert(0, number.size() < 4 ? 4 - number.size() : 0, ' ');
    return "VERSION " + number + '\n';
}

}  // namespace

// The first kind that fits counts; every kind stands once.
const MifExportFilter::ObjectKind MifExportFilter::kObjectKinds[] = {
    {&zeio::TrPolyline::GetClassTypeId, &Handle<zeio::TrPolyline, &MifExportFilter::WritePolyline>},
    {&zeio::TrPolygon::GetClassTypeId, &Handle<zeio::TrPolygon, &MifExportFilter::WritePolygon>},
    {&zeio::TrMarkerSet::GetClassTypeId,
     &Handle<zeio::TrMarkerSet, &MifExportFilter::WriteMarkers>},
    {&zeio::TrNamedIds::GetClassTypeId, &Handle<zeio::TrNamedIds, &MifExportFilter::TakeColumns>},
    {&zeio::TrRectangle::GetClassTypeId,
     &Handle<zeio::TrRectangle, &MifExportFilter::WriteRectangle>},
    {&zeio::TrEllipse::GetClassTypeId, &Handle<zeio::TrEllipse, &MifExportFilter::WriteEllipse>},
    {&zeio::TrText::GetClassTypeId, &Handle<zeio::TrText, &MifExportFilter::WriteText>},
    {&zeio::TrCRS::GetClassTypeId, &Handle<zeio::TrCRS, &MifExportFilter::TakeCoordinateSystem>},
    {&zeio::TrFont::GetClassTypeId, &Handle<zeio::TrFont, &MifExportFilter::TakeFont>},
    {&zeio::TrPen::GetClassTypeId, &Handle<zeio::TrPen, &MifExportFilter::TakePen>},
    {&zeio::TrBrush::GetClassTypeId, &Handle<zeio::TrBrush, &MifExportFilter::TakeBrush>},
    {&zeio::TrInitGraphicsExp::GetClassTypeId,
     &Handle<zeio::TrInitGraphicsExp, &MifExportFilter::AnswerInitGraphics>},
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

const zeio::FilterIdentity* MifExportFilter::GetFilterIdentity() const {
    return &kIdentity;
}

void MifExportFilter::GetPropertyPages(std::vector<zeio::IoPropertyPage*>& pages,
                                       const std::wstring& title) {
    ReadSavedOptions(/*persistent=*/true);
    page_ = std::make_unique<MifExportDlg>(Manager(), *this, title, options_);
    page_->Describe();
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
    if (page_ != nullptr) {
        TakeOptionsFromPage(/*persistent=*/true);
        page_.reset();
    } else {
        options_ = {};
        ReadSavedOptions(/*persistent=*/true);
    }

    progress_.reset();  // an unfinished run's display ends before the next one starts
    progress_ = std::make_unique<zeio::CProgress>(Manager(), /*hasProportion=*/false);
    progress_->MessageVA(L"Exporting data to MIF file %s",
                         shr::CPath(path).GetNameAndExtension().c_str());

    OpenFiles(path);
    // Kept: bounds, columns and styles are those that the filter already has. A host that exports
    // twice with one filter gets the box of both runs in the second file.
    isHeaderWritten_ = false;
    hasWriteFailed_ = false;
    version_ = kFirstVersion;
    plineCount_ = 0;
    regionCount_ = 0;
    objectCount_ = 0;
    penWidthPatches_.clear();  // offsets into an earlier run's file
    WriteFirstLines();
    return zeio::ExportStatus::Done;
}

void MifExportFilter::OpenFiles(const std::wstring& path) {
    const auto reason = [] {
        return errno != 0 ? shr::FormatSystemErrorMsg(errno)
                          : std::wstring(L"File write or file create error");
    };
    mif_.SetPath(path);
    mid_.SetPath(shr::CPath::ChangeExtension(path, L".mid"));
    if (!mif_.Open()) {
        Throw_ERR_FILE_OPEN(kCannotOpenMif.source, kCannotOpenMif.line, mif_.path(), reason());
    }
    if (!mid_.Open()) {
        Throw_ERR_FILE_OPEN(kCannotOpenMid.source, kCannotOpenMid.line, mid_.path(), reason());
    }
}

void MifExportFilter::WriteFirstLines() {
    WriteMif(VersionLine(version_));
    WriteMif("CHARSET \"WindowsLatin1\"\n");
    WriteMif("DELIMITER \",\"\n");
}

zeio::ExportStatus MifExportFilter::ExportObject(zeio::TrBase& object) {
    ++objectCount_;
    if (objectCount_ % kObjectsPerProgressStep == 0) {
        Manager().ProgressIndeterminate();
    }
    const shr::CTypeInfo* type = object.GetTypeId();
    for (const ObjectKind& kind : kObjectKinds) {
        if (kind.typeId() == type) {
            kind.handle(*this, object);
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
    if (mif_.isOpen() && !hasWriteFailed_) {
        Complete();
    }
    // Both are closed whatever the other one says.
    const bool isMifWhole = mif_.Close();
    const bool isMidWhole = mid_.Close();
    if (!isHeaderWritten_) {
        DeleteFiles();
        progress_.reset();
        return zeio::ExportStatus::NothingWritten;
    }
    if (!isMifWhole || !isMidWhole || hasWriteFailed_) {
        FailWriting(kCannotComplete);
    }
    mif_.Keep();
    mid_.Keep();
    progress_.reset();
    return zeio::ExportStatus::Done;
}

// Overwrites what was written ahead of its time. Only the bounds' write is checked on its own: a
// failure of the others sticks to the stream and shows when it is closed.
void MifExportFilter::Complete() {
    if (!isHeaderWritten_) {
        WarnOfLimits();  // both files go, but the user hears of the limits all the same
        return;
    }
    if (version_ > kFirstVersion) {
        SeekMif(0);
        static_cast<void>(mif_.Write(VersionLine(version_)));
    }
    PatchPenWidths();
    RewriteBounds();
    WarnOfLimits();
    RewriteColumns();
}

void MifExportFilter::PatchPenWidths() {
    const double diagonal = bounds_.Diagonal();
    for (const PenWidthPatch& patch : penWidthPatches_) {
        SeekMif(patch.offsetBytes);
        const std::string code = std::to_string(GradePenWidth(patch.widthWorld, diagonal));
        static_cast<void>(mif_.Write(code));
    }
    penWidthPatches_.clear();
}

void MifExportFilter::RewriteBounds() {
    SeekMif(boundsOffset_);
    AppendBoundsLine(text_, bounds_);
    FlushText();
}

void MifExportFilter::WarnOfLimits() const {
    if (const wchar_t* warning = columns_.LimitWarning(); warning != nullptr) {
        Manager().Warning(shr::IError::WarnStyle::Ordinary, warning);
    }
}

void MifExportFilter::RewriteColumns() {
    // Kept: columns that were replaced after the header was written give a block of another
    // length, which runs into the lines behind it or leaves some of its own. Hosts send the names
    // first.
    std::string block;
    columns_.AppendBlock(block);
    SeekMif(columnsOffset_);
    static_cast<void>(mif_.Write(block));
}

// Kept: the paths decide, not what was opened, so files that were in the way of this export (a
// .mid file that could not be opened for writing) go as well. Hosts ask before they export onto
// existing files.
void MifExportFilter::DeleteFiles() {
    for (const OutputFile* file : {&mif_, &mid_}) {
        if (!file->path().empty()) {
            static_cast<void>(shr::RemoveFile(file->path()));  // may never have been there
        }
    }
    mif_.Keep();
    mid_.Keep();
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

// A seek hands what was written before to the system, so its failure is a failed write too; a
// write after it would land in the wrong place.
void MifExportFilter::SeekMif(std::uint64_t offsetBytes) {
    if (!mif_.SeekTo(offsetBytes)) {
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

// Kept: the .mid file's errors name the .mif file too. It is the file that the user knows.
void MifExportFilter::FailWriting(const ErrorOrigin& origin) {
    hasWriteFailed_ = true;
    text_.clear();
    Throw_ERR_FILE_WRITE(origin.source, origin.line, mif_.path(), kWriteError);
}

}  // namespace mif
