// The answer to the question what a file holds: wide key to value of type long long, double, int,
// narrow std::string, std::wstring or bool.
#pragma once

#include "host/platform/Export.h"

#include <boost/any.hpp>

#include <map>
#include <string>

namespace zeio {

class QOLF_HOST_API ImportFileInfo {
public:
    using Entries = std::map<std::wstring, boost::any>;

    ImportFileInfo();
    ~ImportFileInfo();
    ImportFileInfo(const ImportFileInfo&);
    ImportFileInfo& operator=(const ImportFileInfo&);

    // Adds wide text; a key that is there keeps its value.
    void Add(const std::wstring& key, const wchar_t* text);

    Entries entries;
};

}  // namespace zeio
