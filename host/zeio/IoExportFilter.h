// The base of an export filter: slots 7 to 13.
//
// Order of calls: BeginExport, ExportObject for each object, EndExport; then again from the start.
// The same with the two forms to memory. An export that is not ended ends with the filter, and
// leaves no file.
#pragma once

#include "host/zeio/IoFilter.h"

#include <memory>

namespace zeio {

class TrBase;

enum class ExportStatus : int {
    Done = 0,            // begun, handled or written
    NothingWritten = 1,  // EndExport: no graphic object came, no file is left
    NotHandled = 2,      // ExportObject: an object of a kind that the filter does not know
};

class QOLF_HOST_API IoExportFilter : public IoFilter {
public:
    ~IoExportFilter() override;

    // Creates the files of an export, replacing older ones. Errors leave as exceptions
    // (host/zeio/Errors.h).
    virtual ExportStatus BeginExport(const std::wstring& path) = 0;

    // Base: exports to a private temporary file; EndExportToMemory fills the vector with the main
    // file's bytes and deletes what was written. The vector must live until then.
    virtual ExportStatus BeginExportToMemory(std::vector<unsigned char>& bytes);

    // Base: the same into a block from malloc, which becomes the caller's to free.
    virtual ExportStatus BeginExportToGlobalMemory(void*& block, unsigned long long& size);

    // Takes one object: writes what is drawn, remembers what it is drawn with, answers a
    // TrInitGraphicsExp. The object stays the caller's.
    virtual ExportStatus ExportObject(TrBase& object) = 0;

    // Completes and closes the files. A write that fails leaves none of them, and is an error.
    virtual ExportStatus EndExport() = 0;

    // Base: end what the matching operation above has begun, else throw an InternalError.
    virtual ExportStatus EndExportToMemory();
    virtual ExportStatus EndExportToGlobalMemory();

protected:
    explicit IoExportFilter(IoManager& manager);

private:
    struct MemoryExport;
    std::unique_ptr<MemoryExport> memoryExport_;  // null unless one is under way
};

}  // namespace zeio
