// The host's errors, as a caller catches them, and what becomes of exceptions that must not
// escape.
#pragma once

#include "host/platform/Export.h"
#include "host/platform/WindowSystem.h"

#include <exception>
#include <string>
#include <string_view>

namespace shr {

// Every error that a filter throws through its host. what() is "source(line): message" in UTF-8.
//
// Catch it by reference: the classes of host/zeio/Errors.h derive from it. Copies share nothing.
class QOLF_HOST_API IError : public std::exception {
public:
    // How a warning is shown. The filters only use the first.
    enum class WarnStyle : int { Ordinary = 0 };

    // `source` and `line` say where the error arose: the name of a source file without folder and
    // extension, and a number that stands for the place in it.
    IError(std::wstring source, int line, std::wstring message);
    ~IError() override;
    IError(const IError&);
    IError& operator=(const IError&) = delete;

    const std::wstring& Source() const { return source_; }
    int Line() const { return line_; }
    const std::wstring& Message() const { return message_; }  // for the user, may have line breaks
    const char* what() const noexcept override { return what_.c_str(); }

private:
    std::wstring source_;
    int line_;
    std::wstring message_;
    std::string what_;
};

// Returns the system's text of an errno value, without a full stop.
QOLF_HOST_API std::wstring FormatSystemErrorMsg(int errorNumber);

// Logs an exception with its origin. True when it is of the host's own kind (an IError), or null.
//
// The names are views, so that a destructor without memory for a string can log as well.
[[nodiscard]] QOLF_HOST_API bool LogException(const std::exception_ptr& exception,
                                              std::wstring_view context,
                                              std::wstring_view sourceFile, int line) noexcept;

// Inside a catch block: logs the exception under way with its origin, and swallows it.
//
// This and the next one are inline, because a C++ runtime that is linked into each library on its
// own knows an exception only in the library that caught it.
inline void LogExceptionInfo(const wchar_t* module, const wchar_t* sourceFile, int line) {
    static_cast<void>(LogException(std::current_exception(), module, sourceFile, line));
}

// Inside a catch block: the same, but an exception that is not the host's own kind is rethrown
// after logging.
inline void LogExceptionInfoAndRethrowIfUnknown(const std::wstring& context,
                                                const std::wstring& sourceFile, int line) {
    if (!LogException(std::current_exception(), context, sourceFile, line)) {
        throw;
    }
}

// Returns what a dialog procedure gives back after a caught exception: 0, the message was not
// handled. Called right after the exception was logged.
QOLF_HOST_API int WinProcReturnCodeAfterException(HWND window, UINT message);

}  // namespace shr
