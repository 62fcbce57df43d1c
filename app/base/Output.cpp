#include "app/base/Output.h"

#include "app/base/Errors.h"
#include "app/base/Paths.h"
#include "app/base/platform/System.h"
#include "host/platform/Stdio.h"

#include <cerrno>
#include <cstring>
#include <vector>

namespace app {
namespace {

constexpr std::size_t kBufferSize = 1 << 18;

std::filesystem::path FolderOf(const std::filesystem::path& path) {
    return path.has_parent_path() ? path.parent_path() : std::filesystem::path(".");
}

// Whether the path is a device or a pipe, which is written to and never replaced.
bool IsSpecialFile(const std::filesystem::path& path) {
    std::error_code error;
    const std::filesystem::file_status status = std::filesystem::status(path, error);
    return std::filesystem::exists(status) && !std::filesystem::is_regular_file(status);
}

// Returns the file behind a symbolic link: that file is replaced, and the link stays.
std::filesystem::path BehindLinks(const std::filesystem::path& path) {
    std::error_code error;
    if (!std::filesystem::is_symlink(path, error)) {
        return path;
    }
    std::filesystem::path target = std::filesystem::canonical(path, error);
    return error ? path : target;
}

void MoveIntoPlace(const std::filesystem::path& from, const std::filesystem::path& to) {
    std::error_code error;
    std::filesystem::rename(from, to, error);
    if (error) {
        throw Failure(PathText(to) + ": can't write: " + error.message());
    }
}

std::filesystem::path WithExtension(std::filesystem::path path, const char* extension) {
    return path.replace_extension(extension);
}

// The .mid file to write beside a .mif: ISLAND.MID for ISLAND.MIF, unless the pair is there already
// and has it in the other case.
std::filesystem::path MidBeside(const std::filesystem::path& mifPath) {
    const bool isUpper = mifPath.extension() == ".MIF";
    const std::filesystem::path usual = WithExtension(mifPath, isUpper ? ".MID" : ".mid");
    const std::filesystem::path other = WithExtension(mifPath, isUpper ? ".mid" : ".MID");
    std::error_code error;
    return !std::filesystem::exists(usual, error) && std::filesystem::exists(other, error) ? other
                                                                                           : usual;
}

bool IsMif(const std::filesystem::path& path) {
    return LowerExtension(path) == ".mif";
}

std::vector<std::filesystem::path> FilesReadFor(const std::filesystem::path& input) {
    std::vector<std::filesystem::path> files = {AsOnDisk(input)};
    if (IsMif(input)) {
        files.push_back(FindCompanion(input, ".mid"));
    }
    return files;
}

std::vector<std::filesystem::path> FilesWrittenFor(const std::filesystem::path& output) {
    std::vector<std::filesystem::path> files = {output};
    if (IsMif(output)) {
        files.push_back(MidBeside(output));
    }
    return files;
}

}  // namespace

void CheckOutput(const std::filesystem::path& path, IfExists ifExists) {
    std::error_code error;
    if (std::filesystem::is_directory(path, error)) {
        throw Failure(PathText(path) + ": is a folder; name a file to write");
    }
    if (!std::filesystem::is_directory(FolderOf(path), error)) {
        throw Failure(PathText(path) + ": can't write: there is no folder " +
                      PathText(FolderOf(path)));
    }
    if (ifExists == IfExists::Refuse && std::filesystem::exists(path, error) &&
        !IsSpecialFile(path)) {
        throw Failure(PathText(path) + ": exists already; --overwrite replaces it");
    }
}

void CheckNotInput(const std::filesystem::path& input, const std::filesystem::path& output) {
    for (const std::filesystem::path& read : FilesReadFor(input)) {
        for (const std::filesystem::path& written : FilesWrittenFor(output)) {
            std::error_code error;  // of a file that isn't there
            if (std::filesystem::equivalent(read, written, error)) {
                throw Failure(PathText(written) +
                              ": is the input, which is left alone; choose another name");
            }
        }
    }
}

void CheckMifOutput(const std::string& argument) {
    if (argument == "-") {
        throw UsageError("a MIF/MID pair is two files and can't go to standard output; name a .mif "
                         "file");
    }
    if (LowerExtension(PathFromArgument(argument)) != ".mif") {
        throw UsageError(argument + ": the output must be named .mif");
    }
}

OutputFile::OutputFile(const std::filesystem::path& path, IfExists ifExists)
    : path_(BehindLinks(path)) {
    if (path == "-") {
        return;
    }
    CheckOutput(path_, ifExists);
    if (!IsSpecialFile(path_)) {
        folder_.emplace(FolderOf(path_));
        workPath_ = folder_->File(path_.filename());
    }
}

OutputFile::~OutputFile() {
    if (stream_ != nullptr && stream_ != stdout) {
        std::fclose(stream_);
    }
}

void OutputFile::OpenStream() {
    if (path_ == "-") {
        stream_ = stdout;
        return;
    }
    stream_ =
        platform::OpenFile(WidePath(folder_ ? workPath_ : path_), platform::OpenMode::WriteBinary);
    if (stream_ == nullptr) {
        throw Failure(PathText(path_) + ": can't write: " + std::strerror(errno));
    }
}

void OutputFile::FailWriting() {
    hasFailed_ = true;
    // Null: the file was written, and closing it failed.
    if (stream_ != nullptr && IsClosedPipe(stream_, errno)) {
        throw ClosedPipe();
    }
    throw Failure((path_ == "-" ? "standard output" : PathText(path_)) +
                  ": can't write: " + std::strerror(errno));
}

void OutputFile::Write(std::string_view bytes) {
    if (hasFailed_) {
        return;
    }
    buffer_.append(bytes);
    if (buffer_.size() < kBufferSize) {
        return;
    }
    if (stream_ == nullptr) {
        OpenStream();
    }
    if (!WriteToStream(stream_, buffer_)) {
        FailWriting();
    }
    buffer_.clear();
}

void OutputFile::Flush() {
    if (stream_ == nullptr) {
        OpenStream();
    }
    if (!WriteToStream(stream_, buffer_) || std::fflush(stream_) != 0) {
        FailWriting();
    }
    buffer_.clear();
}

void OutputFile::Finish() {
    if (!isLibraryWritten_) {
        Flush();
        std::FILE* stream = stream_;
        if (stream != stdout) {
            stream_ = nullptr;
            if (std::fclose(stream) != 0) {
                FailWriting();
            }
        }
    }
    if (folder_) {
        MoveIntoPlace(workPath_, path_);
        folder_.reset();
    }
}

std::filesystem::path OutputFile::PathForLibrary() {
    isLibraryWritten_ = true;
    return folder_ ? workPath_ : path_;
}

OutputPair::OutputPair(const std::filesystem::path& mifPath, IfExists ifExists)
    : mifPath_((CheckOutput(mifPath, ifExists), mifPath)),
      midPath_((CheckOutput(MidBeside(mifPath), ifExists), MidBeside(mifPath))),
      folder_(FolderOf(mifPath)), workPath_(folder_.File(mifPath.filename())),
      workMidPath_(folder_.File(WithExtension(mifPath.filename(), ".mid"))) {}

std::filesystem::path OutputPair::SparePath() const {
    return folder_.File("spare");
}

std::wstring OutputPair::WithFinalPath(std::wstring text) const {
    // All files of the folder, so that the .mid of a pair is renamed, too.
    const std::wstring work = WidePath(folder_.Path() / "");
    const std::wstring final =
        mifPath_.has_parent_path() ? WidePath(mifPath_.parent_path() / "") : std::wstring();
    for (std::size_t at = text.find(work); at != std::wstring::npos; at = text.find(work, at)) {
        text.replace(at, work.size(), final);
        at += final.size();
    }
    return text;
}

void OutputPair::Finish() {
    MoveIntoPlace(workMidPath_, midPath_);
    MoveIntoPlace(workPath_, mifPath_);
}

}  // namespace app
