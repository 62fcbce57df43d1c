// A MIF pair made ready for reading: repaired, or read whatever its CoordSys clause says.
#pragma once

#include "app/base/Reporter.h"
#include "app/base/TempFolder.h"
#include "app/convert/ConvertOptions.h"
#include "app/mif/CopyWithoutCoordSys.h"
#include "host/gcs/CSDef.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <string>

namespace app {

// The copies that --fix and --assume-crs ask for are private and go with the object.
class PreparedMif {
public:
    // Says on the reporter what was repaired. Throws Failure.
    PreparedMif(const ConvertOptions& options, const std::string& input, Reporter& reporter);

    const std::filesystem::path& Path() const { return path_; }

    // The system of --assume-crs; null without one.
    const gcs::CSDef* AssumedSystem() const { return assumed_.get(); }

private:
    std::filesystem::path path_;
    std::optional<TempFolder> repaired_;
    std::optional<check::NeutralCopy> neutral_;
    std::unique_ptr<gcs::CSDef> assumed_;
};

}  // namespace app
