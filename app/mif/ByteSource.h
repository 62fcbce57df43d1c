// Where the bytes of a file come from, piece by piece.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>

namespace app {

class ByteSource {
public:
    ByteSource() = default;
    virtual ~ByteSource() = default;
    ByteSource(const ByteSource&) = delete;
    ByteSource& operator=(const ByteSource&) = delete;

    // Writes the next bytes to `to`, at most so many, and returns how many; 0 at the end. A read
    // error is the end.
    virtual std::size_t Read(char* to, std::size_t most) = 0;

    // The next byte read is the one at that offset.
    virtual void SeekTo(std::uint64_t offset) = 0;
};

// An open stream, which must outlive the source.
class StreamSource : public ByteSource {
public:
    explicit StreamSource(std::FILE* stream) : stream_(stream) {}

    std::size_t Read(char* to, std::size_t most) override;
    void SeekTo(std::uint64_t offset) override;

private:
    std::FILE* stream_;
};

// A text in memory, which must outlive the source.
class TextSource : public ByteSource {
public:
    explicit TextSource(std::string_view text) : text_(text) {}

    std::size_t Read(char* to, std::size_t most) override;
    void SeekTo(std::uint64_t offset) override;

private:
    std::string_view text_;
    std::size_t pos_ = 0;
};

}  // namespace app
