// Texts as they can be drawn: lines of UTF-8 that any font library and any XML reader takes.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace app {

// The lines of a text, at most 100 of at most 1000 characters. A line ends at a line feed or at
// the two characters \n, as the files write it. Control characters, halves of surrogate pairs,
// noncharacters and numbers that are no character are left out; a tab is a blank.
std::vector<std::string> LinesOf(std::wstring_view text);

// One line of the same kind, for names.
std::string CleanName(std::wstring_view name);

// The one character as UTF-8; empty when it can't be drawn.
std::string CleanCharacter(int codePoint);

}  // namespace app
