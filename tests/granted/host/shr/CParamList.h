// Filled with Set by narrow values, assigned, and asked with Get.
#pragma once

#include <string>

namespace shr {

class CParamList {
public:
    CParamList();
    ~CParamList();
    CParamList(const CParamList&) = delete;
    CParamList& operator=(const CParamList&);

    void Set(const std::wstring& name, const std::string& value);
    bool Get(const std::wstring& name, std::wstring& value) const;
};

}  // namespace shr
