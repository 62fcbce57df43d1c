#include "tests/support/TemporaryFolder.h"

#include <fstream>
#include <iterator>
#include <random>
#include <stdexcept>
#include <system_error>

namespace support {

TemporaryFolder::TemporaryFolder() : TemporaryFolder(std::filesystem::temp_directory_path()) {}

TemporaryFolder::TemporaryFolder(const std::filesystem::path& parent) {
    std::random_device random;
    for (int attempt = 0; attempt < 100; ++attempt) {
        path_ = parent / ("qolf-test-" + std::to_string(random()) + std::to_string(random()));
        if (std::filesystem::create_directory(path_)) {
            return;
        }
    }
    throw std::runtime_error("no temporary folder could be made");
}

TemporaryFolder::~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

std::wstring TemporaryFolder::PathOf(const std::string& name) const {
    return (path_ / name).wstring();
}

std::wstring TemporaryFolder::Write(const std::string& name, std::string_view bytes) const {
    // A file that is truncated and written again is flushed to the disk by some file systems; a new
    // one is not, and tests that write thousands of files are a hundred times faster.
    std::filesystem::remove(path_ / name);
    std::ofstream stream(path_ / name, std::ios::binary);
    stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    stream.close();
    if (!stream) {
        throw std::runtime_error("can't write " + name);
    }
    return PathOf(name);
}

std::string TemporaryFolder::Read(const std::string& name) const {
    std::ifstream stream(path_ / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

std::string TemporaryFolder::ReadText(const std::string& name) const {
    std::ifstream stream(path_ / name);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

bool TemporaryFolder::Has(const std::string& name) const {
    return std::filesystem::exists(path_ / name);
}

}  // namespace support
