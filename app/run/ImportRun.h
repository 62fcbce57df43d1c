// Runs imports of one MIF file through the module.
#pragma once

#include "app/base/Errors.h"
#include "app/base/Reporter.h"
#include "app/run/Module.h"
#include "host/zeio/TrObjects.h"
#include "standalone/IoHost.h"
#include "standalone/OptionStore.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace app {

// What an import is asked to do.
struct ImportSettings {
    std::filesystem::path path;       // that the module is given
    std::filesystem::path shownPath;  // in messages, when `path` is a copy; empty: `path` itself
    bool noStore = false;             // --no-store: an empty store that is not written
    std::optional<std::string> optionString;  // --option-string, handed to slot 3 unchanged
    std::string codePage;                     // code page 0 of the run; empty: the one that is set
    std::string modulePath;
};

// Returns the store of a run's options: the user's own, or with `noStore` an empty one in memory.
std::unique_ptr<standalone::OptionStore> OpenOptionStore(bool noStore);

// Returns whether the object is one that is drawn. Such objects have a row of attributes.
bool IsGraphics(const zeio::TrBase& object);

// A host that passes progress and warnings on to a reporter and drops all objects.
class ReportingHost : public zeio::IoHost {
public:
    // Store and reporter must outlive the host. `subject` names the file in warnings.
    ReportingHost(standalone::OptionStore& store, Reporter& reporter, std::string subject);

    int Warning(shr::IError::WarnStyle style, const std::wstring& text) override;
    void ProgressStart(const std::wstring& title, bool canCancel, bool hasProportion) override;
    void ProgressProportion(double fraction) override;
    void ProgressIndeterminate() override;
    void ProgressEnd() override;

private:
    Reporter& reporter_;
    std::string subject_;
};

// Receives the translation objects of an import in their order; may move parts out of them.
using ObjectSink = std::function<void(zeio::TrBase&)>;

// What the module says that it stopped an import for.
class ImportFailure : public Failure {
public:
    ImportFailure(const std::string& reason, const std::string& advice)
        : Failure(reason + " " + advice), reason_(reason) {}

    const std::string& Reason() const { return reason_; }

private:
    std::string reason_;  // without the advice that what() ends with
};

// One MIF file on its way through the module: imported as often as wanted.
class ImportRun {
public:
    // Loads the module. Throws Failure.
    ImportRun(ImportSettings settings, Reporter& reporter);
    ~ImportRun();

    const Module& TheModule() const { return module_; }

    // Hands over only what comes before the objects: the coordinate system and the column names.
    // Throws as Import.
    void ImportHeader(Reporter& reporter, const ObjectSink& sink);

    // Imports the whole file and returns how many graphic objects there were. The module's warnings
    // come with the first import alone, whether of the header or of the file. Throws ImportFailure
    // with the shown path in its text, and always with a reason; what the sink throws passes
    // unchanged.
    std::uint64_t Import(Reporter& reporter, const ObjectSink& sink);

private:
    class Host;
    void RunFilter(Reporter& reporter, const ObjectSink& sink);
    [[noreturn]] void Rethrow(const shr::IError& error) const;
    std::string ShownName() const;
    std::wstring WithShownPath(std::wstring text) const;

    ImportSettings settings_;
    Module module_;
    bool hasWarned_ = false;
};

}  // namespace app
