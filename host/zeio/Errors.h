// The error classes of the throw operations, one a kind, so that a program can tell them apart.
//
// IoFilter's operations throw them; a program catches them, most often as shr::IError.
#pragma once

#include "host/platform/Export.h"
#include "host/shr/IError.h"

#include <string>

namespace zeio {

// ThrowErrorMsg: an import that failed, with a message for the user.
class QOLF_HOST_API ErrorMsg : public shr::IError {
public:
    using IError::IError;
    ~ErrorMsg() override;
};

// Throw_ERR_INTERNAL: operations in the wrong order, or a host's operation that failed. The message
// is "Internal error".
class QOLF_HOST_API InternalError : public shr::IError {
public:
    // The origin is all that tells one from another.
    InternalError(const std::wstring& source, int line);
    ~InternalError() override;
};

// A file that could not be opened or written; the message is "path: reason". The base of the next
// two, never thrown itself.
class QOLF_HOST_API FileError : public shr::IError {
public:
    FileError(const std::wstring& source, int line, std::wstring path, std::wstring reason);
    ~FileError() override;
    FileError(const FileError&);

    const std::wstring& Path() const { return path_; }  // as the program has given it

    // The system's words, or the filter's where the system has none.
    const std::wstring& Reason() const { return reason_; }

private:
    std::wstring path_;
    std::wstring reason_;
};

// Throw_ERR_FILE_OPEN: a file of an export can't be created. Nothing was written.
class QOLF_HOST_API FileOpenError : public FileError {
public:
    using FileError::FileError;
    ~FileOpenError() override;
};

// Throw_ERR_FILE_WRITE: the export can't be completed any more.
class QOLF_HOST_API FileWriteError : public FileError {
public:
    using FileError::FileError;
    ~FileWriteError() override;
};

}  // namespace zeio
