#include "host/zeio/IoFilter.h"

#include "host/zeio/Errors.h"
#include "host/zeio/IoManager.h"
#include "standalone/IoHost.h"

namespace zeio {

IoFilter::IoFilter(IoManager& manager) : manager_(manager) {}

IoFilter::~IoFilter() = default;

void IoFilter::GetPropertyPages(std::vector<IoPropertyPage*>& /*pages*/,
                                const std::wstring& /*title*/) {}

void IoFilter::SetOptionsFromString(const std::wstring& /*options*/) {}

std::wstring IoFilter::GetOptionsInStringForm() const {
    return {};
}

wchar_t IoFilter::GetOptionStringDelimiter() const {
    return L';';
}

bool IoFilter::SupportsObjectType(const shr::CTypeInfo* /*type*/) const {
    return false;
}

void IoFilter::ThrowErrorMsg(const std::wstring& sourceFile, int line,
                             const std::wstring& message) const {
    throw ErrorMsg(sourceFile, line, message);
}

void IoFilter::Throw_ERR_INTERNAL(const wchar_t* sourceFile, int line) const {
    throw InternalError(sourceFile, line);
}

void IoFilter::Throw_ERR_FILE_OPEN(const wchar_t* sourceFile, int line, const std::wstring& path,
                                   const std::wstring& reason) const {
    throw FileOpenError(sourceFile, line, path, reason);
}

void IoFilter::Throw_ERR_FILE_WRITE(const wchar_t* sourceFile, int line, const std::wstring& path,
                                    const std::wstring& reason) const {
    throw FileWriteError(sourceFile, line, path, reason);
}

void IoFilter::ShowHelp(const std::wstring& topic, const std::wstring& anchor) const {
    manager_.Host().ShowHelp(topic, anchor);
}

}  // namespace zeio
