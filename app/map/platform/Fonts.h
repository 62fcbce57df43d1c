// What is asked of the system's fonts beyond drawing with them. One source per system.
#pragma once

#include <span>
#include <string>

namespace app {

// Returns the family, as cairo takes it, of texts that name none.
const char* UsualFontFamily();

// Returns the first of the characters that the family (UTF-8, in any letter case) has; 0 when it
// has none of them, or when the system has no such family.
int FirstCharacterOfFamily(const std::string& family, std::span<const int> characters);

}  // namespace app
