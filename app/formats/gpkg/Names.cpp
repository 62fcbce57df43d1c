#include "app/formats/gpkg/Names.h"

#include "standalone/Text.h"

#include <algorithm>
#include <array>

namespace app {
namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";

bool IsControl(char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte < 0x20 || byte == 0x7F;
}

bool IsLayout(char c) {
    return c == '\t' || c == '\n' || c == '\r';
}

// Whether all bytes are printable ASCII: the usual text, in which nothing has to be replaced.
bool IsPlain(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) {
        return static_cast<unsigned char>(c) < 0x80 && (!IsControl(c) || IsLayout(c));
    });
}

std::string LowerAscii(std::string_view text) {
    std::string lower(text);
    std::transform(lower.begin(), lower.end(), lower.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    });
    return lower;
}

std::string CleanName(std::string_view wanted) {
    std::string name;
    for (const char c : standalone::Narrow(standalone::Widen(wanted))) {
        name += IsControl(c) ? '_' : c;
    }
    for (auto at = name.find(kReplacement); at != std::string::npos; at = name.find(kReplacement)) {
        name.replace(at, kReplacement.size(), "_");
    }
    return name;
}

}  // namespace

std::string CleanText(std::string text) {
    if (IsPlain(text)) {
        return text;
    }
    std::string clean;
    for (const char c : standalone::Narrow(standalone::Widen(text))) {
        if (IsControl(c) && !IsLayout(c)) {
            clean += kReplacement;
        } else {
            clean += c;
        }
    }
    return clean;
}

std::string UniqueNames::Take(std::string_view wanted, const std::string& fallback) {
    std::string name = CleanName(wanted);
    if (name.find_first_not_of(' ') == std::string::npos) {
        name = fallback;
    }
    std::string candidate = name;
    for (int number = 2; !taken_.insert(LowerAscii(candidate)).second; ++number) {
        candidate = name + "_" + std::to_string(number);
    }
    return candidate;
}

std::string TableNameFor(std::string_view wanted) {
    constexpr std::array<std::string_view, 3> kReserved{"gpkg_", "rtree_", "sqlite_"};
    const std::string lower = LowerAscii(wanted);
    const bool isReserved =
        std::any_of(kReserved.begin(), kReserved.end(),
                    [&](std::string_view prefix) { return lower.starts_with(prefix); });
    return (isReserved ? "layer_" : "") + std::string(wanted);
}

}  // namespace app
