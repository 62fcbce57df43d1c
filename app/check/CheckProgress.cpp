#include "app/check/CheckProgress.h"

#include "app/base/Paths.h"

namespace app {
namespace {

double SizeOfPair(const std::filesystem::path& mif) {
    const std::filesystem::path mid = FindCompanion(mif, ".mid");
    return SizeOfFile(AsOnDisk(mif)) + (mid.empty() ? 0.0 : SizeOfFile(mid));
}

}  // namespace

CheckProgress::CheckProgress(std::span<const std::filesystem::path> files, int passes,
                             Reporter& reporter)
    : reporter_(reporter) {
    double bytes = 0.0;
    for (const std::filesystem::path& file : files) {
        bytes += SizeOfPair(file);
    }
    all_ = bytes * passes;
    reporter_.StartProgress("checking", bytes);
}

CheckProgress::~CheckProgress() {
    reporter_.EndProgress();
}

ProgressSink CheckProgress::NextPass(const std::filesystem::path& file) {
    done_ += current_;
    current_ = SizeOfPair(file);
    return [this](double fraction) {
        if (all_ > 0.0) {
            reporter_.Progress((done_ + fraction * current_) / all_);
        }
    };
}

void CheckProgress::Hide() {
    reporter_.HideProgress();
}

}  // namespace app
