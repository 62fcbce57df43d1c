#include "fuzz/ImportSession.h"

#include "import/MifImportDlg.h"
#include "resources/DialogTexts.h"
#include "standalone/DialogModel.h"
#include "standalone/ScriptedPresenter.h"

#include <iterator>
#include <set>
#include <string>

namespace fuzz {

namespace {

std::wstring PathFrom(Bytes& bytes) {
    static constexpr const wchar_t* kPaths[] = {L"map.mif",    L"map.mif", L"a.mif", L"b.mif",
                                                L"folder.mif", L"a.mid",   L""};
    return kPaths[bytes.Byte() % std::size(kPaths)];
}

// No import changes a file.
class UnchangedFiles {
public:
    UnchangedFiles() : before_(MemoryFiles::Get().Paths()) {
        MemoryFiles::Get().onCreate = [](const std::wstring&) {
            Require(false, "an import creates no file");
        };
        MemoryFiles::Get().onRemove = MemoryFiles::Get().onCreate;
    }
    ~UnchangedFiles() {
        Require(MemoryFiles::Get().Paths() == before_, "an import deletes no file");
    }
    UnchangedFiles(const UnchangedFiles&) = delete;
    UnchangedFiles& operator=(const UnchangedFiles&) = delete;

private:
    std::set<std::wstring> before_;
};

}  // namespace

ImportSession::ImportSession() : filter_(std::make_unique<mif::MifImportFilter>(manager_)) {}

ImportSession::~ImportSession() {
    filter_.reset();
    Require(MemoryFiles::Get().openStreams() == 0, "a filter closes its files");
    Require(!host_.isProgressShown(), "a filter ends its progress");
}

void ImportSession::CallOnce(Bytes& bytes) {
    const UnchangedFiles unchanged;
    switch (bytes.Byte() % 8) {
    case 0:
        AskAboutFile(bytes);
        break;
    case 1:
        TakeOptions(bytes);
        break;
    case 2:
        ShowDialog(bytes);
        break;
    case 3:
        Ask(TakeFault(bytes));
        break;
    case 4:
        Restart(TakeFault(bytes));
        break;
    default:
        Import(bytes);
    }
}

void ImportSession::Import(Bytes& bytes) {
    const Fault fault = TakeFault(bytes);
    const std::wstring path = PathFrom(bytes);
    const CallResult result = RunCall(host_, fault, [&] {
        filter_->Import(path);
        return 0;
    });

    const bool isDone = result.outcome == Outcome::Returned;
    const bool isOpen = MemoryFiles::Get().openStreams() > 0;
    Require(!isDone || !hasFileOpen_, "an import over an open file is refused");
    Require(!isDone || !isOpen, "an import that is done closes its files");
    Require(!isDone || !host_.isProgressShown(), "an import that is done ends its progress");
    Require(!hasFileOpen_ || isOpen, "a refused import leaves the files as they are");
    Require(result.outcome != Outcome::OpenError && result.outcome != Outcome::WriteError,
            "an import has errors of its own");
    hasFileOpen_ = isOpen;
}

void ImportSession::AskAboutFile(Bytes& bytes) {
    const Fault fault = TakeFault(bytes);
    const std::wstring path = PathFrom(bytes);
    const std::size_t open = MemoryFiles::Get().openStreams();
    const CallResult result = RunCall(host_, fault, [&] {
        const int answer = filter_->CanImportFile(path);
        const zeio::ImportFileInfo info = filter_->GetFileInfo(0, path);
        Require(answer == 0 || info.entries.size() == 10 || fault.kind != FaultKind::None,
                "a file that can be imported has a header");
        return answer;
    });
    Require(result.outcome == Outcome::Returned || result.outcome == Outcome::OutOfMemory,
            "a question about a file is no error");
    Require(result.value == 0 || result.value == 1, "a file can be imported or not");
    Require(MemoryFiles::Get().openStreams() == open, "a question about a file closes it again");
}

void ImportSession::TakeOptions(Bytes& bytes) {
    static constexpr const wchar_t* kOptions[] = {L"AreasToCurves=1", L"IgnoreStyles;Defaults",
                                                  L"ForgetOptions;IgnoreStyles=1", L"=;"};
    const Fault fault = TakeFault(bytes);
    const std::wstring options = kOptions[bytes.Byte() % std::size(kOptions)];
    const CallResult result = RunCall(host_, fault, [&] {
        filter_->SetOptionsFromString(options);
        return 0;
    });
    Require(result.outcome == Outcome::Returned || fault.kind != FaultKind::None,
            "options can be set");
}

void ImportSession::ShowDialog(Bytes& bytes) {
    const Fault fault = TakeFault(bytes);
    standalone::ScriptedPresenter user;
    for (int step = bytes.Byte() % 4; step > 0; --step) {
        switch (bytes.Byte() % 5) {
        case 0:
            user.Toggle(IDC_AREAS_TO_CURVES);
            break;
        case 1:
            user.Press(IDC_IMPORT_DEFAULTS);
            break;
        case 2:
            user.Press(IDOK);
            break;
        case 3:
            user.AskForHelp();
            break;
        default:
            user.Press(IDCANCEL);
        }
    }
    standalone::DialogPresenter* const before = standalone::SetDialogPresenter(&user);
    const CallResult result =
        RunCall(host_, fault, [&] { return filter_->ShowOptionsDialog(L"map.mif") ? 1 : 0; });
    standalone::SetDialogPresenter(before);

    Require(result.outcome == Outcome::Returned || fault.kind != FaultKind::None,
            "a dialog can be shown");
    Require(mif::ImportDlgProc(nullptr, WM_SYSCOMMAND, SC_CONTEXTHELP, 0) == 0,
            "a dialog that is closed knows no filter");
}

void ImportSession::Ask(const Fault& fault) {
    const CallResult result = RunCall(host_, fault, [&] {
        Require(filter_->GetFilterIdentity()->kind == zeio::FilterKind::Import, "it is an import");
        Require(filter_->SupportsObjectType(zeio::TrText::GetClassTypeId()), "texts are made");
        Require(!filter_->SupportsObjectType(nullptr), "no type is not made");
        Require(!filter_->HasDelayedImport(), "nothing comes later");
        return filter_->GetOptionStringDelimiter() == L';' ? 0 : 1;
    });
    Require(result.outcome == Outcome::OutOfMemory || result.value == 0, "questions are answered");
}

void ImportSession::Restart(const Fault& fault) {
    DestroyFilter(host_, fault, filter_);
    filter_ = std::make_unique<mif::MifImportFilter>(manager_);
    hasFileOpen_ = false;
}

}  // namespace fuzz
