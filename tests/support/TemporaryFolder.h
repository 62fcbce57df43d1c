// A folder of its own for one test, removed with everything in it at the end.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace support {

class TemporaryFolder {
public:
    // Below the system's folder of temporary files.
    TemporaryFolder();
    explicit TemporaryFolder(const std::filesystem::path& parent);
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::filesystem::path& path() const { return path_; }

    // The path of a file in the folder, as the filters take it.
    std::wstring PathOf(const std::string& name) const;

    // Writes a file, byte for byte, and returns its path.
    std::wstring Write(const std::string& name, std::string_view bytes) const;

    // The bytes of a file; empty when there is none.
    std::string Read(const std::string& name) const;

    // The same with LF for the line ends of the system, which the files of a pair have.
    std::string ReadText(const std::string& name) const;

    bool Has(const std::string& name) const;

private:
    std::filesystem::path path_;
};

}  // namespace support
