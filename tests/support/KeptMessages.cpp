#include "tests/support/KeptMessages.h"

namespace support {

KeptMessages::KeptMessages()
    : stream_(std::tmpfile()), reporter_(stream_, /*isTerminal=*/false, /*useColor=*/false) {}

KeptMessages::~KeptMessages() {
    std::fclose(stream_);
}

std::string KeptMessages::Text() const {
    std::fflush(stream_);
    std::rewind(stream_);
    std::string text;
    for (int c = std::getc(stream_); c != EOF; c = std::getc(stream_)) {
        text += static_cast<char>(c);
    }
    return text;
}

}  // namespace support
