// Finds files whose name was given in another case. Not for programs outside this tree.
#pragma once

#include <string>

namespace platform {

// The path itself when it exists; else the path of an existing file or folder each of whose names
// equals the given one but for case (of several, the first in the order of bytes); "" when there is
// none. The path is in the file system's bytes.
std::string FindIgnoringCase(const std::string& path);

}  // namespace platform
