// Slots 7 to 13.
#pragma once

#include "host/zeio/IoFilter.h"

namespace zeio {

class TrBase;

enum class ExportStatus : int { Done = 0, NothingWritten = 1, NotHandled = 2 };

class IoExportFilter : public IoFilter {
public:
    ~IoExportFilter() override;
    virtual ExportStatus BeginExport(const std::wstring& path) = 0;
    virtual ExportStatus BeginExportToMemory(std::vector<unsigned char>& bytes);
    virtual ExportStatus BeginExportToGlobalMemory(void*& block, unsigned long long& size);
    virtual ExportStatus ExportObject(TrBase& object) = 0;
    virtual ExportStatus EndExport() = 0;
    virtual ExportStatus EndExportToMemory();
    virtual ExportStatus EndExportToGlobalMemory();

protected:
    explicit IoExportFilter(IoManager& manager);
};

}  // namespace zeio
