// A class's run-time type record. Two records are the same type exactly when they are the same
// object, so a class has one record in one library.
#pragma once

#include "host/platform/Export.h"

#include <string>

namespace shr {

class QOLF_HOST_API CTypeInfo {
public:
    // create makes an object of the class, or is null; base is null for a root class.
    CTypeInfo(const wchar_t* name, void* (*create)(), const CTypeInfo* base);
    ~CTypeInfo();
    CTypeInfo(const CTypeInfo&) = delete;
    CTypeInfo& operator=(const CTypeInfo&) = delete;

    const std::wstring& Name() const { return name_; }
    const CTypeInfo* Base() const { return base_; }
    void* (*Create() const)() { return create_; }

private:
    std::wstring name_;
    void* (*create_)();
    const CTypeInfo* base_;
};

}  // namespace shr
