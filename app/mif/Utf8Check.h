// Finds out whether a file's letters are UTF-8.
#pragma once

#include "app/base/Utf8.h"

#include <string_view>

namespace app {

// Looks at many texts of one file, in order.
class Utf8Check {
public:
    void See(std::string_view bytes) {
        if (isUtf8_ && !IsAscii(bytes)) {
            hasLetters_ = true;
            isUtf8_ = IsUtf8(bytes);
        }
    }

    // Whether there were bytes beyond ASCII, and all of them are parts of valid UTF-8.
    bool IsUtf8WithLetters() const { return hasLetters_ && isUtf8_; }

private:
    bool hasLetters_ = false;
    bool isUtf8_ = true;
};

}  // namespace app
