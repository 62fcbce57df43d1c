#include "host/zeio/Errors.h"

#include <utility>

namespace zeio {

ErrorMsg::~ErrorMsg() = default;

InternalError::InternalError(const std::wstring& source, int line)
    : IError(source, line, L"Internal error") {}

InternalError::~InternalError() = default;

FileError::FileError(const std::wstring& source, int line, std::wstring path, std::wstring reason)
    : IError(source, line, path + L": " + reason), path_(std::move(path)),
      reason_(std::move(reason)) {}

FileError::~FileError() = default;

FileError::FileError(const FileError&) = default;

FileOpenError::~FileOpenError() = default;

FileWriteError::~FileWriteError() = default;

}  // namespace zeio
