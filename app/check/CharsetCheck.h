// Tells whether bytes are characters of a file's declared charset.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace app {

enum class CharsetKind {
    Undeclared,  // no Charset clause
    Neutral,
    Known,       // can be tested
    Untestable,  // a known name without a conversion table on this system
    Unknown,     // no charset of that name
};

enum class CharsetVerdict {
    Fits,
    NotInCharset,
    LooksLikeUtf8,  // single-byte charset, but valid UTF-8 of several bytes
    NotTested,
};

// Tests lines against one charset. Holds an open conversion of the system's, where one is needed.
class CharsetTester {
public:
    // `declaredName` is the name as in the header, in any case; empty when there is none.
    explicit CharsetTester(std::string_view declaredName);

    CharsetKind Kind() const { return kind_; }
    // `bytes` is a whole line: characters of several bytes do not reach over line ends. Lines of
    // ASCII always fit.
    CharsetVerdict Test(std::string_view bytes) const;
    // Returns the number of characters, for column widths: of UTF-8 text its characters, else its
    // bytes.
    std::size_t CountCharacters(std::string_view bytes) const;

private:
    bool Converts(std::string_view bytes) const;

    CharsetKind kind_ = CharsetKind::Undeclared;
    std::string conversion_;  // its name; empty when the system has none
    bool isUtf8_ = false;
    bool isThai_ = false;
    bool isMultiByte_ = false;  // two bytes of it may look like UTF-8 by chance
};

}  // namespace app
