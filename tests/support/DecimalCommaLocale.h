// A host that has set a locale with a decimal comma, for the life of this object.
#pragma once

#include "tests/support/TemporaryFolder.h"

#include <string>

namespace support {

class DecimalCommaLocale {
public:
    DecimalCommaLocale();
    ~DecimalCommaLocale();
    DecimalCommaLocale(const DecimalCommaLocale&) = delete;
    DecimalCommaLocale& operator=(const DecimalCommaLocale&) = delete;

    // False where the system has no such locale and can't make one either.
    bool isSet() const { return isSet_; }

private:
    bool SetMadeLocale() const;

    TemporaryFolder folder_;
    std::string previous_;
    bool isSet_ = false;
};

}  // namespace support
