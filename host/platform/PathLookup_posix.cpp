#include "host/platform/PathLookup.h"

#include "host/platform/Stdio.h"

#include <algorithm>
#include <cwctype>
#include <dirent.h>
#include <locale.h>
#include <memory>
#include <sys/stat.h>
#include <type_traits>

namespace platform {

namespace {

bool Exists(const std::string& path) {
    struct stat status;
    return stat(path.c_str(), &status) == 0;
}

struct LocaleFreer {
    void operator()(locale_t locale) const { freelocale(locale); }
};

// Letters beyond ASCII are folded by a locale of the library's own, never by the program's. It goes
// with the library: a host may unload the module.
std::wstring Folded(const std::string& name) {
    static const std::unique_ptr<std::remove_pointer_t<locale_t>, LocaleFreer> locale(
        newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr));
    std::wstring text = platform::PathFromBytes(name);
    for (wchar_t& character : text) {
        if (locale != nullptr) {
            character =
                static_cast<wchar_t>(towlower_l(static_cast<wint_t>(character), locale.get()));
        } else if (character >= L'A' && character <= L'Z') {
            character = static_cast<wchar_t>(character - L'A' + L'a');
        }
    }
    return text;
}

struct FolderCloser {
    void operator()(DIR* folder) const { closedir(folder); }
};

// The entry of a folder that equals name but for case; "" when there is none.
std::string EntryIgnoringCase(const std::string& folder, const std::string& name) {
    const std::unique_ptr<DIR, FolderCloser> listing(
        opendir(folder.empty() ? "." : folder.c_str()));
    if (!listing) {
        return {};
    }
    const std::wstring wanted = Folded(name);
    std::string best;
    while (const dirent* entry = readdir(listing.get())) {
        const std::string candidate = entry->d_name;
        if ((best.empty() || candidate < best) && Folded(candidate) == wanted) {
            best = candidate;
        }
    }
    return best;
}

}  // namespace

std::string FindIgnoringCase(const std::string& path) {
    if (Exists(path)) {
        return path;
    }
    std::string found;  // what of the path is settled, with its last separator
    std::size_t position = 0;
    while (position < path.size()) {
        const std::size_t nameEnd = std::min(path.find('/', position), path.size());
        std::string name = path.substr(position, nameEnd - position);
        if (!name.empty() && !Exists(found + name)) {
            name = EntryIgnoringCase(found, name);
            if (name.empty()) {
                return {};
            }
        }
        found += name;
        if (nameEnd < path.size()) {
            found += '/';
        }
        position = nameEnd + 1;
    }
    return Exists(found) ? found : std::string();
}

}  // namespace platform
