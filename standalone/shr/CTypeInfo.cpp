#include "host/shr/CTypeInfo.h"

namespace shr {

CTypeInfo::CTypeInfo(const wchar_t* name, void* (*create)(), const CTypeInfo* base)
    : name_(name), create_(create), base_(base) {}

CTypeInfo::~CTypeInfo() = default;

}  // namespace shr
