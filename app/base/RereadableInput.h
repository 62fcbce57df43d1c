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

// An input file, or standard input, that can be read again and again. Standard input is copied to a
// private file at once.
class RereadableInput {
public:
    // Takes a path, or "-" for standard input. Throws Failure when the file can't be opened.
    explicit RereadableInput(const std::filesystem::path& path);

    // The file to read: the private copy of standard input.
    const std::filesystem::path& Path() const { return path_; }

    // For messages: the path, or "standard input".
    const std::string& Name() const { return name_; }

private:
    std::filesystem::path path_;
    std::string name_;
    std::optional<TempFolder> folder_;  // absent for a file
};

// One reading of a RereadableInput, from its beginning. Throws Failure when it can't be opened.
class InputStream {
public:
    explicit InputStream(const RereadableInput& input);
    ~InputStream();
    InputStream(const InputStream&) = delete;
    InputStream& operator=(const InputStream&) = delete;

    std::FILE* Stream() const { return stream_; }

    // Reads a line into `line`, without its line end (LF or CR LF). Returns false at the end.
    // Throws Failure when reading fails.
    bool NextLine(std::string& line);

    // The number of the line that was read last, from 1.
    std::uint64_t LineNumber() const { return lineNumber_; }

    // Returns how much of the input was read, from 0 to 1.
    double Fraction() const;

private:
    std::string name_;
    std::vector<char> buffer_;  // the stream's
    std::FILE* stream_;
    std::uint64_t size_ = 0;  // bytes
    std::uint64_t lineNumber_ = 0;
};

}  // namespace app
