// The locale in which libarchive converts the names of members. One source per system.
#pragma once

#include <memory>

namespace app {

// As long as it lives, names in this thread may have all characters: the program's own locale, "C",
// has ASCII alone.
class NameLocale {
public:
    NameLocale();
    ~NameLocale();
    NameLocale(const NameLocale&) = delete;
    NameLocale& operator=(const NameLocale&) = delete;

private:
    struct Previous;
    std::unique_ptr<Previous> previous_;
};

}  // namespace app
