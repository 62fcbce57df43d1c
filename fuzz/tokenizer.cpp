// The tokenizer over a stream and over a block of memory: neither reads beyond its bytes, and both
// give the same tokens.
#include "fuzz/FuzzInput.h"
#include "reader/CMifInputFile.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace {

using mif::CMifInputFile;

void CompareTokens(CMifInputFile& stream, CMifInputFile& memory, std::size_t size) {
    for (std::size_t taken = 0; taken <= size; ++taken) {
        fuzz::Require(stream.token() == memory.token(), "both sources give the same token");
        fuzz::Require(stream.TokenAsInt() == memory.TokenAsInt(), "and the same number");
        static_cast<void>(stream.TokenAsDouble());
        const bool hasToken = stream.NextToken();
        fuzz::Require(memory.NextToken() == hasToken, "both sources end together");
        if (!hasToken && stream.IsEOF()) {
            return;
        }
    }
    fuzz::Require(false, "every token takes a byte at least");
}

// Operations in an order that the bytes choose.
void Walk(CMifInputFile& input, std::string_view choices) {
    input.Rewind();
    for (const char choice : choices) {
        switch (static_cast<unsigned char>(choice) % 4) {
        case 0:
            input.NextToken();
            break;
        case 1:
            input.NextLine();
            break;
        case 2:
            input.ReadChar(nullptr);
            break;
        default:
            input.SkipComma();
        }
        fuzz::Require(input.Position() <= input.size(), "nothing is read behind the end");
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) {
        return 0;
    }
    fuzz::WriteFile("tokens.mif", fuzz::TextOf(data, size));
    CMifInputFile stream;
    CMifInputFile memory;
    fuzz::Require(stream.OpenFile(fuzz::PathOf("tokens.mif")), "the file opens");
    memory.OpenMemory(std::vector<unsigned char>(data, data + size));
    stream.Rewind();
    memory.Rewind();
    CompareTokens(stream, memory, size);
    Walk(stream, fuzz::TextOf(data, size));
    Walk(memory, fuzz::TextOf(data, size));
    return 0;
}
