#include "fuzz/ExportSession.h"

#include "host/shr/CPath.h"
#include "host/zeio/IoPropertyPage.h"
#include "resources/DialogTexts.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <iterator>
#include <utility>
#include <vector>

namespace fuzz {

namespace {

// In the memory of files: plain ones, most often; one beside a folder of its .mid file's name, a
// folder, the names that are the .mid file's own, and none at all.
constexpr const wchar_t* kPaths[] = {L"a.mif",      L"a.mif", L"a.mif", L"a.mif", L"b.mif",
                                     L"b.mif",      L"b.mif", L"a.MIF", L"a.MIF", L"barred.mif",
                                     L"folder.mif", L"a.mid", L"b.MID", L""};

constexpr std::size_t kFills = 70'000;  // characters: more than a stream's buffer

std::size_t LinesOf(const std::string& text) {
    return static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
}

// Bytes of an object: many, from a few of the input. What an object holds matters less here than
// how many calls an input has room for.
class ManyBytes {
public:
    explicit ManyBytes(Bytes& input) {
        std::uint32_t state = input.Byte() * 256U + input.Byte();
        for (std::uint8_t& byte : bytes_) {
            state = state * 1664525U + 1013904223U;
            byte = static_cast<std::uint8_t>(state >> 24U);
        }
    }
    Bytes Read() const { return {bytes_.data(), bytes_.size()}; }

private:
    std::array<std::uint8_t, 512> bytes_;
};

// A type that no filter knows.
class UnknownObject : public zeio::TrBase {
public:
    const shr::CTypeInfo* GetTypeId() const override { return TrBase::GetClassTypeId(); }
};

}  // namespace

// What an object is to the model.
struct ExportSession::Sending {
    bool isKnown = true;
    bool isGraphic = false;
    bool makesHeader = false;
    std::size_t rows = 0;  // more than 0: something is written behind the header
};

ExportSession::ExportSession() : filter_(std::make_unique<mif::MifExportFilter>(manager_)) {
    MemoryFiles& files = MemoryFiles::Get();
    for (const std::wstring& path : files.Paths()) {
        kept_[path] = *files.Find(path);
    }
    files.onCreate = [this](const std::wstring& path) {
        Require(path == path_ || path == midPath_, "an export creates its own files only");
        if (path == path_) {
            // What failed until here was the end of the run before.
            MemoryFiles::Get().faults.hasWriteFailed = false;
        }
        kept_.erase(path);
        created_.insert(path);
    };
    files.onRemove = [this](const std::wstring& path) {
        Require(created_.count(path) != 0, "only what an export has created is deleted");
        if (!MemoryFiles::Get().faults.removals) {
            created_.erase(path);
        }
    };
}

ExportSession::~ExportSession() {
    filter_.reset();
    created_.clear();
    CheckFiles();
    Require(MemoryFiles::Get().openStreams() == 0, "a filter closes its files");
    Require(!host_.isProgressShown(), "a filter ends its progress");
    sheet_.reset();
}

void ExportSession::CallOnce(Bytes& bytes) {
    switch (bytes.Byte() % 16) {
    case 0:
    case 1:
        Begin(bytes);
        break;
    case 2:
        End(TakeFault(bytes));
        break;
    case 3:
        TakeOptions(bytes);
        break;
    case 4:
        OpenSheet(TakeFault(bytes));
        break;
    case 5:
        UseSheet(bytes);
        break;
    case 6:
        Ask(bytes);
        break;
    case 7:
        Restart(TakeFault(bytes));
        break;
    default:
        Send(bytes);
    }
    CheckFiles();
}

void ExportSession::Begin(Bytes& bytes) {
    const Fault fault = TakeFault(bytes);
    const std::wstring path = kPaths[bytes.Byte() % std::size(kPaths)];
    FileFaults& faults = MemoryFiles::Get().faults;
    path_ = path;
    midPath_ = shr::CPath::ChangeExtension(path, L".mid");
    faults.hasOpenFailed = faults.hasWriteFailed = false;
    faults.bytesLeft = FileFaults().bytesLeft;
    hasGraphics_ = hasEnded_ = false;
    rows_ = 0;

    const CallResult result = RunCall(host_, fault, [&] { return filter_->BeginExport(path); });

    isBegun_ = result.outcome == Outcome::Returned;
    isBroken_ = !isBegun_;
    isExact_ = isExact_ && !faults.hasRemovalFailed;
    const bool isMidsOwn = path.ends_with(L".mid") || path.ends_with(L".MID");
    Require(result.outcome != Outcome::OtherError,
            "an export begins or says which file it can't open");
    Require(result.outcome != Outcome::OpenError || faults.hasOpenFailed || isMidsOwn,
            "a file that can be opened is");
    Require(result.outcome != Outcome::WriteError || faults.hasWriteFailed, "writes do not fail");
    Require(!isBegun_ || (!isMidsOwn && !path.empty()), "one path is no pair of files");
    Require(!isBegun_ || created_ == std::set<std::wstring>({path_, midPath_}) || !isExact_,
            "an export that was begun has its two files");
}

void ExportSession::Send(Bytes& input) {
    const Fault fault = TakeFault(input);
    const int kind = input.Byte() % 16;
    const ManyBytes many(input);
    Bytes bytes = many.Read();
    const bool isLong = bytes.Byte() % 32 == 0;
    const auto send = [&](auto object, std::size_t rows, bool makesHeader) {
        object.attributes.Set(L"A", isLong ? std::wstring(kFills, L'v') : bytes.Text());
        SendObject(object, {true, true, makesHeader, rows}, fault);
    };
    const auto take = [&](auto object) { SendObject(object, {}, fault); };
    switch (kind) {
    case 0:
    case 1: {
        const zeio::TrPolyline polyline = MakePolyline(bytes);
        const bool isDrawn = !polyline.vertices.empty();
        send(polyline, isDrawn ? 1 : 0, isDrawn);
        break;
    }
    case 2:
    case 3: {
        const zeio::TrPolygon polygon = MakePolygon(bytes);
        const bool isCurves = filter_->options().areasToCurves;
        const std::size_t curves = polygon.partSizes.empty() ? 0 : RingsWith(polygon, 2);
        send(polygon, isCurves ? curves : 1, true);
        break;
    }
    case 4: {
        const zeio::TrMarkerSet markers = MakeMarkers(bytes);
        send(markers, markers.positions.size(), true);
        break;
    }
    case 5:
        send(MakeRectangle(bytes), 1, true);
        break;
    case 6:
        send(MakeEllipse(bytes), 1, true);
        break;
    case 7: {
        zeio::TrText text = MakeText(bytes);
        text.text += std::wstring(isLong ? kFills : 0, L't');
        send(text, 1, true);
        break;
    }
    case 8:
        take(MakePen(bytes));
        break;
    case 9:
        take(MakeBrush(bytes));
        break;
    case 10:
        take(MakeFont(bytes));
        break;
    case 11: {
        zeio::TrNamedIds columns = MakeColumns(bytes);
        columns.names.push_back(L"A");
        take(columns);
        break;
    }
    case 12:
        take(MakeQuestions(bytes));
        break;
    case 13: {
        gcs::GCSDef definition;
        gcs::ProjectionDef projection;
        projection.SetMethod(static_cast<gcs::ProjectionMethod>(bytes.Byte() % 32));
        definition.SetProjection(projection);
        zeio::TrCRS system;
        system.SetCS(&definition);
        take(system);
        break;
    }
    default: {
        UnknownObject object;
        SendObject(object, {false, false, false, 0}, fault);
    }
    }
}

void ExportSession::SendObject(zeio::TrBase& object, const Sending& sending, const Fault& fault) {
    const CallResult result = RunCall(host_, fault, [&] { return filter_->ExportObject(object); });

    const bool hasWriteFailed = MemoryFiles::Get().faults.hasWriteFailed;
    switch (result.outcome) {
    case Outcome::Returned:
        Require(!isBroken_, "no object is taken after a failed write");
        Require((result.value == 0) == sending.isKnown, "a known object is taken, another is not");
        Require(isBegun_ || sending.rows == 0, "nothing is written before an export is begun");
        hasGraphics_ = hasGraphics_ || sending.makesHeader;
        rows_ += sending.rows;
        break;
    case Outcome::WriteError:
        Require(isBroken_ || hasWriteFailed || (!isBegun_ && sending.isGraphic),
                "an object can be written");
        isBroken_ = true;
        break;
    case Outcome::OutOfMemory:
        isBroken_ = isBroken_ || sending.isGraphic;
        break;
    case Outcome::Unwilling:
        break;  // before the object was looked at, or for an option about it
    default:
        Require(false, "an object fails by a write only");
    }
}

void ExportSession::End(const Fault& fault) {
    const CallResult result = RunCall(host_, fault, [&] { return filter_->EndExport(); });

    const bool hasWriteFailed = MemoryFiles::Get().faults.hasWriteFailed;
    const bool isDone = result.outcome == Outcome::Returned && result.value == 0;
    const bool isNothing = result.outcome == Outcome::Returned && result.value == 1;
    isExact_ = isExact_ && !MemoryFiles::Get().faults.hasRemovalFailed;
    switch (result.outcome) {
    case Outcome::Returned:
        Require(isDone || isNothing, "an export is written or not");
        Require(!isNothing || !hasGraphics_, "an export with objects is written");
        break;
    case Outcome::WriteError:
        Require(isBroken_ || hasWriteFailed, "an export can be completed");
        isBroken_ = true;
        break;
    case Outcome::OutOfMemory:
    case Outcome::Unwilling:
        return;  // may be ended again
    default:
        Require(false, "an export fails to end by a write only");
    }
    Require(!host_.isProgressShown(), "the end of an export ends its progress");
    Require(MemoryFiles::Get().openStreams() == 0, "the end of an export closes its files");
    if (isDone) {
        Require(!isBroken_ && !hasWriteFailed && (hasEnded_ || (isBegun_ && hasGraphics_)),
                "only what is whole is called written");
        CheckWritten();
    }
    Require(isDone || !isExact_ || created_.empty(), "what was not finished is deleted");
    isBegun_ = false;
}

// The files of an export that was called written: both are there and whole, and from now on kept.
void ExportSession::CheckWritten() {
    const MemoryFiles& files = MemoryFiles::Get();
    const std::string* mif = files.Find(path_);
    const std::string* mid = files.Find(midPath_);
    Require(mif != nullptr && mid != nullptr, "an export that was written has its files");
    Require(mif->starts_with("VERSION "), "a written file begins with its version");
    Require(mif->find('\0') == std::string::npos, "a written file has no gaps");
    Require(LinesOf(*mid) == rows_, "every object has its row");
    hasEnded_ = true;
    for (const std::wstring& path : std::exchange(created_, {})) {
        kept_[path] = *files.Find(path);
    }
}

void ExportSession::TakeOptions(Bytes& bytes) {
    static constexpr const wchar_t* kOptions[] = {L"AreasToCurves=1", L"AreasToCurves=0",
                                                  L"RenderText=0;Defaults=1", L"ForgetOptions",
                                                  L";;=x"};
    const Fault fault = TakeFault(bytes);
    const std::wstring options = kOptions[bytes.Byte() % std::size(kOptions)];
    const CallResult result = RunCall(host_, fault, [&] {
        filter_->SetOptionsFromString(options);
        return 0;
    });
    Require(result.outcome == Outcome::Returned || fault.kind != FaultKind::None,
            "options can be set");
}

void ExportSession::OpenSheet(const Fault& fault) {
    sheet_.reset();
    std::vector<zeio::IoPropertyPage*> pages;
    const CallResult result = RunCall(host_, fault, [&] {
        filter_->GetPropertyPages(pages, L"a.mif");
        return 0;
    });
    Require((result.outcome == Outcome::Returned) == (pages.size() == 1), "an export has one page");
    if (!pages.empty()) {
        sheet_ = std::make_unique<standalone::PropertySheet>(pages);
    }
}

// The page may be gone by now; then nothing happens.
void ExportSession::UseSheet(Bytes& bytes) {
    const Fault fault = TakeFault(bytes);
    const int choice = bytes.Byte() % 6;
    if (sheet_ == nullptr) {
        return;
    }
    const CallResult result = RunCall(host_, fault, [&] {
        switch (choice) {
        case 0:
            sheet_->PressOk();
            break;
        case 1:
            sheet_->PressCancel();
            break;
        case 2:
            sheet_->PressHelp(0);
            break;
        case 3:
            sheet_->Page(0).Press(IDC_EXPORT_DEFAULTS);
            break;
        case 4:
            sheet_->Page(0).Send(WM_COMMAND, IDOK, 0);
            break;
        default:
            sheet_->Page(0).Toggle(IDC_AREAS_TO_CURVES);
        }
        return 0;
    });
    Require(result.outcome == Outcome::Returned || result.outcome == Outcome::OutOfMemory,
            "a page lets no exception out");
}

void ExportSession::Ask(Bytes& bytes) {
    const Fault fault = TakeFault(bytes);
    const CallResult result = RunCall(host_, fault, [&] {
        Require(filter_->GetFilterIdentity()->kind == zeio::FilterKind::Export, "it is an export");
        Require(filter_->SupportsObjectType(zeio::TrPen::GetClassTypeId()), "pens are taken");
        Require(!filter_->SupportsObjectType(nullptr), "no type is not taken");
        Require(filter_->GetOptionsInStringForm().empty(), "the base has no options");
        return filter_->GetOptionStringDelimiter() == L';' ? 0 : 1;
    });
    Require(result.outcome == Outcome::OutOfMemory || result.value == 0, "questions are answered");
}

// Deletes the filter, at whatever point of a run, and makes a new one.
void ExportSession::Restart(const Fault& fault) {
    DestroyFilter(host_, fault, filter_);
    isExact_ = isExact_ && !MemoryFiles::Get().faults.hasRemovalFailed;
    Require(!isExact_ || created_.empty(), "a filter that goes deletes what it has not finished");
    filter_ = std::make_unique<mif::MifExportFilter>(manager_);
    isBegun_ = isBroken_ = hasGraphics_ = hasEnded_ = false;
    rows_ = 0;
}

void ExportSession::CheckFiles() {
    const MemoryFiles& files = MemoryFiles::Get();
    for (const auto& [path, bytes] : kept_) {
        const std::string* found = files.Find(path);
        Require(found != nullptr && *found == bytes, "a finished or older file stays as it is");
    }
    for (const std::wstring& path : files.Paths()) {
        Require(!isExact_ || kept_.count(path) != 0 || created_.count(path) != 0,
                "no other file appears");
    }
}

}  // namespace fuzz
