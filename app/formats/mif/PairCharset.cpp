#include "app/formats/mif/PairCharset.h"

#include "app/base/Utf8.h"

#include <algorithm>

namespace app {

void PairCharset::Append(std::string& out, std::string_view utf8) {
    if (choice_ && !IsAscii(utf8)) {
        choice_->See(utf8);
        ++textCount_;
    }
    const std::size_t before = out.size();
    encoder_.Append(out, utf8);
    if (utf8.find('\0') != std::string_view::npos) {
        const auto added = out.begin() + static_cast<std::ptrdiff_t>(before);
        nulCount_ += static_cast<std::uint64_t>(std::count(added, out.end(), '\0'));
        std::replace(added, out.end(), '\0', '?');
    }
}

bool PairCharset::Settle() {
    if (!choice_) {
        return true;
    }
    const Charset& charset = choice_->Best();
    const bool isSame = textCount_ == 0 || charset.iconvName == "UTF-8";
    name_ = charset.mifName;
    encoder_ = CharsetEncoder(std::string(charset.iconvName));
    choice_.reset();
    return isSame;
}

}  // namespace app
