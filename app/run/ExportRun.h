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

// A host of an export that also learns which errors the filter threw.
class ObservingHost : public zeio::IoHost {
public:
    using IoHost::IoHost;

    // Returns a text of an error with the user's own path: while they are written, the files lie in
    // a private folder.
    using ShownText = std::function<std::wstring(std::wstring)>;

    // Called once per error, before the run throws it as a Failure.
    virtual void Thrown(const shr::IError& error, const ShownText& shown) = 0;
};

struct ExportSettings {
    std::filesystem::path path;
    IfExists ifExists = IfExists::Refuse;
    bool noStore = false;
    std::optional<std::string> optionString;
    std::string modulePath;
};

// One export. Order of calls: constructor, Begin, SendSystem, SendColumns, Send for each object,
// Finish. Without Finish nothing is left behind.
class ExportRun {
public:
    // Opens the pair. A given `observer` is the filter's host in place of the run's own, and must
    // outlive the run, as `reporter` must. Throws Failure.
    ExportRun(const ExportSettings& settings, Reporter& reporter,
              ObservingHost* observer = nullptr);
    ~ExportRun();

    // Tells the filter the extent of all objects to come, or kUnknownExtent, and asks what it
    // renders. Every export begins with it. Returns the filter's status. Throws Failure.
    zeio::ExportStatus Begin(const shr::Box3d& extent);
    static constexpr shr::Box3d kUnknownExtent{0.0, 0.0, 0.0, -1.0, -1.0, -1.0};

    // The filter's answer to Begin. Hosts don't send what the filter does not render.
    bool RendersText() const;
    bool RendersMarkers() const;

    // Send the coordinate system and the names of the columns; not called when there is none. Throw
    // Failure.
    void SendSystem(const gcs::CSDef& system);
    void SendColumns(const std::vector<std::wstring>& names);

    // Hands an object to the filter and returns its status. Throws Failure when writing fails.
    zeio::ExportStatus Send(zeio::TrBase& object);

    // Completes the pair and moves it into place. Returns false when no graphic object was sent:
    // then no file is left. Throws Failure.
    bool Finish();

    // What the filter returned when it opened the pair.
    zeio::ExportStatus BeginStatus() const { return beginStatus_; }

private:
    struct Parts;
    std::unique_ptr<Parts> parts_;
    zeio::ExportStatus beginStatus_ = zeio::ExportStatus::Done;
    std::uint32_t capabilities_ = 0;  // the filter's answer to Begin
};

}  // namespace app
