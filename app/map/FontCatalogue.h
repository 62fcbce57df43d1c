// Which font families the system has. A missing family of letters is replaced by the system; a
// missing family of symbols must not be, for it would put letters in their place.
#pragma once

#include "app/feature/DrawnStyle.h"

#include <map>
#include <string>
#include <utility>

namespace app {

class FontCatalogue {
public:
    // Returns the character (UTF-8) that shows this code of a symbol font: the code itself, or its
    // place among the private characters where symbol fonts keep theirs. Empty when the system has
    // no such family, letter case aside, or the family no such character. `family` is UTF-8.
    std::string CharacterOf(const std::string& family, int code);

private:
    std::map<std::pair<std::string, int>, std::string> known_;  // answers given before
};

// Resolves styles with the characters of the fonts that the system has.
StyleResolver ResolverWithFonts(StyleSource source);

}  // namespace app
