// Private folders and files that must not stay behind, whatever ends the program.
#pragma once

#include <filesystem>

namespace app {

// A folder of its own that only this user can read, removed with everything in it. It is also
// removed when the program is ended by an interrupt or a request to terminate.
class TempFolder {
public:
    // Made below parent; an empty parent is the system's folder for temporary files. Throws
    // Failure.
    explicit TempFolder(const std::filesystem::path& parent = {});
    ~TempFolder();
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    const std::filesystem::path& Path() const { return path_; }

private:
    std::filesystem::path path_;
    int slot_;
};

}  // namespace app
