// One file of a pair that is being written, whose beginning is known last.
#pragma once

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <string_view>

namespace app {

// All operations throw Failure with the system's reason. A file that isn't finished is left to its
// folder.
class PairFile {
public:
    // Creates the file `workPath`; a rewriting makes `sparePath` and moves it to its place.
    // `shownPath` is named in messages.
    PairFile(std::filesystem::path workPath, std::filesystem::path sparePath,
             std::filesystem::path shownPath);

    // What is to be written next; Write sends it on its way once it has become large.
    std::string& Buffer() { return buffer_; }
    void Write();

    // Appends something for a piece of the file and returns how much of the piece it has taken; the
    // rest comes again, before what follows it.
    using Change = std::function<std::size_t(std::string_view piece, std::string& out)>;

    // Writes the file once more, as `change` has it from `skippedBytes` on.
    void Rewrite(std::size_t skippedBytes, const Change& change);

    // Writes over the first bytes and closes the file.
    void Finish(std::string_view start);

private:
    void Open(const std::filesystem::path& path, std::ios::openmode mode);
    void Read(std::ifstream& input, std::string& text, std::size_t from) const;
    void Flush();
    void Close();
    void CheckStream() const;
    [[noreturn]] void Fail(const std::string& reason) const;

    std::filesystem::path workPath_;
    std::filesystem::path sparePath_;
    std::filesystem::path shownPath_;
    std::fstream stream_;
    std::string buffer_;
};

}  // namespace app
