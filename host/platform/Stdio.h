// The C runtime as the filters and the command use it: stdio with wide paths and 64-bit offsets,
// and comparison without regard to case. Ours on every system, over the system's own stdio: no host
// has to offer it. Each binary has its own copy of this code.
#pragma once

#include <cstdint>
#include <cstdio>
#include <span>
#include <string>

namespace platform {

enum class OpenMode {
    ReadBinary,   // "rb"
    WriteText,    // "wt": line ends become CR LF on Windows, nothing changes elsewhere
    WriteBinary,  // "wb"
    AppendBinary  // "ab"
};

// Opens a file by its wide path. Null on failure, with errno set.
//
// Reading falls back to a name that differs in case only, where the file system tells case apart
// (ROADS.MIF beside ROADS.MID). A folder is refused with EISDIR. On systems other than Windows a
// path is UTF-8, and a byte that is no UTF-8 travels as the lone surrogate U+DC00 + byte.
std::FILE* OpenFile(const std::wstring& path, OpenMode mode);

// Moves to an offset in bytes from the start of the file. False on failure.
bool SeekTo(std::FILE* stream, std::uint64_t offset);

// Moves to the end of the file. False on failure.
bool SeekToEnd(std::FILE* stream);

// The offset in bytes from the start; 0 when the stream can't tell.
std::uint64_t Tell(std::FILE* stream);

// Lends the stream this memory as its buffer; call it right after opening. The memory must stay
// until the stream is closed. (Some C libraries ignore a size without memory.)
void LendBuffer(std::FILE* stream, std::span<char> memory);

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
bool WriteBytes(std::FILE* stream, const char* bytes, std::size_t count);

// <0, 0 or >0, as strcmp, with A to Z taken as a to z. Never looks at the locale.
int CompareNoCase(const char* left, const char* right);

// The same over at most `count` wide characters, ending at a NUL.
int CompareNoCase(const wchar_t* left, const wchar_t* right, std::size_t count);

// A wide path as the bytes of the file system, and back.
std::string PathToBytes(const std::wstring& path);
std::wstring PathFromBytes(const std::string& bytes);

}  // namespace platform
