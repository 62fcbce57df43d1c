#pragma once

#include <string>

namespace shr {

bool IsFileReadable(const std::wstring& path);
long long GetFileSize(const std::wstring& path);
void RemoveFile(const std::wstring& path);

}  // namespace shr
