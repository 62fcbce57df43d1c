#include "host/shr/IError.h"

#include "standalone/Log.h"
#include "standalone/Text.h"

#include <utility>

namespace shr {

namespace {

// What an exception under way says of itself, in UTF-8.
std::string DescribeCurrentException() {
    if (!std::current_exception()) {
        return "no exception is under way";
    }
    try {
        throw;
    } catch (const std::exception& error) {
        return error.what();
    } catch (...) {
        return "unknown exception";
    }
}

// Never throws: the callers are destructors and dialog procedures.
void LogCurrentException(const std::wstring& context, const std::wstring& sourceFile,
                         int line) noexcept {
    try {
        standalone::WriteLog({context, sourceFile, line, DescribeCurrentException()});
    } catch (...) {
        // A log that fails has nowhere to go.
    }
}

}  // namespace

IError::IError(std::wstring source, int line, std::wstring message)
    : source_(std::move(source)), line_(line), message_(std::move(message)),
      what_(standalone::Narrow(source_) + "(" + std::to_string(line_) +
            "): " + standalone::Narrow(message_)) {}

IError::~IError() = default;

IError::IError(const IError&) = default;

void LogExceptionInfo(const wchar_t* module, const wchar_t* sourceFile, int line) {
    LogCurrentException(module, sourceFile, line);
}

void LogExceptionInfoAndRethrowIfUnknown(const std::wstring& context,
                                         const std::wstring& sourceFile, int line) {
    LogCurrentException(context, sourceFile, line);
    if (!std::current_exception()) {
        return;
    }
    try {
        throw;
    } catch (const IError&) {
        // The host's own kind was logged, and that is all.
    }
}

int WinProcReturnCodeAfterException(HWND /*window*/, UINT /*message*/) {
    return 0;
}

}  // namespace shr
