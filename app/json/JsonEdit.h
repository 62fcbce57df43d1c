// Changes of JSON text that others have written.
#pragma once

#include <string>
#include <string_view>

namespace app {

// Both return the text of the changed object, its members sorted by name, and throw JsonError when
// a text is not valid JSON or `object` is not an object.

// Adds a member, or replaces the one of the same name. `value` is JSON text, too.
std::string WithJsonMember(std::string_view object, const std::string& key, std::string_view value);

// Removes a member, if there is one.
std::string WithoutJsonMember(std::string_view object, const std::string& key);

}  // namespace app
