// File helpers by wide path. A path with a NUL names no file. None of them throws but for want of
// memory.
#pragma once

#include "host/platform/Export.h"

#include <string>

namespace shr {

// True when the path names a file (no folder) that can be opened for reading. A name that
// differs in case only counts, as when opening (host/platform/Stdio.h).
QOLF_HOST_API bool IsFileReadable(const std::wstring& path);

// Returns the file's size in bytes; 0 when there is no such file, and for a folder.
QOLF_HOST_API long long GetFileSize(const std::wstring& path);

// Deletes a file, or a link to one. False when it could not be deleted; a folder never is. The name
// has to be exact: one that differs in case is another file.
QOLF_HOST_API bool RemoveFile(const std::wstring& path);

}  // namespace shr
