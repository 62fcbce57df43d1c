#include "app/base/platform/FileCopier.h"

#include "app/base/Errors.h"
#include "app/base/Paths.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <string>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

namespace app {
namespace {

// Shorter ranges are cheaper to copy by hand.
constexpr std::uint64_t kLeastForKernel = std::uint64_t{1} << 16;
constexpr std::size_t kBufferBytes = std::size_t{1} << 18;

}  // namespace

struct FileCopier::Files {
    ~Files() {
        for (const int file : {source, target}) {
            if (file >= 0) {
                close(file);
            }
        }
    }

    // Of the source.
    [[noreturn]] void FailReading(const char* action) const {
        const int error = errno;
        throw Failure(PathText(sourcePath) + ": " + action + ": " + std::strerror(error));
    }

    // Of the target.
    [[noreturn]] void FailWriting(const char* action) const {
        const int error = errno;
        const bool isFull = error == ENOSPC || error == EDQUOT || error == EFBIG;
        throw Failure(PathText(targetPath) + ": " + action + ": " + std::strerror(error) +
                      (isFull ? "; TMPDIR can name a folder with more room" : ""));
    }

    void Flush() {
        const char* at = buffer.data();
        for (std::size_t left = buffer.size(); left > 0;) {
            const ssize_t written = write(target, at, left);
            if (written < 0) {
                FailWriting("can't write");
            }
            at += written;
            left -= static_cast<std::size_t>(written);
        }
        buffer.clear();
    }

    // False when the kernel can't.
    bool CopyByKernel(std::uint64_t& begin, std::uint64_t end) {
        Flush();
        while (begin < end) {
            auto position = static_cast<off_t>(begin);
            const ssize_t copied = copy_file_range(
                source, &position, target, nullptr,
                static_cast<std::size_t>(std::min<std::uint64_t>(end - begin, 1U << 30)), 0);
            if (copied < 0 && errno == ENOSPC) {
                FailWriting("can't write");
            }
            if (copied <= 0) {
                return copied == 0;
            }
            begin += static_cast<std::uint64_t>(copied);
        }
        return true;
    }

    void CopyByHand(std::uint64_t begin, std::uint64_t end) {
        while (begin < end) {
            const std::size_t before = buffer.size();
            const auto wanted = std::min<std::uint64_t>(end - begin, kBufferBytes);
            buffer.resize(before + static_cast<std::size_t>(wanted));
            const ssize_t got = pread(source, buffer.data() + before,
                                      static_cast<std::size_t>(wanted), static_cast<off_t>(begin));
            if (got < 0) {
                FailReading("can't read");
            }
            buffer.resize(before + static_cast<std::size_t>(got));
            if (got == 0) {
                return;
            }
            begin += static_cast<std::uint64_t>(got);
            if (buffer.size() >= kBufferBytes) {
                Flush();
            }
        }
    }

    std::filesystem::path sourcePath;
    std::filesystem::path targetPath;
    int source = -1;
    int target = -1;
    std::string buffer;  // bytes that are not in the target yet
};

FileCopier::FileCopier(const std::filesystem::path& source, const std::filesystem::path& target)
    : files_(std::make_unique<Files>()) {
    files_->sourcePath = source;
    files_->targetPath = target;
    files_->source = open(source.c_str(), O_RDONLY | O_CLOEXEC);
    if (files_->source < 0) {
        files_->FailReading("can't open");
    }
    files_->target = open(target.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    if (files_->target < 0) {
        files_->FailWriting("can't make");
    }
}

FileCopier::~FileCopier() = default;

void FileCopier::Copy(std::uint64_t begin, std::uint64_t end) {
    if (begin < end && end - begin >= kLeastForKernel && files_->CopyByKernel(begin, end)) {
        return;
    }
    files_->CopyByHand(begin, end);
}

void FileCopier::Write(std::string_view bytes) {
    files_->buffer += bytes;
    if (files_->buffer.size() >= kBufferBytes) {
        files_->Flush();
    }
}

void FileCopier::Finish() {
    files_->Flush();
    if (close(std::exchange(files_->target, -1)) != 0) {
        files_->FailWriting("can't write");
    }
}

}  // namespace app
