// The error classes of the throw operations, one a kind, so that a program can tell them apart.
#pragma once

#include "host/platform/Export.h"
#include "host/shr/IError.h"

#include <string>

namespace zeio {

class QOLF_HOST_API ErrorMsg : public shr::IError {
public:
    using IError::IError;
    ~ErrorMsg() override;
};

class QOLF_HOST_API InternalError : public shr::IError {
public:
    InternalError(const std::wstring& source, int line);
    ~InternalError() override;
};

// A file that could not be opened or written; the message is "path: reason".
class QOLF_HOST_API FileError : public shr::IError {
public:
    FileError(const std::wstring& source, int line, std::wstring path, std::wstring reason);
    ~FileError() override;
    FileError(const FileError&);

    const std::wstring& Path() const { return path_; }
    const std::wstring& Reason() const { return reason_; }

private:
    std::wstring path_;
    std::wstring reason_;
};

class QOLF_HOST_API FileOpenError : public FileError {
public:
    using FileError::FileError;
    ~FileOpenError() override;
};

class QOLF_HOST_API FileWriteError : public FileError {
public:
    using FileError::FileError;
    ~FileWriteError() override;
};

}  // namespace zeio
