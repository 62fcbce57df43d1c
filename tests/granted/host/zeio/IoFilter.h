// Slots 0 to 6, the manager, and what a filter calls of its base.
#pragma once

#include "host/shr/CTypeInfo.h"
#include "host/shr/NonCopyable.h"
#include "host/zeio/FilterIdentity.h"

#include <string>
#include <vector>

namespace zeio {

class IoManager;
class IoPropertyPage;

class IoFilter : public shr::NonCopyable, protected shr::NonComparable {
public:
    virtual ~IoFilter();
    virtual const FilterIdentity* GetFilterIdentity() const = 0;
    virtual void GetPropertyPages(std::vector<IoPropertyPage*>& pages, const std::wstring& title);
    virtual void SetOptionsFromString(const std::wstring& options);
    virtual std::wstring GetOptionsInStringForm() const;
    virtual wchar_t GetOptionStringDelimiter() const;
    virtual bool SupportsObjectType(const shr::CTypeInfo* type) const;

    [[noreturn]] void ThrowErrorMsg(const std::wstring& sourceFile, int line,
                                    const std::wstring& message) const;
    [[noreturn]] void Throw_ERR_INTERNAL(const wchar_t* sourceFile, int line) const;
    [[noreturn]] void Throw_ERR_FILE_OPEN(const wchar_t* sourceFile, int line,
                                          const std::wstring& first,
                                          const std::wstring& second) const;
    [[noreturn]] void Throw_ERR_FILE_WRITE(const wchar_t* sourceFile, int line,
                                           const std::wstring& first,
                                           const std::wstring& second) const;
    void ShowHelp(const std::wstring& topic, const std::wstring& anchor) const;

protected:
    explicit IoFilter(IoManager& manager);
    IoManager& Manager() const;
};

}  // namespace zeio
