// Facts of the system that the filters ask for.
#pragma once

#include "host/platform/Export.h"

#include <string>

namespace shr {

class QOLF_HOST_API CSystemInfo {
public:
    // The face that text without a face of its own is drawn in: "Arial".
    static std::wstring DefVariablePitchFace();
};

}  // namespace shr
