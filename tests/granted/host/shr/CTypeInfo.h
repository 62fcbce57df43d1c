// A run-time type record; two are compared by their addresses.
#pragma once

namespace shr {

class CTypeInfo {
public:
    CTypeInfo(const wchar_t* name, void* (*create)(), const CTypeInfo* base);
    ~CTypeInfo();
    CTypeInfo(const CTypeInfo&) = delete;
    CTypeInfo& operator=(const CTypeInfo&) = delete;
};

}  // namespace shr
