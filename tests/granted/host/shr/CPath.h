// A path and its pieces.
#pragma once

#include <string>

namespace shr {

class CPath {
public:
    explicit CPath(const std::wstring& path);
    ~CPath();
    CPath(const CPath&) = delete;
    CPath& operator=(const CPath&) = delete;

    void SetExtension(const std::wstring& extension);
    std::wstring GetPath() const;
    std::wstring GetNameAndExtension() const;
    static std::wstring ChangeExtension(const std::wstring& path, const std::wstring& extension);
};

}  // namespace shr
