// File paths between the command line (UTF-8 or the file system's bytes), std::filesystem and the
// wide paths of the host.
#pragma once

#include <filesystem>
#include <string>

namespace app {

// Turns an argument of the command line into a path. Throws Failure for a name that the system
// keeps for a device, like "aux.mif" on Windows.
std::filesystem::path PathFromArgument(const std::string& argument);

// Returns the argument from which PathFromArgument makes `path`.
std::string ArgumentFromPath(const std::filesystem::path& path);

// Returns the wide form that the host's interfaces take. Bytes that are not UTF-8 survive the way
// there and back.
std::wstring WidePath(const std::filesystem::path& path);

// Returns what PathFromArgument makes this path of.
std::string ArgumentOfPath(const std::filesystem::path& path);

// Returns the path as UTF-8, for messages and JSON. Of a file that was unpacked it is the place in
// the archive (app/base/ShownPlace.h).
std::string PathText(const std::filesystem::path& path);

// Returns the name as one that a file can have on every system: what can't be in it, blanks and
// dots at its ends, and the names of devices are changed. `utf8` may be anything.
std::string SafeFileName(const std::string& utf8);

// Returns the extension in lower case with its full stop (".mif"); "" when there is none.
std::string LowerExtension(const std::filesystem::path& path);

// Returns the file beside `path` with the same stem and the given extension (".mid"), whatever the
// case of its letters; an empty path when no such file exists.
std::filesystem::path FindCompanion(const std::filesystem::path& path,
                                    const std::string& extension);

// Returns the file that opening `path` finds: its name may differ in the case of letters. Returns
// `path` itself when no file is found.
std::filesystem::path AsOnDisk(const std::filesystem::path& path);

// Returns the size of a file in bytes; 0 when it is not known, as for a pipe.
double SizeOfFile(const std::filesystem::path& path);

}  // namespace app
