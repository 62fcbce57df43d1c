#include "app/mif/ModuleCopy.h"

#include "app/base/Paths.h"
#include "app/base/platform/System.h"

#include <limits>
#include <utility>

namespace app {

ModuleCopy::ModuleCopy(std::filesystem::path mif) : mif_(std::move(mif)), path_(mif_) {}

void ModuleCopy::Cut(std::uint64_t begin, std::uint64_t end, std::string_view text) {
    if (!copier_) {
        folder_.emplace();
        path_ = folder_->File(mif_.filename());
        copier_.emplace(AsOnDisk(mif_), path_);
    }
    copier_->Copy(copied_, begin);
    copier_->Write(text);
    copied_ = end;
}

void ModuleCopy::Finish() {
    if (copier_) {
        copier_->Copy(copied_, std::numeric_limits<std::int64_t>::max());
        copier_->Finish();
    } else if (!FindCompanion(mif_, ".mid").empty()) {
        folder_.emplace();
        path_ = folder_->File(mif_.filename());
        LinkFile(AsOnDisk(mif_), path_);
    }
}

}  // namespace app
