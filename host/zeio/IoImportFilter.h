// The base of an import filter: slots 7 to 12.
//
// A filter may be asked about any number of files before, between and after its imports. After an
// import that has thrown, delete it.
#pragma once

#include "host/zeio/ImportFileInfo.h"
#include "host/zeio/IoFilter.h"

namespace zeio {

class TrBase;

class QOLF_HOST_API IoImportFilter : public IoFilter {
public:
    ~IoImportFilter() override;

    // Whether the filter can import the file. 0: no; other values are the filter's. Base: 0.
    virtual int CanImportFile(const std::wstring& path);

    // What the file holds, without importing it. The first argument says how much the host wants
    // to know; a filter may not care. Base: empty.
    virtual ImportFileInfo GetFileInfo(int detail, const std::wstring& path);

    // True when objects still come after Import has returned. Base: false, all have come by then.
    virtual bool HasDelayedImport() const;

    // Runs a whole import. Errors leave as exceptions (host/zeio/Errors.h).
    virtual void Import(const std::wstring& path) = 0;

    // Base: spools the bytes to a private temporary file, runs Import on it and deletes it. The
    // last argument says that the bytes are the host's last ones; a spooled import does not care.
    virtual void ImportFromMemory(const unsigned char* bytes, unsigned int count, bool isLast);

    // Called by the filter, not by the program: hands one object to the host, which copies what it
    // needs before returning. The host may also move parts out of the object or write into it.
    virtual void ImportObject(TrBase& object) const;

protected:
    explicit IoImportFilter(IoManager& manager);
};

}  // namespace zeio
