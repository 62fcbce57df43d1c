// Output files that appear whole or not at all.
#pragma once

#include "app/platform/TempFolder.h"

#include <cstdio>
#include <filesystem>
#include <memory>
#include <optional>
#include <string_view>

namespace app {

enum class IfExists { Refuse, Overwrite };

// Throws Failure when path names a folder, or exists and may not be overwritten. The message
// mentions --overwrite.
void CheckOutput(const std::filesystem::path& path, IfExists ifExists);

// Text or bytes for one file, or for standard output with the path "-".
//
// A file is written under another name in a private folder beside it and moved into place by
// Finish. Without Finish nothing is left. Devices and pipes are written to directly.
class OutputFile {
public:
    OutputFile(const std::filesystem::path& path, IfExists ifExists);
    ~OutputFile();
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    // Throws Failure with the system's reason; ClosedPipe when nobody reads any more.
    void Write(std::string_view bytes);

    // Closes and moves into place. Throws Failure.
    void Finish();

    // For a library that writes by itself: the name to write to instead of using Write. Finish then
    // only moves the file. Not for standard output.
    std::filesystem::path PathForLibrary();

private:
    void OpenStream();

    std::filesystem::path path_;
    std::filesystem::path workPath_;    // empty: written directly
    std::optional<TempFolder> folder_;  // in the folder of path_
    std::FILE* stream_ = nullptr;       // null until the first Write
    bool ownsStream_ = false;
};

// A MIF/MID pair: written by the export filter in a private folder beside its place, moved by
// Finish.
class OutputPair {
public:
    OutputPair(const std::filesystem::path& mifPath, IfExists ifExists);

    // The path to hand to the filter; same name, other folder.
    const std::filesystem::path& WorkPath() const { return workPath_; }

    void Finish();

private:
    std::filesystem::path mifPath_;
    TempFolder folder_;
    std::filesystem::path workPath_;
};

}  // namespace app
