// The styles of warnings, the texts of system errors, and what becomes of swallowed exceptions.
#pragma once

#include "host/platform/WindowSystem.h"

#include <string>

namespace shr {

class IError {
public:
    enum class WarnStyle : int { Ordinary = 0 };

    IError() = delete;
};

std::wstring FormatSystemErrorMsg(int errorNumber);

void LogExceptionInfo(const wchar_t* module, const wchar_t* sourceFile, int line);
void LogExceptionInfoAndRethrowIfUnknown(const std::wstring& context,
                                         const std::wstring& sourceFile, int line);
int WinProcReturnCodeAfterException(HWND window, UINT message);

}  // namespace shr
