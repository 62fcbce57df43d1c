// Which font families the system has. A missing family of letters is replaced by the system; a
// missing family of symbols must not be, for it would put letters in their place.
#pragma once

#include <map>
#include <string>

namespace app {

class FontCatalogue {
public:
    // True when the system has a family of this name (UTF-8), letter case aside.
    bool Has(const std::string& family);

private:
    std::map<std::string, bool> known_;  // answers given before
};

}  // namespace app
