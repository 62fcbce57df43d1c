// Facts of the system that the filters ask for.
#pragma once

#include "host/platform/Export.h"

#include <string>

namespace shr {

class QOLF_HOST_API CSystemInfo {
public:
    // Returns the face that text without a face of its own is drawn in: "Arial" on every system, so
    // that a file is the same wherever it is written.
    static std::wstring DefVariablePitchFace();
};

}  // namespace shr
