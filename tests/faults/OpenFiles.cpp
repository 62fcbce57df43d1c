#include "tests/faults/OpenFiles.h"

#include <filesystem>
#include <iterator>

namespace fault_test {

std::size_t OpenFileCount() {
    // The iteration has a descriptor open itself, always the same one more.
    const std::filesystem::directory_iterator files("/proc/self/fd");
    return static_cast<std::size_t>(std::distance(files, std::filesystem::directory_iterator()));
}

int DescriptorOf(const std::string& nameEnd) {
    for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
        std::error_code ignored;
        const std::string target = std::filesystem::read_symlink(entry.path(), ignored).string();
        if (target.ends_with(nameEnd)) {
            return std::stoi(entry.path().filename().string());
        }
    }
    return -1;
}

}  // namespace fault_test
