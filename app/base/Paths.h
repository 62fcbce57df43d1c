// File paths between the command line (UTF-8 or the file system's bytes), std::filesystem and the
// wide paths of the host.
#pragma once

#include <filesystem>
#include <string>

namespace app {

// A path as a user typed it.
std::filesystem::path PathFromArgument(const std::string& argument);

// The wide form that the host's interfaces take; any byte of a name survives.
std::wstring WidePath(const std::filesystem::path& path);

// The path as UTF-8, for messages and JSON.
std::string PathText(const std::filesystem::path& path);

// The extension in lower case with its full stop (".mif"); "" without one.
std::string LowerExtension(const std::filesystem::path& path);

// The file beside path that has its stem and the given extension, in whatever case the file system
// holds it; an empty path when there is none.
std::filesystem::path FindCompanion(const std::filesystem::path& path,
                                    const std::string& extension);

// The file that opening path finds, whose name may differ in case; path itself when there is none.
std::filesystem::path AsOnDisk(const std::filesystem::path& path);

// The bytes of the file; 0 when that is not known.
double SizeOfFile(const std::filesystem::path& path);

}  // namespace app
