// A text input that is read line by line, more than once.
#pragma once

#include "app/base/TempFolder.h"

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace app {

// Where an input that may be "-" can be read again and again: standard input is spooled to a
// private file at once. Throws Failure when the file can't be opened.
class RereadableInput {
public:
    explicit RereadableInput(const std::filesystem::path& path);

    const std::filesystem::path& Path() const { return path_; }

    // For messages: the path, or "standard input".
    const std::string& Name() const { return name_; }

private:
    std::filesystem::path path_;
    std::string name_;
    std::optional<TempFolder> folder_;  // absent for a file
};

// Closes its stream at the end of its life.
class InputStream {
public:
    explicit InputStream(const RereadableInput& input);
    ~InputStream();
    InputStream(const InputStream&) = delete;
    InputStream& operator=(const InputStream&) = delete;

    std::FILE* Stream() const { return stream_; }

    // Reads a line without its line end (LF or CR LF). False at the end. Throws Failure when
    // reading fails.
    bool NextLine(std::string& line);

    std::uint64_t LineNumber() const { return lineNumber_; }  // of the line read last, from 1

    // The share of the input that was read, 0 to 1.
    double Fraction() const;

private:
    std::string name_;
    std::vector<char> buffer_;  // the stream's
    std::FILE* stream_;
    std::uint64_t size_ = 0;  // bytes
    std::uint64_t lineNumber_ = 0;
};

}  // namespace app
