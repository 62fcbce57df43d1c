// Words of MIF text: their comparison, and their way into messages.
#pragma once

#include <string>
#include <string_view>

namespace app {

// Folds ASCII letters only.
char AsciiLower(char letter);

// Whether the words are equal but for the case of ASCII letters: how the module compares keywords.
bool EqualsIgnoringCase(std::string_view left, std::string_view right);

// The text in single quotes, for a message: at most 40 bytes, control characters as "\x1B".
std::string Quoted(std::string_view text);

}  // namespace app
