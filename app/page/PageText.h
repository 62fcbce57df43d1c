// Text inside a page: whatever a file says stays text.
#pragma once

#include "host/shr/Color4b.h"

#include <string>
#include <string_view>

namespace app {

// The text as the content of an element or of an attribute in double quotes. Control characters
// and the marks that turn the direction of what follows are left out, and so are bytes that are no
// UTF-8.
std::string HtmlText(std::string_view utf8);

// Appends the text, cleaned in the same way, as a JSON string that may be in a script element:
// nothing in it can end the element or begin a comment. A text of more than 1000 characters is cut
// and ends in "…".
void AppendPageString(std::string& out, std::string_view utf8);

// Appends "#rrggbbaa" in quotes.
void AppendColor(std::string& out, const shr::Color4b& color);

// Appends the number with so many decimals, without zeros at its end.
void AppendRounded(std::string& out, double value, int decimals);

}  // namespace app
