// A reporter whose messages a test reads.
#pragma once

#include "app/base/Reporter.h"

#include <cstdio>
#include <string>

namespace support {

class KeptMessages {
public:
    KeptMessages();
    ~KeptMessages();
    KeptMessages(const KeptMessages&) = delete;
    KeptMessages& operator=(const KeptMessages&) = delete;

    app::Reporter& Reporter() { return reporter_; }

    // All that was said so far, as lines "qolf: warning: ...".
    std::string Text() const;

private:
    std::FILE* stream_;
    app::Reporter reporter_;
};

}  // namespace support
