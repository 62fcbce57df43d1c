// The answer to the question what a file holds: wide key to value of type long long, double, int,
// narrow std::string, std::wstring or bool.
//
// Ask for a value with boost::any_cast and the very type; another one throws. A key that is not
// there means that the filter does not know, or that the file does not say.
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

    // Adds wide text, as std::wstring; a key that is there keeps its value.
    void Add(const std::wstring& key, const wchar_t* text);

    // Filters put values of the other types in directly, likewise leaving a key that is there.
    Entries entries;
};

}  // namespace zeio
