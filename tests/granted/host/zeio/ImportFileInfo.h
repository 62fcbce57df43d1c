// A map from wide key to value, with an operation for wide text.
#pragma once

#include <boost/any.hpp>

#include <map>
#include <string>

namespace zeio {

class ImportFileInfo {
public:
    ImportFileInfo();
    ~ImportFileInfo();
    ImportFileInfo(const ImportFileInfo&);  // the answer is a value
    ImportFileInfo& operator=(const ImportFileInfo&) = delete;

    void Add(const std::wstring& key, const wchar_t* text);

    std::map<std::wstring, boost::any> entries;
};

}  // namespace zeio
