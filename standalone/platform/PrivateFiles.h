// Files that only this user and only this run should see. Internal to the host library.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace standalone {

// A new folder below the system's temporary folder that no other user can look into. It goes, with
// all that is in it, when the object goes.
class PrivateFolder {
public:
    // Throws std::system_error when the folder can't be made.
    PrivateFolder();
    ~PrivateFolder();
    PrivateFolder(const PrivateFolder&) = delete;
    PrivateFolder& operator=(const PrivateFolder&) = delete;

    const std::filesystem::path& Path() const { return path_; }

    // The wide path of a name in the folder, as platform::OpenFile takes it.
    std::wstring PathOf(const std::string& name) const;

private:
    std::filesystem::path path_;
};

// Makes a new file that only this user can read and write. Throws std::system_error.
void WritePrivateFile(const std::filesystem::path& path, std::string_view bytes);

// Puts bytes in the place of a file, or makes the file and its folders: at every moment there is
// the old file or the whole new one. A link stays a link to what it names. False on failure, with
// the old file as it was and nothing else left.
bool ReplaceContents(const std::filesystem::path& path, std::string_view bytes);

// The folder for a user's settings; empty when the user has none.
std::filesystem::path UserConfigFolder();

}  // namespace standalone
