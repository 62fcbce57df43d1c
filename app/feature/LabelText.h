// Texts as they can be drawn: lines of UTF-8 that any font library and any XML reader takes.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace app {

// The lines of a text, at most 100 of at most 1000 characters. A line ends at a line feed or at
// the two characters \n, as the files write it. Control characters, noncharacters and bytes that
// are no UTF-8 are left out, and so are the marks that turn the direction of what follows; a tab is
// a blank.
std::vector<std::string> LinesOf(std::string_view utf8);

// One line of the same kind, for names and labels.
std::string CleanName(std::string_view utf8);

// The same; a text that is cut ends in "…".
std::string ShortenedName(std::string_view utf8);

// The one character as UTF-8; empty when it can't be drawn.
std::string CleanCharacter(int codePoint);

}  // namespace app
