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

// Throws Failure when path names a folder, lies in no folder, or exists and may not be overwritten;
// the message then mentions --overwrite.
void CheckOutput(const std::filesystem::path& path, IfExists ifExists);

// Throws Failure when the output, with the .mid file of a pair, would replace the input or its .mid
// file, under whatever name or link. Inputs are left alone, also with IfExists::Overwrite.
void CheckNotInput(const std::filesystem::path& input, const std::filesystem::path& output);

// Throws UsageError when a MIF/MID pair can't have that name: "-", or an extension other than .mif.
void CheckMifOutput(const std::string& argument);

// Text or bytes for one file, or for standard output with the path "-".
//
// A file is written under its name in a private folder beside its place and moved there by Finish.
// Without Finish nothing is left. Devices and pipes are written to directly.
class OutputFile {
public:
    // Throws Failure.
    OutputFile(const std::filesystem::path& path, IfExists ifExists);
    ~OutputFile();
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    // Takes bytes; they may stay in a buffer until Finish. Throws Failure with the system's reason;
    // ClosedPipe when nobody reads any more.
    void Write(std::string_view bytes);

    // Sends what is buffered on its way, for a reader that waits. Throws as Write.
    void Flush();

    // Closes and moves into place. Throws as Write.
    void Finish();

    // For a library that writes by itself: the name to write to instead of calling Write. Finish
    // then only moves that file. Not for standard output.
    std::filesystem::path PathForLibrary();

private:
    void OpenStream();
    [[noreturn]] void FailWriting();

    std::filesystem::path path_;
    std::filesystem::path workPath_;    // empty: written directly
    std::optional<TempFolder> folder_;  // beside path_; absent when written directly
    std::FILE* stream_ = nullptr;       // null until the first Write
    std::string buffer_;
    bool hasFailed_ = false;  // the failure was thrown; what comes after it is dropped
    bool isLibraryWritten_ = false;
};

// A MIF/MID pair: written by the export filter in a private folder beside its place, moved there by
// Finish.
class OutputPair {
public:
    OutputPair(const std::filesystem::path& mifPath, IfExists ifExists);

    // The path to hand to the filter: the same name in another folder.
    const std::filesystem::path& WorkPath() const { return workPath_; }

    // A name in the same folder, for a file that is to take the place of one of the two.
    std::filesystem::path SparePath() const;

    // A text of the module with the working path replaced by the user's.
    std::wstring WithFinalPath(std::wstring text) const;

    // Moves both files into place. Throws Failure.
    void Finish();

private:
    std::filesystem::path mifPath_;
    TempFolder folder_;
    std::filesystem::path workPath_;
};

}  // namespace app
