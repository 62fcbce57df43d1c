#include "app/formats/mif/PairFile.h"

#include "app/base/Errors.h"
#include "app/base/Paths.h"

#include <cerrno>
#include <cstring>
#include <system_error>
#include <utility>

namespace app {
namespace {

constexpr std::size_t kBufferBytes = std::size_t{1} << 18U;

// In text mode: only Windows knows another, and writes CR LF.
constexpr std::ios::openmode kUpdate = std::ios::in | std::ios::out;

}  // namespace

PairFile::PairFile(std::filesystem::path workPath, std::filesystem::path sparePath,
                   std::filesystem::path shownPath)
    : workPath_(std::move(workPath)), sparePath_(std::move(sparePath)),
      shownPath_(std::move(shownPath)) {
    Open(workPath_, kUpdate | std::ios::trunc);
}

void PairFile::Write() {
    if (buffer_.size() >= kBufferBytes) {
        Flush();
    }
}

void PairFile::Rewrite(std::size_t skippedBytes, const Change& change) {
    Close();
    std::ifstream input(workPath_);
    Open(sparePath_, kUpdate | std::ios::trunc);
    buffer_.resize(skippedBytes);
    Read(input, buffer_, 0);
    for (std::string piece; !input.eof();) {
        const std::size_t rest = piece.size();
        piece.resize(rest + kBufferBytes);
        Read(input, piece, rest);
        piece.erase(0, change(piece, buffer_));
        Write();
    }
    Close();
    input.close();
    std::error_code error;
    std::filesystem::rename(sparePath_, workPath_, error);
    if (error) {
        Fail(error.message());
    }
    Open(workPath_, kUpdate);
}

void PairFile::Finish(std::string_view start) {
    Flush();
    errno = 0;
    stream_.seekp(0);
    stream_.write(start.data(), static_cast<std::streamsize>(start.size()));
    CheckStream();
    Close();
}

void PairFile::Open(const std::filesystem::path& path, std::ios::openmode mode) {
    errno = 0;
    stream_.open(path, mode);
    CheckStream();
}

// Fills the text from `from` on, and cuts it where the file ends.
void PairFile::Read(std::ifstream& input, std::string& text, std::size_t from) const {
    errno = 0;
    input.read(text.data() + from, static_cast<std::streamsize>(text.size() - from));
    text.resize(from + static_cast<std::size_t>(input.gcount()));
    if (!input && !input.eof()) {
        Fail(std::strerror(errno));
    }
}

void PairFile::Flush() {
    errno = 0;
    stream_.write(buffer_.data(), static_cast<std::streamsize>(buffer_.size()));
    buffer_.clear();
    CheckStream();
}

void PairFile::Close() {
    Flush();
    stream_.close();
    CheckStream();
}

void PairFile::CheckStream() const {
    if (!stream_) {
        Fail(std::strerror(errno));
    }
}

void PairFile::Fail(const std::string& reason) const {
    throw Failure(PathText(shownPath_) + ": can't write: " + reason);
}

}  // namespace app
