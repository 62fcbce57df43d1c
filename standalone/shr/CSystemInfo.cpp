#include "host/shr/CSystemInfo.h"

namespace shr {

std::wstring CSystemInfo::DefVariablePitchFace() {
    return L"Arial";
}

}  // namespace shr
