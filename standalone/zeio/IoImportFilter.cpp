#include "host/zeio/IoImportFilter.h"

#include "host/zeio/IoManager.h"
#include "standalone/IoHost.h"
#include "standalone/platform/PrivateFiles.h"

#include <string_view>

namespace zeio {

IoImportFilter::IoImportFilter(IoManager& manager) : IoFilter(manager) {}

IoImportFilter::~IoImportFilter() = default;

int IoImportFilter::CanImportFile(const std::wstring& /*path*/) {
    return 0;
}

ImportFileInfo IoImportFilter::GetFileInfo(int /*detail*/, const std::wstring& /*path*/) {
    return {};
}

bool IoImportFilter::HasDelayedImport() const {
    return false;
}

void IoImportFilter::ImportFromMemory(const unsigned char* bytes, unsigned int count,
                                      bool /*isLast*/) {
    const standalone::PrivateFolder folder;
    const std::string name = "memory.mif";
    standalone::WritePrivateFile(folder.Path() / name,
                                 std::string_view(reinterpret_cast<const char*>(bytes), count));
    Import(folder.PathOf(name));
}

void IoImportFilter::ImportObject(TrBase& object) const {
    Manager().Host().ImportObject(object);
}

}  // namespace zeio
