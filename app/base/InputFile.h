// Files that are read, closed with their handle.
#pragma once

#include <cstdio>
#include <filesystem>
#include <memory>

namespace app {

struct CloseFile {
    void operator()(std::FILE* stream) const { std::fclose(stream); }
};
using InputFile = std::unique_ptr<std::FILE, CloseFile>;

// Opens a file as the module does: where the file system tells case apart, a name that differs in
// case only will do. Null on failure, with errno set.
InputFile OpenInput(const std::filesystem::path& path);

}  // namespace app
