// Sees how often a file is opened.
#pragma once

#include <filesystem>

namespace cli {

// Counts from its making on, whoever opens the file.
class OpenWatch {
public:
    explicit OpenWatch(const std::filesystem::path& file);
    ~OpenWatch();
    OpenWatch(const OpenWatch&) = delete;
    OpenWatch& operator=(const OpenWatch&) = delete;

    // The openings since the last call. Two of them count as one when nothing closed the file in
    // between.
    int Count() const;

private:
    int notify_;
};

}  // namespace cli
