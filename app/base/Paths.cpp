#include "app/base/Paths.h"

#include "app/base/ShownPlace.h"
#include "app/base/platform/System.h"
#include "host/platform/Stdio.h"
#include "standalone/Text.h"

#include <algorithm>
#include <cstdint>
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
