#include "host/zeio/ImportFileInfo.h"

namespace zeio {

ImportFileInfo::ImportFileInfo() = default;

ImportFileInfo::~ImportFileInfo() = default;

ImportFileInfo::ImportFileInfo(const ImportFileInfo&) = default;

ImportFileInfo& ImportFileInfo::operator=(const ImportFileInfo&) = default;

void ImportFileInfo::Add(const std::wstring& key, const wchar_t* text) {
    entries.emplace(key, std::wstring(text));
}

}  // namespace zeio
