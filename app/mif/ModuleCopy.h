// The .mif file that the module reads in place of one that it would read wrongly.
#pragma once

#include "app/base/TempFolder.h"
#include "app/base/platform/FileCopier.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace app {

// A private copy without what is not for the module. As long as nothing is cut out of it, it is a
// link to the file. The module finds no .mid file beside it: rows are read by this program. Takes
// no more room on the disk than the file.
class ModuleCopy {
public:
    explicit ModuleCopy(std::filesystem::path mif);

    // Puts the text in place of the bytes [begin, end) of the file. Ranges come in order. Throws
    // Failure when the temporary folder has no room.
    void Cut(std::uint64_t begin, std::uint64_t end, std::string_view text);

    // Called once, when all cuts are made. Throws Failure.
    void Finish();

    // The path to hand to the module, with the file's own name, once it is finished.
    const std::filesystem::path& Path() const { return path_; }

    // Whether anything was cut.
    bool IsCopy() const { return copier_.has_value(); }

private:
    std::filesystem::path mif_;
    std::filesystem::path path_;
    std::optional<TempFolder> folder_;  // absent when the module reads the file itself
    std::optional<FileCopier> copier_;  // absent until something is cut
    std::uint64_t copied_ = 0;          // bytes of the file that are in the copy, or cut out of it
};

}  // namespace app
