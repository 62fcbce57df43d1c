// Private folders that must not stay behind, whatever ends the program.
#pragma once

#include <filesystem>
#include <string>

namespace app {

// What the name of every private folder begins with; the number of the process and "-" follow.
inline constexpr const char* kPrivateFolderPrefix = ".qolf-";

// A folder of its own that only this user can use, removed with everything in it. The folder and
// the files that were named by File are also removed when the program is ended by an interrupt, a
// hang-up or a request to terminate.
class TempFolder {
public:
    // Made below parent; an empty parent is the system's folder for temporary files. Throws
    // Failure.
    explicit TempFolder(const std::filesystem::path& parent = {});
    ~TempFolder();
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    const std::filesystem::path& Path() const { return path_; }

    // The path of a file to be made in the folder. Every file that may be there when a signal comes
    // is named first.
    std::filesystem::path File(const std::filesystem::path& name) const;

private:
    std::filesystem::path path_;
};

}  // namespace app
