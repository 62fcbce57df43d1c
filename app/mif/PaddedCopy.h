// Care for real files: most longitude/latitude files have COLUMNS on the line right after
// "CoordSys Earth Projection 1, 104", the very line that the module's parser swallows, as it does
// behind every clause that lacks its last parts. Such a file is handed to the module as a private
// temporary copy with empty lines put in.
#pragma once

#include "app/base/TempFolder.h"
#include "app/mif/HeaderScan.h"

#include <filesystem>
#include <optional>
#include <string>

namespace app {

class CareCopy {
public:
    // Makes the copy when the header needs it, else nothing. The .mid is linked beside the copy.
    // Throws Failure when the copy can't be made.
    CareCopy(const std::filesystem::path& mifPath, const MifHeader& header);

    // The path to hand to the module.
    const std::filesystem::path& Path() const { return path_; }
    bool IsCopy() const { return folder_.has_value(); }

    // A text of the module with the copy's path replaced by the user's.
    std::wstring WithOriginalPath(std::wstring text) const;

private:
    std::filesystem::path original_;
    std::filesystem::path path_;
    std::optional<TempFolder> folder_;  // removed with the object, and on SIGINT and SIGTERM
};

}  // namespace app
