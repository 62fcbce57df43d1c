#include "app/base/platform/FileCopier.h"

#include "app/base/Errors.h"
#include "app/base/Paths.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fstream>
#include <vector>

namespace app {

struct FileCopier::Files {
    // Of the source. The stream keeps no reason of its own.
    [[noreturn]] void FailReading(const char* action) const {
        throw Failure(PathText(sourcePath) + ": " + action + ": " + std::strerror(errno));
    }

    // Of the target.
    [[noreturn]] void FailWriting(const char* action) const {
        throw Failure(PathText(targetPath) + ": " + action +
                      "; is there room? TMP can name another folder");
    }

    std::filesystem::path sourcePath;
    std::filesystem::path targetPath;
    std::ifstream source;
    std::ofstream target;
    std::vector<char> block = std::vector<char>(std::size_t{1} << 18);
};

FileCopier::FileCopier(const std::filesystem::path& source, const std::filesystem::path& target)
    : files_(std::make_unique<Files>()) {
    files_->sourcePath = source;
    files_->targetPath = target;
    files_->source.open(source, std::ios::binary);
    if (!files_->source) {
        files_->FailReading("can't open");
    }
    files_->target.open(target, std::ios::binary);
    if (!files_->target) {
        files_->FailWriting("can't copy the file there");
    }
}

FileCopier::~FileCopier() = default;

void FileCopier::Copy(std::uint64_t begin, std::uint64_t end) {
    files_->source.clear();
    files_->source.seekg(static_cast<std::streamoff>(begin));
    while (begin < end) {
        const auto wanted = static_cast<std::streamsize>(
            std::min<std::uint64_t>(end - begin, files_->block.size()));
        files_->source.read(files_->block.data(), wanted);
        if (files_->source.bad()) {
            files_->FailReading("can't read");
        }
        const std::streamsize got = files_->source.gcount();
        if (got == 0) {
            return;
        }
        Write({files_->block.data(), static_cast<std::size_t>(got)});
        begin += static_cast<std::uint64_t>(got);
    }
}

void FileCopier::Write(std::string_view bytes) {
    files_->target.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    if (!files_->target) {
        files_->FailWriting("can't write");
    }
}

void FileCopier::Finish() {
    files_->target.close();
    if (!files_->target) {
        files_->FailWriting("can't write");
    }
}

}  // namespace app
