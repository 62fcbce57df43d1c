// A class's run-time type record. Two records are the same type exactly when they are the same
// object, so a class has one record in one library: compare pointers, not names.
#pragma once

#include "host/platform/Export.h"

#include <string>

namespace shr {

class QOLF_HOST_API CTypeInfo {
public:
    // `create` makes an object of the class with the global allocator and returns it as its root
    // class, or is null for a class whose objects nobody else may make. `base` is the record of the
    // base class, null for a root class; it must outlive this one. `name` is copied.
    CTypeInfo(const wchar_t* name, void* (*create)(), const CTypeInfo* base);
    ~CTypeInfo();
    CTypeInfo(const CTypeInfo&) = delete;
    CTypeInfo& operator=(const CTypeInfo&) = delete;

    const std::wstring& Name() const { return name_; }  // without its namespace
    const CTypeInfo* Base() const { return base_; }     // null for a root class
    void* (*Create() const)() { return create_; }       // may be null

private:
    std::wstring name_;
    void* (*create_)();
    const CTypeInfo* base_;
};

}  // namespace shr
