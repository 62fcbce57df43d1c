// Runs an export of one MIF/MID pair through the module.
#pragma once

#include "app/Commands.h"
#include "app/ImportRun.h"
#include "app/Module.h"
#include "app/Output.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <string>

namespace app {

class TraceHost;

struct ExportSettings {
    std::filesystem::path path;
    IfExists ifExists = IfExists::Refuse;
    bool noStore = false;
    std::optional<std::string> optionString;
    std::string modulePath;
};

// One export under way. Construct, Send every object, Finish. Without Finish nothing is left.
class ExportRun {
public:
    // Opens the pair. A trace, when it is given, is the filter's host in the place of the run's
    // own, and must outlive the run. Throws Failure.
    ExportRun(const ExportSettings& settings, Reporter& reporter, TraceHost* trace = nullptr);
    ~ExportRun();

    // Hands an object to the filter. Throws Failure when it can't be written.
    zeio::ExportStatus Send(zeio::TrBase& object);

    // Completes the pair and moves it into place. False when no graphic object was sent: no file is
    // left then.
    bool Finish();

    zeio::ExportStatus BeginStatus() const { return beginStatus_; }

private:
    struct Parts;
    std::unique_ptr<Parts> parts_;
    zeio::ExportStatus beginStatus_ = zeio::ExportStatus::Done;
};

}  // namespace app
