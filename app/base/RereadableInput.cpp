#include "app/base/RereadableInput.h"

#include "app/base/Errors.h"
#include "app/base/Output.h"
#include "app/base/Paths.h"
#include "host/platform/Stdio.h"

#include <cerrno>
#include <cstring>
#include <vector>

namespace app {
namespace {

std::FILE* OpenForReading(const std::filesystem::path& path, const std::string& name) {
    std::FILE* stream = platform::OpenFile(WidePath(path), platform::OpenMode::ReadBinary);
    if (stream == nullptr) {
        throw Failure(name + ": can't open: " + std::strerror(errno));
    }
    return stream;
}

void SpoolStandardInput(const std::filesystem::path& target) {
    std::FILE* stream = platform::OpenFile(WidePath(target), platform::OpenMode::WriteBinary);
    if (stream == nullptr) {
        throw Failure(PathText(target) + ": can't write: " + std::strerror(errno));
    }
    std::vector<char> block(1 << 18);
    bool isWritten = true;
    for (std::size_t got = 0; (got = std::fread(block.data(), 1, block.size(), stdin)) > 0;) {
        isWritten = isWritten && std::fwrite(block.data(), 1, got, stream) == got;
    }
    const bool isRead = std::ferror(stdin) == 0;
    isWritten = std::fclose(stream) == 0 && isWritten;
    if (!isRead || !isWritten) {
        throw Failure("standard input: can't copy it to " + PathText(target) + ": " +
                      std::strerror(errno));
    }
}

}  // namespace

RereadableInput::RereadableInput(const std::filesystem::path& path)
    : path_(path), name_(PathText(path)) {
    if (path == "-") {
        name_ = "standard input";
        folder_.emplace();
        path_ = folder_->File("stdin");
        SpoolStandardInput(path_);
        return;
    }
    std::fclose(OpenForReading(path_, name_));
}

InputStream::InputStream(const RereadableInput& input)
    : name_(input.Name()), buffer_(1 << 18), stream_(OpenForReading(input.Path(), input.Name())) {
    platform::LendBuffer(stream_, buffer_);
    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(input.Path(), error);
    size_ = error ? 0 : static_cast<std::uint64_t>(size);
}

InputStream::~InputStream() {
    std::fclose(stream_);
}

bool InputStream::NextLine(std::string& line) {
    line.clear();
    int c = platform::GetByte(stream_);
    for (; c != EOF && c != '\n'; c = platform::GetByte(stream_)) {
        line += static_cast<char>(c);
    }
    if (c == EOF && std::ferror(stream_) != 0) {
        throw Failure(name_ + ": can't read: " + std::strerror(errno));
    }
    if (c == EOF && line.empty()) {
        return false;
    }
    if (!line.empty() && line.back() == '\r') {
        line.pop_back();
    }
    ++lineNumber_;
    return true;
}

double InputStream::Fraction() const {
    return size_ == 0 ? 0.0
                      : static_cast<double>(platform::Tell(stream_)) / static_cast<double>(size_);
}

}  // namespace app
