#include "tests/reader/Sources.h"

#include <stdexcept>

namespace readertest {

namespace {

std::vector<std::string> RestOf(mif::CMifInputFile& input) {
    std::vector<std::string> tokens;
    while (!input.token().empty()) {
        tokens.emplace_back(input.token());
        input.NextToken();
    }
    return tokens;
}

}  // namespace

std::string NameOf(Source source) {
    return source == Source::Stream ? "Stream" : "Memory";
}

std::ostream& operator<<(std::ostream& out, Source source) {
    return out << NameOf(source);
}

std::vector<unsigned char> BlockOf(std::string_view text) {
    return {text.begin(), text.end()};
}

OpenText::OpenText(Source source, std::string_view text) {
    if (source == Source::Memory) {
        input_.OpenMemory(BlockOf(text));
    } else if (!input_.OpenFile(folder_.Write("text.mif", text))) {
        throw std::runtime_error("the text of the test can't be opened");
    }
    input_.Rewind();
}

std::vector<std::string> OpenText::Tokens() {
    return RestOf(input_);
}

FilePair::FilePair(std::string_view mif, const char* mid) : path_(folder_.Write("pair.mif", mif)) {
    if (mid != nullptr) {
        static_cast<void>(folder_.Write("pair.mid", mid));
    }
}

std::wstring FilePair::Error() const {
    if (reader_.errorLine() == 0) {
        return reader_.errorSource() + reader_.errorMessage();
    }
    return reader_.errorSource() + L"(" + std::to_wstring(reader_.errorLine()) + L"): " +
           reader_.errorMessage();
}

std::vector<std::string> FilePair::Tokens() {
    return RestOf(reader_);
}

}  // namespace readertest
