// The name that somebody meant who typed another one.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace app {

// Returns the name that is most like `wanted`, without regard to case: at most one character in
// three is another one, missing, too many, or swapped with its neighbour. Of equally near names the
// first. Absent when none is near.
std::optional<std::string> NearestName(std::string_view wanted, std::span<const std::string> names);

}  // namespace app
