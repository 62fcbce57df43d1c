#include "app/mif/ByteSource.h"

#include "host/platform/Stdio.h"

#include <algorithm>

namespace app {

std::size_t StreamSource::Read(char* to, std::size_t most) {
    return std::fread(to, 1, most, stream_);
}

void StreamSource::SeekTo(std::uint64_t offset) {
    // A failed seek leaves the place where it is; only files that were read before are sought in.
    static_cast<void>(platform::SeekTo(stream_, offset));
}

std::size_t TextSource::Read(char* to, std::size_t most) {
    const std::size_t count = std::min(most, text_.size() - pos_);
    std::copy_n(text_.data() + pos_, count, to);
    pos_ += count;
    return count;
}

void TextSource::SeekTo(std::uint64_t offset) {
    pos_ = static_cast<std::size_t>(std::min<std::uint64_t>(offset, text_.size()));
}

}  // namespace app
