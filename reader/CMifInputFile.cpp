#include "reader/CMifInputFile.h"

#include "host/shr/IError.h"
#include "reader/ErrorOrigin.h"

#include <array>
#include <utility>

namespace mif {

namespace {

constexpr ErrorOrigin kClosingInputFailed{L"CMifInputFile", 51};

constexpr int kEnd = -1;
constexpr std::size_t kFirstTokenCapacity = 256;

// What a character does to the word being read.
enum class Role : unsigned char { Belongs, Ends, Vanishes };

// Indexed by the look-ahead plus one, so that the end of the input has an entry too.
constexpr std::array<Role, 257> MakeRoles() {
    std::array<Role, 257> roles{};
    for (const int separator :
         {kEnd, int{'\t'}, int{'\n'}, int{' '}, int{'"'}, int{'('}, int{')'}, int{','}}) {
        roles[static_cast<std::size_t>(separator) + 1] = Role::Ends;
    }
    roles['\r' + 1] = Role::Vanishes;
    return roles;
}
constexpr std::array<Role, 257> kRoles = MakeRoles();

Role RoleOf(int character) {
    return kRoles[static_cast<std::size_t>(character) + 1];
}

}  // namespace

CMifInputFile::CMifInputFile() : token_(kFirstTokenCapacity, '\0') {}

CMifInputFile::~CMifInputFile() {
    try {
        Close();
    } catch (...) {
        shr::LogExceptionInfo(L"qolf", kClosingInputFailed.source, kClosingInputFailed.line);
    }
}

bool CMifInputFile::OpenFile(const std::wstring& path) {
    Close();
    stream_ = platform::OpenFile(path, platform::OpenMode::ReadBinary);
    if (stream_ == nullptr) {
        return false;
    }
    LendBuffer(stream_, streamBuffer_);
    path_ = path;
    if (platform::SeekToEnd(stream_)) {
        size_ = platform::Tell(stream_);
    }
    static_cast<void>(platform::SeekTo(stream_, 0));  // Rewind seeks again
    return true;
}

void CMifInputFile::OpenMemory(std::vector<unsigned char> bytes) {
    Close();
    block_ = std::move(bytes);
    size_ = block_.size();
    blockPos_ = 0;
}

void CMifInputFile::Rewind() {
    if (stream_ != nullptr) {
        // A stream that can't go back is read from where it is.
        static_cast<void>(platform::SeekTo(stream_, 0));
    }
    blockPos_ = 0;
    current_ = Fetch();
    NextToken();
}

int CMifInputFile::Fetch() {
    int character = kEnd;
    do {
        if (stream_ != nullptr) {
            character = platform::GetByte(stream_);
        } else {
            character = blockPos_ < block_.size() ? block_[blockPos_++] : kEnd;
        }
    } while (character == '\r');
    return character;
}

bool CMifInputFile::NextToken() {
    Terminate(token_.data());
    int character = current_;
    while (character == ' ' || character == '\t') {
        character = Fetch();
    }
    current_ = character;
    if (character == kEnd) {
        return false;
    }
    if (character == '"') {
        return ReadQuoted();
    }
    return RoleOf(character) == Role::Ends ? ReadSeparator(character) : ReadWord(character);
}

bool CMifInputFile::ReadSeparator(int character) {
    token_[0] = static_cast<char>(character);
    Terminate(token_.data() + 1);
    current_ = Fetch();
    return true;
}

// Reads a string whose opening quote is the look-ahead. Its end is a quote (nothing escapes one)
// or the end of the line, which stays.
bool CMifInputFile::ReadQuoted() {
    char* out = token_.data();
    const char* limit = out + token_.size() - 1;
    int character = Fetch();
    while (character != kEnd && character != '"' && character != '\n') {
        if (out == limit) {
            out = Grow(out);
            limit = token_.data() + token_.size() - 1;
        }
        *out++ = static_cast<char>(character);
        character = Fetch();
    }
    current_ = character == '"' ? Fetch() : character;
    Terminate(out);
    return tokenLength_ > 0;
}

bool CMifInputFile::ReadWord(int character) {
    std::FILE* const stream = stream_;
    if (stream != nullptr) {
        ReadWordBy([stream] { return platform::GetByte(stream); }, character);
    } else {
        ReadWordBy([this] { return Fetch(); }, character);
    }
    return true;
}

// One loop for each source: a test of the source for every byte would show in the run time.
template <typename FetchByte> void CMifInputFile::ReadWordBy(FetchByte fetchByte, int character) {
    char* out = token_.data();
    const char* limit = out + token_.size() - 1;
    for (;;) {
        do {
            if (out == limit) {
                out = Grow(out);
                limit = token_.data() + token_.size() - 1;
            }
            *out++ = static_cast<char>(character);
            character = fetchByte();
        } while (RoleOf(character) == Role::Belongs);
        while (RoleOf(character) == Role::Vanishes) {
            character = fetchByte();
        }
        if (RoleOf(character) == Role::Ends) {
            break;
        }
    }
    current_ = character;
    Terminate(out);
}

// Ends the token at a place in token_.
void CMifInputFile::Terminate(char* end) {
    *end = '\0';
    tokenLength_ = static_cast<std::size_t>(end - token_.data());
}

// Makes room for a longer token. Returns the place in the new memory.
char* CMifInputFile::Grow(char* end) {
    const auto length = static_cast<std::size_t>(end - token_.data());
    token_.resize(2 * token_.size());
    return token_.data() + length;
}

bool CMifInputFile::NextLine() {
    while (!TokenIsLineEnd() && current_ != kEnd) {
        NextToken();
        if (IsEOF()) {
            return false;
        }
    }
    NextToken();
    // Kept: a first token that is also the last thing in the file is loaded and false is returned
    // all the same. Callers that move on between records rely on it.
    return current_ != kEnd;
}

bool CMifInputFile::ReadChar(char* out) {
    if (current_ == kEnd) {
        return false;
    }
    if (out != nullptr) {
        *out = static_cast<char>(current_);
    }
    current_ = Fetch();
    return true;
}

bool CMifInputFile::SkipComma() {
    const bool isComma = token_[0] == ',' && token_[1] == '\0';
    return isComma && NextToken();
}

bool CMifInputFile::IsEOF() const {
    if (stream_ != nullptr) {
        // The look-ahead is missing exactly when a fetch failed: feof, or a read error, which
        // counts as the end of the input.
        return current_ == kEnd;
    }
    return blockPos_ >= block_.size();
}

void CMifInputFile::Close() {
    if (stream_ != nullptr) {
        std::fclose(stream_);
        stream_ = nullptr;
    }
    path_.clear();
    size_ = 0;
    block_ = {};
    Terminate(token_.data());
    current_ = 0;
}

void CMifInputFile::LendBuffer(std::FILE* stream, std::vector<char>& memory) {
    constexpr std::size_t kBytes = 65536;
    memory.resize(kBytes);
    platform::LendBuffer(stream, memory);
}

double CMifInputFile::GetProgress() const {
    if (!IsOpen() || size_ == 0) {
        return 0.0;
    }
    return static_cast<double>(Position()) / static_cast<double>(size_);
}

std::uint64_t CMifInputFile::Position() const {
    if (stream_ != nullptr) {
        return platform::Tell(stream_);
    }
    return block_.empty() ? 0 : blockPos_;
}

std::uint64_t CMifInputFile::BytesLeft() const {
    const std::uint64_t position = Position();
    return position < size_ ? size_ - position : 0;
}

}  // namespace mif
