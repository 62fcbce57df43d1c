#include "app/page/PageArguments.h"

#include "app/base/Errors.h"
#include "app/base/Paths.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>

namespace app {

namespace {

constexpr std::size_t kSmallestPage = std::size_t{256} << 10;
constexpr std::size_t kLargestPage = std::size_t{1} << 30;

struct SizeUnit {
    char letter;
    unsigned shift;
};
constexpr std::array<SizeUnit, 3> kSizeUnits{{{'K', 10}, {'M', 20}, {'G', 30}}};

std::size_t SizeIn(const std::string& text) {
    std::string_view digits = text;
    unsigned shift = 0;
    for (const SizeUnit& unit : kSizeUnits) {
        if (digits.ends_with(unit.letter) ||
            digits.ends_with(static_cast<char>(unit.letter + 32))) {
            shift = unit.shift;
            digits.remove_suffix(1);
            break;
        }
    }
    std::uint32_t number = 0;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    const std::uint64_t bytes = std::uint64_t{number} << shift;
    if (result.ec != std::errc{} || result.ptr != digits.data() + digits.size() ||
        bytes < kSmallestPage || bytes > kLargestPage) {
        throw UsageError("--size must be from 256K to 1G, such as 5M; found '" + text + "'");
    }
    return bytes;
}

bool IsHostCharacter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '.' ||
           c == '-' || c == ':';
}

bool IsUrlCharacter(char c) {
    return c > ' ' && c < 0x7F && std::string_view("\"'<>\\^`|").find(c) == std::string_view::npos;
}

// The scheme and host of the tiles, as the content policy names them; the servers that {s} stands
// for are all those below the rest. Empty for what is no address of tiles.
std::string OriginOf(const std::string& url) {
    const std::size_t scheme = url.starts_with("https://") ? 8 : url.starts_with("http://") ? 7 : 0;
    const bool hasPlaces =
        std::ranges::all_of(std::array{"{z}", "{x}", "{y}"}, [&url](const char* place) {
            return url.find(place) != std::string::npos;
        });
    if (scheme == 0 || !hasPlaces || !std::ranges::all_of(url, IsUrlCharacter)) {
        return "";
    }
    std::string host = url.substr(scheme, url.find('/', scheme) - scheme);
    if (host.starts_with("{s}.")) {
        host.replace(0, 3, "*");
    }
    const std::string_view plain = std::string_view(host).substr(host.starts_with("*.") ? 2 : 0);
    if (plain.empty() || !std::ranges::all_of(plain, IsHostCharacter)) {
        return "";
    }
    return url.substr(0, scheme) + host;
}

BaseMap BaseMapOf(const PageArguments& arguments) {
    BaseMap map;
    map.url = arguments.tiles;
    map.origin = OriginOf(map.url);
    map.attribution = arguments.attribution;
    if (map.origin.empty()) {
        throw UsageError("--tiles must be an address with {z}, {x} and {y}, such as "
                         "https://tile.openstreetmap.org/{z}/{x}/{y}.png; found '" +
                         map.url + "'");
    }
    if (map.attribution.empty() && map.origin.ends_with("tile.openstreetmap.org")) {
        map.attribution = "\xC2\xA9 OpenStreetMap contributors";
    }
    if (map.attribution.empty()) {
        throw UsageError("--tiles needs --attribution, the words that the base map's owner wants "
                         "on the map");
    }
    return map;
}

}  // namespace

bool IsPage(const MapArguments& arguments) {
    if (!arguments.format.empty() || arguments.files.size() < 2) {
        return arguments.format == "html";
    }
    const std::string extension = LowerExtension(PathFromArgument(arguments.files.back()));
    return extension == ".html" || extension == ".htm";
}

PageOptions CheckedPageOptions(const PageArguments& arguments) {
    PageOptions options;
    static_cast<MapRequest&>(options) = CheckedMapRequest(arguments);
    if (arguments.crs != "keep") {
        throw UsageError("--crs is for pictures: a page shows places on the Earth in the "
                         "projection of web maps");
    }
    options.title = arguments.title;
    options.showsLegend = arguments.legend;
    if (!arguments.size.empty()) {
        options.budget = SizeIn(arguments.size);
    }
    if (!arguments.tiles.empty()) {
        options.baseMap = BaseMapOf(arguments);
    } else if (!arguments.attribution.empty()) {
        throw UsageError("--attribution belongs to a base map, which --tiles names");
    }
    return options;
}

}  // namespace app
