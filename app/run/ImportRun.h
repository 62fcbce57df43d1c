// Runs an import of one MIF file through the module.
#pragma once

#include "app/base/Reporter.h"
#include "app/mif/PaddedCopy.h"
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
    std::filesystem::path path;
    std::filesystem::path shownPath;  // in messages, when `path` is a copy; empty: `path` itself
    bool asIs = false;                // --as-is: no padded copy
    bool noStore = false;             // --no-store: an empty store that is not written
    std::optional<std::string> optionString;  // --option-string, handed to slot 3 as it stands
    std::string encoding;  // --encoding: code page 0 for the run; empty: by the header's charset
    std::string modulePath;
};

// Returns the store of a run's options: the user's own, or with `noStore` an empty one in memory.
std::unique_ptr<standalone::OptionStore> OpenOptionStore(bool noStore);

// Returns whether the object is one that is drawn. Such objects have a row of attributes.
bool IsGraphics(const zeio::TrBase& object);

// Sets the host's code page 0 for a file: as --encoding says, else by the header's charset, with a
// warning that begins with the file's name when that can't be had. Throws UsageError for an
// encoding that the system does not know.
void ChooseCodePage(const MifHeader& header, const std::string& name, const std::string& encoding,
                    Reporter& reporter);

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

// One MIF file on its way through the module: made ready once, then imported as often as wanted.
class ImportRun {
public:
    // Scans the header, chooses the code page, makes the padded copy if the header needs one, and
    // loads the module. Warns of a unit and a charset that will be misread. Throws Failure, and
    // UsageError for an encoding that the system does not know.
    ImportRun(ImportSettings settings, Reporter& reporter);
    ~ImportRun();

    const MifHeader& Header() const { return header_; }
    const Module& TheModule() const { return module_; }

    // The code page in which the file's texts are read: "CP1252", "UTF-8".
    const std::string& CodePage() const { return codePage_; }

    // The path that the module is given, and whether it is that of a padded copy.
    const std::filesystem::path& ReadPath() const { return copy_->Path(); }
    bool IsPadded() const { return copy_->IsCopy(); }

    // Hands only what comes before the objects to the sink: the coordinate system and the column
    // names. Reads a private copy of the header, so a sound file is not opened again. Throws as
    // Import does.
    void ImportHeader(Reporter& reporter, const ObjectSink& sink);

    // Imports the whole file into the sink. Warns when the file has no graphic object. The module's
    // own warnings are given with the first import only, be it of the header or of the file. Throws
    // Failure, for the module's errors with the user's own path in their texts; what the sink
    // throws passes unchanged.
    void Import(Reporter& reporter, const ObjectSink& sink);

private:
    class Host;
    void Import(const std::filesystem::path& path, Reporter& reporter, const ObjectSink& sink);
    [[noreturn]] void Rethrow(const shr::IError& error) const;
    std::string ShownName() const;

    ImportSettings settings_;
    std::string headerBytes_;  // up to the line after Data; empty when there is none
    MifHeader header_;
    std::string codePage_;
    std::optional<CareCopy> copy_;
    Module module_;
    bool hasWarned_ = false;
};

// Imports a file once.
void RunImport(const ImportSettings& settings, Reporter& reporter, const ObjectSink& sink);

}  // namespace app
