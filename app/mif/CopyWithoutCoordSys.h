// A copy of a pair whose geometry can be read whatever its CoordSys clause says.
#pragma once

#include "app/base/TempFolder.h"

#include <filesystem>
#include <string>

namespace app::check {

// A private temporary copy with 'CoordSys NonEarth Units "m"' in place of each CoordSys clause, so
// that a clause that would stop the import is out of the way. The .mid is linked beside it. Removed
// with the object.
class NeutralCopy {
public:
    // Throws Failure when the file can't be read or the copy can't be made.
    explicit NeutralCopy(const std::filesystem::path& mif);

    // The path to hand to the import; its file name is that of the original.
    const std::filesystem::path& Path() const { return path_; }

    // A text with the copy's path replaced by the original's.
    std::string WithOriginalPath(std::string text) const;

private:
    std::filesystem::path original_;
    TempFolder folder_;
    std::filesystem::path path_;
};

}  // namespace app::check
