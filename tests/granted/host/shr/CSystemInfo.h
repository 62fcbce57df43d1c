#pragma once

#include <string>

namespace shr {

class CSystemInfo {
public:
    CSystemInfo() = delete;
    static std::wstring DefVariablePitchFace();
};

}  // namespace shr
