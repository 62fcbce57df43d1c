// Cuts the open .mif file, or a block of bytes in memory, into tokens.
//
// Interprets nothing: callers compare keywords and convert numbers. Tokens are 8-bit text. Words
// end at a blank, tab, line feed, double quote, parenthesis or comma; parentheses, commas and line
// feeds are tokens of their own; a quoted string is one token without its quotes. A carriage return
// never reaches a token, so files with CR LF and with LF line ends read alike.
#pragma once

#include "host/platform/Stdio.h"
#include "reader/Numbers.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

namespace mif {

class CMifInputFile {
public:
    CMifInputFile();
    ~CMifInputFile();
    CMifInputFile(const CMifInputFile&) = delete;
    CMifInputFile& operator=(const CMifInputFile&) = delete;

    // Opens a file, after closing what was open. False when it can't be opened; then nothing is
    // open. Rewind() loads the first token.
    [[nodiscard]] bool OpenFile(const std::wstring& path);

    // Takes a block of bytes as the source, after closing what was open. Rewind() loads the first
    // token. An empty block counts as nothing open.
    void OpenMemory(std::vector<unsigned char> bytes);

    // Goes back to the start of the source and loads the first token.
    void Rewind();

    // Reads the next token. A line end is a token of its own.
    //
    // False at the end of the input, with an empty token, and for an empty quoted string, which is
    // consumed all the same: a false result alone does not mean the end.
    bool NextToken();

    // Drops the rest of the line and loads the first token of the next one. A token that is a line
    // end is the end of its line.
    //
    // False when no character is left behind that token (or behind the last token of this line),
    // even though a token is loaded: the result tells about the look-ahead, not about the token.
    bool NextLine();

    // Hands out the character that follows the token (unless out is null) and fetches the next.
    // The token stays. False at the end of the input.
    bool ReadChar(char* out);

    // When the token is "," reads the next one and returns what NextToken returned; else false.
    bool SkipComma();

    // The current token; empty when there is none. Valid until the next token is read. The first
    // form ends with a NUL.
    const char* Token() const { return token_.data(); }
    std::string_view token() const { return {token_.data(), tokenLength_}; }

    // True when the token equals the keyword but for the case of ASCII letters. Both end at their
    // first NUL: what stands behind one in a token does not count.
    bool TokenIs(const char* keyword) const {
        // Most tokens differ in the first character. The case of a letter is this one bit.
        constexpr int kCaseBit = 0x20;
        return ((token_.front() ^ *keyword) & ~kCaseBit) == 0 &&
               platform::CompareNoCase(Token(), keyword) == 0;
    }
    bool TokenIsLineEnd() const { return token_.front() == '\n'; }
    double TokenAsDouble() const { return ReadDouble(token()); }
    int TokenAsInt() const { return ReadInt(token()); }

    // True when nothing is open or the source is exhausted. A stream is exhausted once a fetch
    // failed; a memory block already when its last byte is the look-ahead, one byte earlier.
    bool IsEOF() const;

    bool IsOpen() const { return stream_ != nullptr || !block_.empty(); }

    // Closes the file, or drops the block, and forgets the token.
    void Close();

    // The part of the source that is read, 0 to 1; 0 when nothing is open.
    double GetProgress() const;

    // Bytes fetched so far, and bytes that were not fetched yet.
    std::uint64_t Position() const;
    std::uint64_t BytesLeft() const;

    const std::wstring& path() const { return path_; }
    std::uint64_t size() const { return size_; }

protected:
    // Gives a stream that was just opened a larger buffer. The memory has to outlive the stream:
    // the C library takes a size into account only together with memory.
    static void LendBuffer(std::FILE* stream, std::vector<char>& memory);

private:
    int Fetch();
    bool ReadQuoted();
    bool ReadWord(int character);
    template <typename FetchByte> void ReadWordBy(FetchByte fetchByte, int character);
    bool ReadSeparator(int character);
    void Terminate(char* end);
    char* Grow(char* end);

    std::wstring path_;                 // empty when closed, and for a memory block
    std::uint64_t size_ = 0;            // bytes of the source when it was opened; 0 when closed
    std::FILE* stream_ = nullptr;       // owned; null when closed, and for a memory block
    std::vector<char> streamBuffer_;    // the memory that the C library's buffer of stream_ uses
    std::vector<unsigned char> block_;  // empty unless the source is in memory
    std::uint64_t blockPos_ = 0;        // index of the next byte to take from block_
    int current_ = 0;                   // the look-ahead, 0 to 255; -1 at the end of the input
    std::vector<char> token_;           // the token, a NUL, and room for longer tokens
    std::size_t tokenLength_ = 0;       // bytes of the token in token_
};

}  // namespace mif
