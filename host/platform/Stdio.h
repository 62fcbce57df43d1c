// The C runtime as the filters use it: stdio with wide paths and 64-bit offsets, and ASCII
// case-insensitive comparison. On Windows these are the runtime's own operations; elsewhere the
// host library supplies them over the system's stdio.
#pragma once

#include "host/platform/Export.h"

#include <cstdint>
#include <cstdio>
#include <span>
#include <string>

namespace platform {

enum class OpenMode {
    ReadBinary,  // "rb"
    WriteText,   // "wt": line ends become CR LF on Windows, nothing changes elsewhere
};

// Opens a file by its wide path. Null on failure, with errno set.
//
// Reading falls back to a name that differs in case only, where the file system tells case apart
// (ROADS.MIF beside ROADS.MID). A folder is refused with EISDIR. On systems other than Windows a
// path is UTF-8, and a byte that is no UTF-8 travels as the lone surrogate U+DC00 + byte.
QOLF_HOST_API std::FILE* OpenFile(const std::wstring& path, OpenMode mode);

// Moves to an offset in bytes from the start of the file. False on failure.
QOLF_HOST_API bool SeekTo(std::FILE* stream, std::uint64_t offset);

// Moves to the end of the file. False on failure.
QOLF_HOST_API bool SeekToEnd(std::FILE* stream);

// The offset in bytes from the start; 0 when the stream can't tell.
QOLF_HOST_API std::uint64_t Tell(std::FILE* stream);

// Lends the stream this memory as its buffer; call it right after opening. The memory must stay
// until the stream is closed. (Some C libraries ignore a size without memory.)
QOLF_HOST_API void LendBuffer(std::FILE* stream, std::span<char> memory);

// One byte (0 to 255) from the stream's own buffer without taking its lock, or EOF (-1).
// A stream belongs to one filter and a filter to one thread, so there is nothing to lock.
inline int GetByte(std::FILE* stream) {
#if defined(_WIN32)
    return _fgetc_nolock(stream);
#else
    return getc_unlocked(stream);
#endif
}

// Writes bytes. True when all of them were taken by the stream.
QOLF_HOST_API bool WriteBytes(std::FILE* stream, const char* bytes, std::size_t count);

// Writes wide text as the 8-bit text of code page 0; what the code page can't hold becomes '?'.
//
// A stream of the C library can't mix wide and narrow output, so the text is converted first.
QOLF_HOST_API bool WriteWide(std::FILE* stream, const std::wstring& text);

// <0, 0 or >0, as strcmp, with A to Z taken as a to z. Never looks at the locale.
QOLF_HOST_API int CompareNoCase(const char* left, const char* right);

// The same over at most count wide characters.
QOLF_HOST_API int CompareNoCase(const wchar_t* left, const wchar_t* right, std::size_t count);

// A wide path as the bytes of the file system, and back.
QOLF_HOST_API std::string PathToBytes(const std::wstring& path);
QOLF_HOST_API std::wstring PathFromBytes(const std::string& bytes);

}  // namespace platform
