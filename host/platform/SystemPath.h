// Paths as the system's wide functions take them. Windows only; not for programs outside this tree.
#pragma once

#include <string>

namespace platform {

// The path in the form that has no limit of 260 characters, where it is that long; else the path
// itself. "" for one with a NUL, which the system would cut short.
std::wstring SystemPath(const std::wstring& path);

}  // namespace platform
