// One of the two files of an export: a stream in text mode and what is to become of the file.
//
// A file that was opened counts as unfinished until Keep() is called. The destructor closes the
// stream and deletes nothing: deleting can fail, so the owner asks for it with Discard().
#pragma once

#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

namespace mif {

class OutputFile {
public:
    OutputFile() = default;
    ~OutputFile();
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    // Names the file, after discarding what was there before.
    void SetPath(const std::wstring& path);

    // Creates or empties the file. On failure false, with errno set; then nothing is open.
    [[nodiscard]] bool Open();

    // Writes text as it stands, or wide text converted to code page 0 (a stream of the C library
    // can't mix wide and narrow output). False when nothing is open or the stream did not take it
    // all.
    [[nodiscard]] bool Write(std::string_view text);
    [[nodiscard]] bool WriteWide(const std::wstring& text);

    // Moves to an offset in bytes from the start. False when nothing is open or it failed, which
    // includes that what was written before could not be handed to the system.
    [[nodiscard]] bool SeekTo(std::uint64_t offset);

    // The offset in bytes from the start; 0 when nothing is open.
    std::uint64_t Tell();

    // Closes the stream. False when any write since Open, checked or not, failed or fails now.
    // True when nothing is open.
    [[nodiscard]] bool Close();

    // Declares the file finished: Discard() then leaves it alone.
    void Keep() { isUnfinished_ = false; }

    // Closes the stream, and deletes the file if it is unfinished.
    void Discard();

    bool isOpen() const { return stream_ != nullptr; }
    const std::wstring& path() const { return path_; }

private:
    std::wstring path_;            // empty until SetPath
    std::vector<char> buffer_;     // the stream's
    std::FILE* stream_ = nullptr;  // owned; null when nothing is open
    bool isUnfinished_ = false;    // the file was opened and neither kept nor deleted since
};

}  // namespace mif
