#include "host/shr/IError.h"

#include "standalone/Log.h"
#include "standalone/Text.h"

#include <string_view>
#include <utility>

namespace shr {

namespace {

// What an exception says of itself, in UTF-8.
std::string Describe(const std::exception_ptr& exception) {
    if (exception == nullptr) {
        return "no exception is under way";
    }
    try {
        std::rethrow_exception(exception);
    } catch (const std::exception& error) {
        return error.what();
    } catch (...) {
        return "unknown exception";
    }
}

bool IsHosts(const std::exception_ptr& exception) {
    try {
        std::rethrow_exception(exception);
    } catch (const IError&) {
        return true;
    } catch (...) {
        return false;
    }
}

}  // namespace

IError::IError(std::wstring source, int line, std::wstring message)
    : source_(std::move(source)), line_(line), message_(std::move(message)),
      what_(standalone::Narrow(source_) + "(" + std::to_string(line_) +
            "): " + standalone::Narrow(message_)) {}

IError::~IError() = default;

IError::IError(const IError&) = default;

bool LogException(const std::exception_ptr& exception, std::wstring_view context,
                  std::wstring_view sourceFile, int line) noexcept {
    try {
        standalone::WriteLog(
            {std::wstring(context), std::wstring(sourceFile), line, Describe(exception)});
    } catch (...) {
        // The callers are destructors and dialog procedures: a log that fails has nowhere to go.
    }
    return exception == nullptr || IsHosts(exception);
}

int WinProcReturnCodeAfterException(HWND /*window*/, UINT /*message*/) {
    return 0;
}

}  // namespace shr
