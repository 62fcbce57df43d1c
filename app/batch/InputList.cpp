#include "app/batch/InputList.h"

#include "app/base/Errors.h"
#include "app/base/Paths.h"

#include <cerrno>
#include <charconv>
#include <cstring>
#include <fstream>
#include <string>
#include <string_view>

namespace app {
namespace {

using std::filesystem::path;

// Takes "512\t" from the beginning of the line; absent when there is no such beginning.
std::optional<std::uint64_t> TakeSize(std::string_view& line) {
    std::uint64_t size = 0;
    const char* const end = line.data() + line.size();
    const auto result = std::from_chars(line.data(), end, size);
    if (result.ec != std::errc{} || result.ptr == end || *result.ptr != '\t') {
        return std::nullopt;
    }
    line.remove_prefix(static_cast<std::size_t>(result.ptr + 1 - line.data()));
    return size;
}

// A place below the output folder for any input: absolute paths keep all of their folders.
path PlaceOf(const path& input) {
    return input.relative_path().lexically_normal();
}

}  // namespace

bool IsInputList(const path& path) {
    const std::string extension = LowerExtension(path);
    return extension == ".txt" || extension == ".lst";
}

std::vector<ListedInput> ReadInputList(const path& list) {
    errno = 0;
    std::ifstream stream(AsOnDisk(list), std::ios::binary);
    if (!stream) {
        throw Failure(PathText(list) + ": can't open: " + std::strerror(errno));
    }
    std::vector<ListedInput> inputs;
    std::string text;
    for (std::size_t number = 1; std::getline(stream, text); ++number) {
        std::string_view line = text;
        if (line.ends_with('\r')) {
            line.remove_suffix(1);
        }
        if (line.empty()) {
            continue;
        }
        ListedInput listed;
        listed.bytes = TakeSize(line);
        listed.input = PathFromArgument(std::string(line));
        listed.place = PlaceOf(listed.input);
        if (listed.place.empty() || *listed.place.begin() == "..") {
            throw UsageError(PathText(list) + ":" + std::to_string(number) + ": " +
                             PathText(listed.input) +
                             " leads out of the working folder; name it by its whole path");
        }
        inputs.push_back(std::move(listed));
    }
    if (inputs.empty()) {
        throw Failure(PathText(list) + ": lists no file");
    }
    return inputs;
}

}  // namespace app
