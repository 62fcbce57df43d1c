// A file path and its pieces. '/' and, on Windows, '\' and the colon of a drive separate folders.
//
// Works on the text alone: no file is looked for, and any text is a path.
#pragma once

#include "host/platform/Export.h"

#include <string>

namespace shr {

class QOLF_HOST_API CPath {
public:
    explicit CPath(const std::wstring& path);

    // Replaces the extension of the last name, or adds one. `extension` begins with a full stop. A
    // name that only begins with a full stop (".mif") has no extension.
    void SetExtension(const std::wstring& extension);

    const std::wstring& GetPath() const { return path_; }

    // The last name, without its folders; empty for a path that ends with a separator.
    std::wstring GetNameAndExtension() const;

    // Returns `path` with SetExtension applied to it.
    static std::wstring ChangeExtension(const std::wstring& path, const std::wstring& extension);

private:
    std::wstring path_;
};

}  // namespace shr
