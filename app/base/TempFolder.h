// Private folders that must not stay behind, whatever ends the program.
#pragma once

#include <filesystem>
#include <string>

namespace app {

// The beginning of every private folder's name; the number of the process, "-", the machine's name,
// "-" and some random characters follow.
inline constexpr const char* kPrivateFolderPrefix = ".qolf-";

// A new folder that only this user can use, removed with everything in it at the end of the
// object's life, and also when an interrupt, a hang-up or a request to terminate ends the program.
class TempFolder {
public:
    // Makes the folder below `parent`; an empty `parent` means the system's folder of
    // temporary files. Throws Failure.
    explicit TempFolder(const std::filesystem::path& parent = {});
    ~TempFolder();
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    const std::filesystem::path& Path() const { return path_; }

    // Returns the path of a file in the folder.
    std::filesystem::path File(const std::filesystem::path& name) const;

private:
    std::filesystem::path path_;
};

}  // namespace app
