// What the command needs of the operating system beyond the standard library. Each system has a
// source of its own.
#pragma once

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace app {

// Returns the arguments of main() as UTF-8; on POSIX their bytes as they came. On Windows, whose
// shells leave that to programs, "*" and "?" in the last name of a path stand for the files there.
std::vector<std::string> ProgramArguments(int argc, char** argv);

// Makes a write to a pipe without a reader fail, in place of ending the program.
void IgnoreClosedPipes();

// Whether a write to the stream failed with this error (errno) because it is a pipe and its reader
// has ended.
bool IsClosedPipe(std::FILE* stream, int error);

// Makes the standard streams carry bytes, on systems where they have a text mode.
void PrepareStandardStreams();

// Writes UTF-8 to a stream, to a console of Windows as the text that it is. Returns false, with
// errno set, when not all of it could be written.
bool WriteToStream(std::FILE* stream, std::string_view utf8);

// Returns a variable of the environment, in the form of ProgramArguments; "" when it is not set.
std::string EnvironmentVariable(const char* name);

// Throws Failure when the last name in the path can't be a file's on this system.
void CheckFileName(const std::filesystem::path& path);

// When a library's functions are looked up. AtOnce shows a missing function of a foreign library
// when it is loaded; AtFirstCall loads a library of our own faster. Windows always looks at once.
enum class SymbolBinding { AtOnce, AtFirstCall };

// Loads a library, which is unloaded with the last copy of the pointer. Returns null on failure,
// with the reason in `reason`.
std::shared_ptr<void> LoadSharedLibrary(const std::filesystem::path& path, std::string& reason,
                                        SymbolBinding binding);

// Returns the address of an exported function; null when the library has no such function.
void* LibrarySymbol(void* library, const char* name);

// Returns the file name of the filter module: "qolf.so" or "qolf.dll".
const char* ModuleFileName();

// Returns the folder of the running program; empty when the system does not know it.
std::filesystem::path ProgramFolder();

// Whether a person sees the stream: a terminal, or a console that understands escape sequences.
bool IsTerminal(std::FILE* stream);

// Makes `link` another name of the file `target`: a symbolic link, or a copy on systems without
// them. Throws Failure.
void LinkFile(const std::filesystem::path& target, const std::filesystem::path& link);

// Whether a file can be renamed over one that is open.
bool CanReplaceOpenFiles();

// Returns the name of this machine; "-" and what names of files can't have become "_". Empty when
// the system does not know it.
std::string HostName();

// Makes an empty folder below `parent` that only this user can use, with a new name, and returns
// its path. Throws Failure.
std::filesystem::path MakePrivateFolder(const std::filesystem::path& parent);

}  // namespace app
