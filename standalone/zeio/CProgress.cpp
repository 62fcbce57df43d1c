#include "host/zeio/CProgress.h"

#include "host/shr/IError.h"
#include "host/zeio/IoManager.h"
#include "standalone/shr/Format.h"

#include <cstdarg>

namespace zeio {

namespace {

constexpr int kEndFailed = 1;  // the origin "line" of an exception that the destructor swallows

}  // namespace

CProgress::CProgress(IoManager& manager) : manager_(manager) {
    manager_.ProgressStart({}, /*canCancel=*/true, /*hasProportion=*/true);
}

CProgress::~CProgress() {
    try {
        manager_.ProgressEnd();
    } catch (...) {
        shr::LogExceptionInfo(L"qolfhost", L"CProgress", kEndFailed);
    }
}

void CProgress::MessageVA(const wchar_t* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    const std::wstring text = shr::detail::FormatArguments(format, arguments);
    va_end(arguments);
    manager_.ProgressMessage(text);
}

}  // namespace zeio
