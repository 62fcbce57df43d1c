#include "export/OutputFile.h"

#include "host/platform/Stdio.h"
#include "host/shr/Files.h"
#include "host/shr/Text.h"

#include <cerrno>
#include <cstddef>

namespace mif {

namespace {

constexpr std::size_t kStreamBufferBytes = std::size_t{64} * 1024;

}  // namespace

OutputFile::~OutputFile() {
    static_cast<void>(Close());  // whoever wants to know has closed it before
}

void OutputFile::SetPath(const std::wstring& path) {
    Discard();
    path_ = path;
}

bool OutputFile::Open() {
    errno = 0;
    stream_ = platform::OpenFile(path_, platform::OpenMode::WriteText);
    if (stream_ == nullptr) {
        return false;
    }
    isUnfinished_ = true;  // from here on the file is there, whatever else fails
    buffer_.resize(kStreamBufferBytes);
    platform::LendBuffer(stream_, buffer_);
    return true;
}

bool OutputFile::Write(std::string_view text) {
    return stream_ != nullptr && platform::WriteBytes(stream_, text.data(), text.size());
}

bool OutputFile::WriteWide(const std::wstring& text) {
    return Write(shr::WtoAN(text, 0));
}

bool OutputFile::SeekTo(std::uint64_t offset) {
    return stream_ != nullptr && platform::SeekTo(stream_, offset);
}

std::uint64_t OutputFile::Tell() {
    return stream_ == nullptr ? 0 : platform::Tell(stream_);
}

bool OutputFile::Close() {
    if (stream_ == nullptr) {
        return true;
    }
    std::FILE* stream = stream_;
    stream_ = nullptr;
    const bool hadError = std::ferror(stream) != 0;
    return std::fclose(stream) == 0 && !hadError;
}

void OutputFile::Discard() {
    static_cast<void>(Close());  // the file's contents no longer matter
    if (isUnfinished_) {
        // When this throws, the file stays unfinished for another try; when it fails, nothing more
        // can be done about it.
        static_cast<void>(shr::RemoveFile(path_));
        isUnfinished_ = false;
    }
}

}  // namespace mif
