// What the command needs of the operating system beyond the standard library. One source a system.
#pragma once

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace app {

// The arguments as UTF-8 (on POSIX: as they came).
std::vector<std::string> ProgramArguments(int argc, char** argv);

// Lets a write to a pipe that nobody reads fail instead of ending the program.
void IgnoreClosedPipes();

// Puts standard input and output into binary mode where there is another one.
void UseBinaryStandardStreams();

// When a library's functions are looked up: a foreign one shows at once that one is missing, one
// of our own starts faster. Windows always looks at once.
enum class SymbolBinding { AtOnce, AtFirstCall };

// A loaded library, unloaded with the last copy of the pointer. Null on failure, with the reason.
std::shared_ptr<void> LoadSharedLibrary(const std::filesystem::path& path, std::string& reason,
                                        SymbolBinding binding);

// The address of an exported function; null when there is none.
void* LibrarySymbol(void* library, const char* name);

// The file name of the filter module: "qolf.so" or "qolf.dll".
const char* ModuleFileName();

// The folder that holds the running program; empty when the system does not tell.
std::filesystem::path ProgramFolder();

bool IsTerminal(std::FILE* stream);

// Appends the bytes of source from offset on to the file target, copied by the kernel where it
// can. Throws Failure.
void AppendFileRange(const std::filesystem::path& source, std::uint64_t offset,
                     const std::filesystem::path& target);

// Makes link another name for target: a symbolic link, or a copy where there are none. Throws
// Failure.
void LinkFile(const std::filesystem::path& target, const std::filesystem::path& link);

// Makes an empty folder with a new name below parent that only this user can use. Throws Failure.
std::filesystem::path MakePrivateFolder(const std::filesystem::path& parent);

}  // namespace app
