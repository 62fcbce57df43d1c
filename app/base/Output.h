// Output files that appear whole or not at all.
#pragma once

#include "app/base/TempFolder.h"

#include <cstdio>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace app {

enum class IfExists { Refuse, Overwrite };

// Throws Failure when `path` names a folder, when its folder does not exist, or when it exists and
// may not be overwritten; the message then mentions --overwrite.
void CheckOutput(const std::filesystem::path& path, IfExists ifExists);

// Throws Failure when writing `output` (and the .mid file beside a .mif) would replace `input` or
// its .mid file, by another name or over a link, too. IfExists::Overwrite does not change that.
void CheckNotInput(const std::filesystem::path& input, const std::filesystem::path& output);

// Throws UsageError when a MIF/MID pair can't be written under that name: for "-", which is a
// single stream, and for an extension other than .mif.
void CheckMifOutput(const std::string& argument);

// One output file, or standard output with the path "-".
//
// The file is written under its own name in a private folder beside its place, and Finish moves it
// there. Without Finish nothing is left behind. Devices and pipes are written to directly.
class OutputFile {
public:
    // Throws Failure as CheckOutput does, and when the private folder can't be made.
    OutputFile(const std::filesystem::path& path, IfExists ifExists);
    ~OutputFile();
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    // Appends bytes; they may stay in a buffer until Finish. Throws Failure with the system's
    // reason, and ClosedPipe when the reader of a pipe has ended.
    void Write(std::string_view bytes);

    // Writes out what is buffered, for a reader that waits for it. Throws as Write does.
    void Flush();

    // Closes the file and moves it into place. Throws as Write does.
    void Finish();

    // Returns the path that a library should write to by itself, in place of calls of Write. Finish
    // then only moves that file. Must not be called for standard output.
    std::filesystem::path PathForLibrary();

private:
    void OpenStream();
    [[noreturn]] void FailWriting();

    std::filesystem::path path_;
    std::filesystem::path workPath_;    // empty: written directly
    std::optional<TempFolder> folder_;  // beside path_; absent when written directly
    std::FILE* stream_ = nullptr;       // null until the first Write
    std::string buffer_;
    bool hasFailed_ = false;  // a failure was thrown: what is written after it is dropped
    bool isLibraryWritten_ = false;
};

// A MIF/MID pair: the export filter writes it in a private folder beside its place, and Finish
// moves both files there. Without Finish nothing is left behind.
class OutputPair {
public:
    // Throws Failure as CheckOutput does, for either file.
    OutputPair(const std::filesystem::path& mifPath, IfExists ifExists);

    // The .mif path to hand to the filter: the same name in the private folder.
    const std::filesystem::path& WorkPath() const { return workPath_; }

    // The .mid path in the private folder, where the filter writes it, and its place. An upper-case
    // .MIF gets an upper-case .MID.
    const std::filesystem::path& WorkMidPath() const { return workMidPath_; }
    const std::filesystem::path& MidPath() const { return midPath_; }

    // A name in the same folder, for a file that is to take the place of one of the two.
    std::filesystem::path SparePath() const;

    // Returns a text of the module with the working path replaced by the user's own.
    std::wstring WithFinalPath(std::wstring text) const;

    // Moves both files into place. Throws Failure.
    void Finish();

private:
    std::filesystem::path mifPath_;
    std::filesystem::path midPath_;
    TempFolder folder_;
    std::filesystem::path workPath_;
    std::filesystem::path workMidPath_;
};

}  // namespace app
