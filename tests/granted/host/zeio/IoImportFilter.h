// Slots 7 to 12.
#pragma once

#include "host/zeio/ImportFileInfo.h"
#include "host/zeio/IoFilter.h"

namespace zeio {

class TrBase;

class IoImportFilter : public IoFilter {
public:
    ~IoImportFilter() override;
    virtual int CanImportFile(const std::wstring& path);
    virtual ImportFileInfo GetFileInfo(int detail, const std::wstring& path);
    virtual bool HasDelayedImport() const;
    virtual void Import(const std::wstring& path) = 0;
    virtual void ImportFromMemory(const unsigned char* bytes, unsigned int count, bool isLast);
    virtual void ImportObject(TrBase& object) const;

protected:
    explicit IoImportFilter(IoManager& manager);
};

}  // namespace zeio
