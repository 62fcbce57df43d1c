#include "app/base/platform/FileCopier.h"

#include "app/base/Errors.h"
#include "app/base/Paths.h"

#include <algorithm>
#include <fstream>
#include <vector>

namespace app {

struct FileCopier::Files {
    [[noreturn]] void Fail(const char* action) const {
        throw Failure(PathText(targetPath) + ": " + action +
                      "; is there room? TMP can name another folder");
    }

    std::filesystem::path targetPath;
    std::ifstream source;
    std::ofstream target;
    std::vector<char> block = std::vector<char>(std::size_t{1} << 18);
};

FileCopier::FileCopier(const std::filesystem::path& source, const std::filesystem::path& target)
    : files_(std::make_unique<Files>()) {
    files_->targetPath = target;
    files_->source.open(source, std::ios::binary);
    files_->target.open(target, std::ios::binary);
    if (!files_->source || !files_->target) {
        files_->Fail("can't copy the file there");
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
        files_->Fail("can't write");
    }
}

void FileCopier::Finish() {
    files_->target.close();
    if (!files_->target) {
        files_->Fail("can't write");
    }
}

}  // namespace app
