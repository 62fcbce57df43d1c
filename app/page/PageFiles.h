// What every page brings along, put into the program when it is built: the map library with its
// licence, the script and the styles of pages.
#pragma once

#include <string_view>

namespace app {

// All are UTF-8, valid as long as the program runs, and can't end the element that they stand in.
std::string_view EmbeddedScript();
std::string_view EmbeddedStyles();
std::string_view EmbeddedNotice();  // the library's licence, as the content of a comment

// Of the two above, as a content policy names them: "sha256-" and base64.
std::string_view EmbeddedScriptHash();
std::string_view EmbeddedStylesHash();

}  // namespace app
