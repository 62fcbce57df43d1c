// What of the C runtime's interface is the same on every system.
#include "host/platform/Stdio.h"

namespace platform {

namespace {

int Compare(int left, int right) {
    return left < right ? -1 : static_cast<int>(left > right);
}

int Lower(int character) {
    return character >= 'A' && character <= 'Z' ? character - 'A' + 'a' : character;
}

}  // namespace

void LendBuffer(std::FILE* stream, std::span<char> memory) {
    // A refusal leaves the stream with its own buffer, which is only slower.
    static_cast<void>(std::setvbuf(stream, memory.data(), _IOFBF, memory.size()));
}

bool WriteBytes(std::FILE* stream, const char* bytes, std::size_t count) {
    return std::fwrite(bytes, 1, count, stream) == count;
}

int CompareNoCase(const char* left, const char* right) {
    for (;; ++left, ++right) {
        const int l = Lower(static_cast<unsigned char>(*left));
        const int r = Lower(static_cast<unsigned char>(*right));
        if (l != r || l == 0) {
            return Compare(l, r);
        }
    }
}

int CompareNoCase(const wchar_t* left, const wchar_t* right, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
        const int l = Lower(static_cast<int>(left[i]));
        const int r = Lower(static_cast<int>(right[i]));
        if (l != r || l == 0) {
            return Compare(l, r);
        }
    }
    return 0;
}

}  // namespace platform
