#include "app/base/Spool.h"

#include "app/base/Errors.h"
#include "app/base/Paths.h"

#include <algorithm>
#include <cerrno>
#include <utility>

namespace app {

void Spool::Fail(const char* action) const {
    const std::string reason = errno != 0 ? std::string(": ") + std::strerror(errno) : "";
    throw Failure("the temporary folder " + PathText(path_.parent_path().parent_path()) +
                  " can't be " + action + reason + "; name another one in TMPDIR");
}

void Spool::Spill() {
    errno = 0;
    if (!folder_) {
        folder_.emplace();
        path_ = folder_->File("spool");
        file_.open(path_, std::ios::binary | std::ios::in | std::ios::out | std::ios::trunc);
    }
    if (!file_.write(bytes_.data(), static_cast<std::streamsize>(bytes_.size())).flush()) {
        Fail("written");
    }
    spilled_ += bytes_.size();
    bytes_.clear();
}

Spool::Reader::Reader(Spool& spool) : spool_(spool), left_(spool.Size()), inFile_(spool.spilled_) {
    if (inFile_ == 0) {
        ahead_ = spool.bytes_;
    } else {
        spool.file_.seekg(0);
    }
}

// Reads ahead until so many bytes are there.
void Spool::Reader::Fill(std::size_t count) {
    constexpr std::uint64_t kAhead = 1 << 20;
    if (left_ < count) {
        throw Failure("a temporary file is not what was written");
    }
    const auto wanted = static_cast<std::size_t>(
        std::min(inFile_, std::max<std::uint64_t>(count - ahead_.size(), kAhead)));
    std::string next(ahead_);
    next.resize(ahead_.size() + wanted);
    errno = 0;
    if (!spool_.file_.read(next.data() + ahead_.size(), static_cast<std::streamsize>(wanted))) {
        spool_.Fail("read");
    }
    inFile_ -= wanted;
    if (inFile_ == 0) {
        next += spool_.bytes_;
    }
    buffer_ = std::move(next);
    ahead_ = buffer_;
}

}  // namespace app
