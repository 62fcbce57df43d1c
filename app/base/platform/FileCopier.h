// Copies parts of a file into a new one. One source a system.
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string_view>

namespace app {

class FileCopier {
public:
    // Makes the target, which must not be there yet. Throws Failure.
    FileCopier(const std::filesystem::path& source, const std::filesystem::path& target);
    ~FileCopier();
    FileCopier(const FileCopier&) = delete;
    FileCopier& operator=(const FileCopier&) = delete;

    // Appends the bytes [begin, end) of the source, by the kernel where it can, or what there is of
    // them. Throws Failure.
    void Copy(std::uint64_t begin, std::uint64_t end);

    // Appends bytes. Throws Failure.
    void Write(std::string_view bytes);

    // Completes the target. Throws Failure.
    void Finish();

private:
    struct Files;
    std::unique_ptr<Files> files_;
};

}  // namespace app
