#include "tests/support/DecimalCommaLocale.h"

#include <clocale>
#include <cstdlib>

namespace support {

DecimalCommaLocale::DecimalCommaLocale() : previous_(std::setlocale(LC_NUMERIC, nullptr)) {
    for (const char* name : {"de_DE.UTF-8", "fr_FR.UTF-8", "German_Germany"}) {
        isSet_ = isSet_ || std::setlocale(LC_NUMERIC, name) != nullptr;
    }
    isSet_ = isSet_ || SetMadeLocale();
}

DecimalCommaLocale::~DecimalCommaLocale() {
    std::setlocale(LC_NUMERIC, previous_.c_str());
}

// Compiles a locale into a folder of its own and sets it.
bool DecimalCommaLocale::SetMadeLocale() const {
#if defined(_WIN32)
    return false;
#else
    static_cast<void>(folder_.Write("comma.def", "LC_NUMERIC\n"
                                                 "decimal_point \"<U002C>\"\n"
                                                 "thousands_sep \"\"\n"
                                                 "grouping -1\n"
                                                 "END LC_NUMERIC\n"));
    const std::string folder = folder_.path().string();
    const std::string command =
        "localedef -c -i '" + folder + "/comma.def' '" + folder + "/comma' >/dev/null 2>&1";
    static_cast<void>(std::system(command.c_str()));  // setlocale sees if it failed
    setenv("LOCPATH", folder.c_str(), /*overwrite=*/1);
    const bool isSet = std::setlocale(LC_NUMERIC, "comma") != nullptr;
    unsetenv("LOCPATH");
    return isSet;
#endif
}

}  // namespace support
