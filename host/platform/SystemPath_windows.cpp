#include "host/platform/SystemPath.h"

#include "host/platform/WindowSystem.h"

namespace platform {

namespace {

// Folders end earlier than files: 12 characters of MAX_PATH are kept for a name in them.
constexpr std::size_t kLongFrom = MAX_PATH - 12;

constexpr const wchar_t* kUnlimited = L"\\\\?\\";
constexpr const wchar_t* kUnlimitedShare = L"\\\\?\\UNC\\";

// With a drive or a share in front, backslashes only, and nothing relative. "" on failure.
std::wstring FullPath(const std::wstring& path) {
    const DWORD capacity = GetFullPathNameW(path.c_str(), 0, nullptr, nullptr);
    std::wstring full(capacity, L'\0');
    const DWORD length = GetFullPathNameW(path.c_str(), capacity, full.data(), nullptr);
    full.resize(length < capacity ? length : 0);
    return full;
}

}  // namespace

std::wstring SystemPath(const std::wstring& path) {
    if (path.find(L'\0') != std::wstring::npos) {
        return {};
    }
    if (path.starts_with(kUnlimited)) {
        return path;
    }
    // A short relative path may be long once the current folder stands before it.
    const std::wstring full = FullPath(path);
    if (full.size() < kLongFrom) {
        return path;
    }
    if (full.starts_with(L"\\\\")) {
        return kUnlimitedShare + full.substr(2);
    }
    return kUnlimited + full;
}

}  // namespace platform
