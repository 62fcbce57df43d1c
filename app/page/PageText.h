// Text inside a page: whatever a file says stays text.
#pragma once

#include <string>
#include <string_view>

namespace app {

// The text as the content of an element or of an attribute in double quotes. Control characters
// and the marks that turn the direction of what follows are left out, and so are bytes that are no
// UTF-8.
std::string HtmlText(std::string_view utf8);

// JSON as the content of a script element: nothing in it can end the element or begin a comment.
// It means the same to a reader of JSON.
std::string JsonForScript(std::string_view json);

}  // namespace app
