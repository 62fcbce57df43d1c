#include "app/base/Paths.h"

#include "app/base/ShownPlace.h"
#include "app/base/Utf8.h"
#include "app/base/platform/System.h"
#include "host/platform/Stdio.h"
#include "standalone/Text.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <type_traits>

namespace app {
namespace {

constexpr bool kWidePaths = std::is_same_v<std::filesystem::path::value_type, wchar_t>;

std::string LowerAscii(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    });
    return text;
}

}  // namespace

std::filesystem::path PathFromArgument(const std::string& argument) {
    std::filesystem::path path;
    if constexpr (kWidePaths) {
        path = platform::PathFromBytes(argument);
    } else {
        path = argument;
    }
    CheckFileName(path);
    return path;
}

std::string ArgumentFromPath(const std::filesystem::path& path) {
    if constexpr (kWidePaths) {
        return platform::PathToBytes(path.wstring());
    } else {
        return path.string();
    }
}

std::wstring WidePath(const std::filesystem::path& path) {
    if constexpr (kWidePaths) {
        return path.wstring();
    } else {
        return platform::PathFromBytes(path.string());
    }
}

std::string ArgumentOfPath(const std::filesystem::path& path) {
    if constexpr (kWidePaths) {
        return standalone::Narrow(path.wstring());
    } else {
        return path.string();
    }
}

std::string PathText(const std::filesystem::path& path) {
    return WithShownPlaces(standalone::Narrow(WidePath(path)));
}

std::string SafeFileName(const std::string& utf8) {
    constexpr std::string_view kForbidden = "/\\:*?\"<>|";
    constexpr std::size_t kMostBytes = 200;  // file systems allow 255, with an extension
    std::string name;
    for (std::string_view rest = utf8; !rest.empty();) {
        const std::string_view before = rest;
        const char32_t character = TakeCodePoint(rest);
        const std::string_view bytes = before.substr(0, before.size() - rest.size());
        const bool isWell = bytes.size() > 1 || (character < 0x80 && character >= 0x20);
        if (name.size() + bytes.size() > kMostBytes) {
            break;
        }
        const bool isTaken =
            isWell && character != 0x7F && kForbidden.find(bytes.front()) == std::string_view::npos;
        name += isTaken ? std::string(bytes) : "_";
    }
    while (!name.empty() && (name.back() == ' ' || name.back() == '.')) {
        name.pop_back();
    }
    name.erase(0, std::min(name.find_first_not_of(' '), name.size()));
    if (name.empty()) {
        return "layer";
    }
    constexpr std::array<std::string_view, 4> kDevices{"con", "prn", "aux", "nul"};
    const std::string stem = LowerAscii(name.substr(0, name.find('.')));
    const bool isPort = stem.size() == 4 && (stem.starts_with("com") || stem.starts_with("lpt")) &&
                        stem.back() >= '0' && stem.back() <= '9';
    const bool isHidden = name.front() == '.' || name.front() == '-';
    return (isHidden || isPort || std::ranges::count(kDevices, stem) > 0 ? "_" : "") + name;
}

std::string LowerExtension(const std::filesystem::path& path) {
    return LowerAscii(PathText(path.extension()));
}

std::filesystem::path FindCompanion(const std::filesystem::path& path,
                                    const std::string& extension) {
    std::filesystem::path exact = path;
    exact.replace_extension(extension);
    std::error_code error;
    if (std::filesystem::exists(exact, error)) {
        return exact;
    }
    const std::string wanted = LowerAscii(PathText(exact.filename()));
    const std::filesystem::path folder = path.has_parent_path() ? path.parent_path() : ".";
    std::filesystem::directory_iterator entries(folder, error);
    for (; !error && entries != std::filesystem::directory_iterator(); entries.increment(error)) {
        if (LowerAscii(PathText(entries->path().filename())) == wanted) {
            return path.parent_path() / entries->path().filename();
        }
    }
    return {};
}

std::filesystem::path AsOnDisk(const std::filesystem::path& path) {
    const std::filesystem::path found = FindCompanion(path, PathText(path.extension()));
    return found.empty() ? path : found;
}

double SizeOfFile(const std::filesystem::path& path) {
    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(path, error);
    return error ? 0.0 : static_cast<double>(size);
}

}  // namespace app
