// Text as an open input of either kind, so that one test runs over both.
#pragma once

#include "reader/CMifReader.h"
#include "tests/support/TemporaryFolder.h"

#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace readertest {

enum class Source { Stream, Memory };
inline constexpr Source kBothSources[] = {Source::Stream, Source::Memory};
std::string NameOf(Source source);
std::ostream& operator<<(std::ostream& out, Source source);

// The bytes of a text in a block of exactly that size.
std::vector<unsigned char> BlockOf(std::string_view text);

// A text that is open, with its first token loaded.
class OpenText {
public:
    OpenText(Source source, std::string_view text);

    mif::CMifInputFile& input() { return input_; }
    std::string token() const { return std::string(input_.token()); }

    // The current token and all that follow, up to the first that is empty.
    std::vector<std::string> Tokens();

private:
    support::TemporaryFolder folder_;
    mif::CMifInputFile input_;
};

// A reader on a pair of files in a folder of its own.
class FilePair {
public:
    // Writes the .mif file, and the .mid file unless it is null.
    explicit FilePair(std::string_view mif, const char* mid = nullptr);

    bool Open() { return reader_.Open(path_, warnings_); }
    mif::CMifReader& reader() { return reader_; }
    const std::wstring& warnings() const { return warnings_; }
    const std::wstring& path() const { return path_; }
    const support::TemporaryFolder& folder() const { return folder_; }

    // The recorded error as "source(line): message"; empty when there is none.
    std::wstring Error() const;

    // The current token and all that follow, up to the first that is empty.
    std::vector<std::string> Tokens();

private:
    support::TemporaryFolder folder_;
    std::wstring path_;
    std::wstring warnings_;
    mif::CMifReader reader_;
};

}  // namespace readertest
