// Runs an export of one MIF/MID pair through the module.
#pragma once

#include "app/base/Output.h"
#include "app/base/Reporter.h"
#include "app/run/ImportRun.h"
#include "app/run/Module.h"
#include "host/gcs/CSDef.h"
#include "host/shr/Geometry.h"
#include "host/zeio/TrObjects.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace app {

// A host of an export that also hears which errors the filter threw.
class ObservingHost : public zeio::IoHost {
public:
    using IoHost::IoHost;

    // Turns the texts of an error into what the user should read: a run's files lie elsewhere while
    // they are written.
    using ShownText = std::function<std::wstring(std::wstring)>;

    // Called once per error, before it leaves the run as a Failure.
    virtual void Thrown(const shr::IError& error, const ShownText& shown) = 0;
};

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
    // Opens the pair. An observer, when given, is the filter's host in place of the run's own; it
    // must outlive the run. Throws Failure.
    ExportRun(const ExportSettings& settings, Reporter& reporter,
              ObservingHost* observer = nullptr);
    ~ExportRun();

    // What every export begins with: tells the filter the extent of all that comes, and asks what
    // it renders. kUnknownExtent stands for an extent that is not known.
    zeio::ExportStatus Begin(const shr::Box3d& extent);
    static constexpr shr::Box3d kUnknownExtent{0.0, 0.0, 0.0, -1.0, -1.0, -1.0};

    // The filter's answer: a host does not send what the filter does not render.
    bool RendersText() const;
    bool RendersMarkers() const;

    // The coordinate system and the names of the columns. No call for none.
    void SendSystem(const gcs::CSDef& system);
    void SendColumns(const std::vector<std::wstring>& names);

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
    std::uint32_t capabilities_ = 0;  // the filter's answer to Begin
};

}  // namespace app
