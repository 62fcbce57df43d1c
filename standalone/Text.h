// The host's own side of text conversion.
#pragma once

#include "host/platform/Export.h"

#include <optional>
#include <string>
#include <string_view>

namespace standalone {

// Sets what code page 0 stands for, by a name that the system's conversion knows ("CP1251",
// "UTF-8"; on Windows also by number, "1251"). Not thread-safe: set it before a run. False, and
// nothing changed, when the system has no such code page. "CP1252" is the initial value.
QOLF_HOST_API bool SetCodePage0(const std::string& name);
QOLF_HOST_API std::string CodePage0();

// UTF-8 to wide text and back. Invalid UTF-8 becomes U+FFFD; a lone surrogate is written as '?'.
QOLF_HOST_API std::wstring Widen(std::string_view utf8);
QOLF_HOST_API std::string Narrow(std::wstring_view text);

// UTF-8 as the bytes of a code page by the name of the system's conversion. Absent when the code
// page lacks one of the characters, or the system lacks the code page. "CP1252" has all 256 bytes.
QOLF_HOST_API std::optional<std::string> Encode(const std::string& codePage, std::string_view utf8);

// Bytes of a code page as text. Absent when one of them is no character there, or when the system
// lacks the code page. "CP1252" lacks five bytes here.
QOLF_HOST_API std::optional<std::wstring> Decode(const std::string& codePage,
                                                 std::string_view bytes);

}  // namespace standalone
