// The base of every filter: its virtual slots in the order in which the host calls them, and the
// host's throw operations.
#pragma once

#include "host/platform/Export.h"
#include "host/shr/CTypeInfo.h"
#include "host/shr/NonCopyable.h"
#include "host/zeio/FilterIdentity.h"

#include <string>
#include <vector>

namespace zeio {

class IoManager;
class IoPropertyPage;

class QOLF_HOST_API IoFilter : public shr::NonCopyable, protected shr::NonComparable {
public:
    // Slots 0 to 6. Slots 7 and up belong to IoImportFilter and IoExportFilter.
    virtual ~IoFilter();

    // The filter class's constant record; never null.
    virtual const FilterIdentity* GetFilterIdentity() const = 0;

    // Appends the filter's options pages, which stay the filter's own. Base: none.
    virtual void GetPropertyPages(std::vector<IoPropertyPage*>& pages, const std::wstring& title);

    // Sets the options that the string names (IoManager::GetStringOption). Base: does nothing.
    virtual void SetOptionsFromString(const std::wstring& options);

    // The options as such a string. Base: an empty text.
    virtual std::wstring GetOptionsInStringForm() const;

    // What stands between two options of the string. Base: ';'.
    virtual wchar_t GetOptionStringDelimiter() const;

    // True for the translation objects that the filter makes or takes. Base: false.
    virtual bool SupportsObjectType(const shr::CTypeInfo* type) const;

    // The throw operations: each throws the matching class of host/zeio/Errors.h.
    [[noreturn]] void ThrowErrorMsg(const std::wstring& sourceFile, int line,
                                    const std::wstring& message) const;
    [[noreturn]] void Throw_ERR_INTERNAL(const wchar_t* sourceFile, int line) const;
    [[noreturn]] void Throw_ERR_FILE_OPEN(const wchar_t* sourceFile, int line,
                                          const std::wstring& path,
                                          const std::wstring& reason) const;
    [[noreturn]] void Throw_ERR_FILE_WRITE(const wchar_t* sourceFile, int line,
                                           const std::wstring& path,
                                           const std::wstring& reason) const;

    // Opens a help topic, given by its file name; an empty anchor is its top.
    void ShowHelp(const std::wstring& topic, const std::wstring& anchor) const;

    // The manager that the filter was made with.
    IoManager& Manager() const { return manager_; }

protected:
    explicit IoFilter(IoManager& manager);

private:
    IoManager& manager_;
};

}  // namespace zeio
