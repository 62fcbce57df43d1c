// The character sets that a MIF header names, and which code page a file is read in.
#pragma once

#include "app/mif/MifHeader.h"

#include <span>
#include <string>
#include <string_view>

namespace app {

struct Charset {
    std::string_view mifName;
    int windowsCodePage;         // 0 when there is none
    std::string_view iconvName;  // empty when the system converts no such set
    bool isMultiByte = false;    // two of its bytes may look like UTF-8 by chance
};

// The code page that the host's 0 means unless a file says otherwise.
inline constexpr std::string_view kDefaultCodePage = "CP1252";

// By the name in the header, in any ASCII case; null for an unknown name and for "Neutral".
const Charset* FindCharset(std::string_view mifName);

// By the name of its conversion ("CP1251", "windows-1251") or by that in a header; null
// when MIF has no name for the encoding.
const Charset* FindCharsetOfEncoding(std::string_view name);

// All of them, WindowsLatin1 first of those of Windows.
std::span<const Charset> AllCharsets();

struct CodePageChoice {
    std::string codePage;  // for standalone::SetCodePage0
    std::string charset;   // as the header has it; empty when it has none
    std::string warning;   // why the text may come out wrong; empty when all is well
};

// Windows-1252 for no name, for "Neutral", and with a warning for a name that is unknown or has no
// conversion.
CodePageChoice CodePageOfCharset(std::string_view mifName);

// A byte-order mark of UTF-8 wins over the header's charset.
CodePageChoice CodePageOf(const MifHeader& header);

}  // namespace app
