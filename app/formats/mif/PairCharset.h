// The character set of a pair that is being written, which may be known only at its end.
#pragma once

#include "app/mif/CharsetEncoder.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace app {

// A set that is given takes every text at once. Without one, texts are written in UTF-8 and looked
// at on the way; Settle then chooses the smallest set that has them all, and what was written has
// to be written again in it unless IsFinal says that it is the same.
class PairCharset {
public:
    // `name` is what the header says; `codePage` is that of the bytes.
    PairCharset(std::string name, std::string codePage)
        : name_(std::move(name)), encoder_(std::move(codePage)) {}
    PairCharset() : encoder_("UTF-8"), choice_(std::in_place) {}

    // Appends the text's bytes. What the charset lacks becomes '?', as does a NUL, at which readers
    // stop.
    void Append(std::string& out, std::string_view utf8);

    // The encoder in use: of UTF-8 until the charset is settled.
    CharsetEncoder& Encoder() { return encoder_; }

    // Characters that have become '?'.
    std::uint64_t LostCount() const { return nulCount_ + encoder_.LostCount(); }

    // Texts beyond ASCII that came while the charset was open.
    std::uint64_t TextCount() const { return textCount_; }

    // Whether it is still open which charset it will be.
    bool IsOpen() const { return choice_.has_value(); }

    // Chooses an open charset. Returns true when what was written needs no change.
    bool Settle();

    // For the header; the longest that can come while it is open.
    std::string_view Name() const { return name_; }

private:
    std::string name_ = "WindowsTradChinese";
    CharsetEncoder encoder_;
    std::uint64_t nulCount_ = 0;
    std::uint64_t textCount_ = 0;
    std::optional<CharsetChoice> choice_;  // absent once the charset is known
};

}  // namespace app
