// File helpers by wide path.
#pragma once

#include "host/platform/Export.h"

#include <string>

namespace shr {

// True when the path names a file (no folder) that can be opened for reading. A name that
// differs in case only counts, as when opening (host/platform/Stdio.h).
QOLF_HOST_API bool IsFileReadable(const std::wstring& path);

// Bytes; 0 when there is no such file.
QOLF_HOST_API long long GetFileSize(const std::wstring& path);

// Deletes a file. False when it could not be deleted.
QOLF_HOST_API bool RemoveFile(const std::wstring& path);

}  // namespace shr
