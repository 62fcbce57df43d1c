#include "host/shr/CPath.h"

#include "standalone/platform/Separators.h"

namespace shr {

namespace {

// Where the last name begins: behind the last separator.
std::size_t NameStart(const std::wstring& path) {
    const std::size_t separator = path.find_last_of(standalone::kPathSeparators);
    return separator == std::wstring::npos ? 0 : separator + 1;
}

}  // namespace

CPath::CPath(const std::wstring& path) : path_(path) {}

void CPath::SetExtension(const std::wstring& extension) {
    const std::size_t start = NameStart(path_);
    const std::size_t stop = path_.rfind(L'.');
    if (stop != std::wstring::npos && stop > start) {
        path_.erase(stop);
    }
    path_ += extension;
}

std::wstring CPath::GetNameAndExtension() const {
    return path_.substr(NameStart(path_));
}

std::wstring CPath::ChangeExtension(const std::wstring& path, const std::wstring& extension) {
    CPath changed(path);
    changed.SetExtension(extension);
    return changed.GetPath();
}

}  // namespace shr
