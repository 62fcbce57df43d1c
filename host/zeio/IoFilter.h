// The base of every filter: its virtual slots in the order in which the host calls them, and the
// host's throw operations.
//
// A program gets a filter from the module's factory, calls it through these slots only, from one
// thread at a time, and deletes it through the first. The slots stand in this order for good: the
// module and the program may be built by different hands.
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
    // Slots 0 to 6. Slots 7 and up belong to IoImportFilter and IoExportFilter. What a slot throws
    // is a shr::IError, or what an operation of the host has thrown.
    virtual ~IoFilter();

    // The filter class's constant record; never null.
    virtual const FilterIdentity* GetFilterIdentity() const = 0;

    // Appends the filter's options pages, which stay the filter's own: until the next call, until
    // an export begins, or as long as the filter lives. `title` is the path that the pages are for;
    // it may be empty. Base: appends none.
    virtual void GetPropertyPages(std::vector<IoPropertyPage*>& pages, const std::wstring& title);

    // Sets the options that the string names (IoManager::GetStringOption) over the remembered ones,
    // and remembers the result. Base: does nothing.
    virtual void SetOptionsFromString(const std::wstring& options);

    // Returns the options as such a string. Base: an empty text.
    virtual std::wstring GetOptionsInStringForm() const;

    // Returns what stands between two options of the string. Base: ';'.
    virtual wchar_t GetOptionStringDelimiter() const;

    // True for the classes of translation objects that the filter makes or takes, by the address
    // that their GetClassTypeId gives. Base: false.
    virtual bool SupportsObjectType(const shr::CTypeInfo* type) const;

    // The throw operations: each throws the matching class of host/zeio/Errors.h and never returns.
    // `sourceFile` (without folder and extension) and `line` are the origin that the error carries.
    [[noreturn]] void ThrowErrorMsg(const std::wstring& sourceFile, int line,
                                    const std::wstring& message) const;
    [[noreturn]] void Throw_ERR_INTERNAL(const wchar_t* sourceFile, int line) const;
    [[noreturn]] void Throw_ERR_FILE_OPEN(const wchar_t* sourceFile, int line,
                                          const std::wstring& path,
                                          const std::wstring& reason) const;
    [[noreturn]] void Throw_ERR_FILE_WRITE(const wchar_t* sourceFile, int line,
                                           const std::wstring& path,
                                           const std::wstring& reason) const;

    // Opens a help topic, given by its file name ("Mif-Export.htm"); an empty anchor is its top.
    void ShowHelp(const std::wstring& topic, const std::wstring& anchor) const;

    // The manager that the filter was made with.
    IoManager& Manager() const { return manager_; }

protected:
    // The manager must outlive the filter.
    explicit IoFilter(IoManager& manager);

private:
    IoManager& manager_;
};

}  // namespace zeio
