#include "app/map/MapArguments.h"

#include "app/base/Errors.h"
#include "app/feature/DrawingColors.h"
#include "app/map/MapExtent.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string_view>

namespace app {

namespace {

// A whole number or a decimal; nothing when the text is more, less or not finite.
std::optional<double> NumberIn(std::string_view text) {
    double value = 0.0;
    const char* const end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, value);
    if (result.ec != std::errc{} || result.ptr != end || !std::isfinite(value)) {
        return std::nullopt;
    }
    return value;
}

// The numbers between the commas; empty when a part is no number.
std::vector<double> NumbersIn(std::string_view text) {
    std::vector<double> numbers;
    for (std::size_t begin = 0; begin <= text.size();) {
        const std::size_t end = std::min(text.find(',', begin), text.size());
        const std::optional<double> number = NumberIn(text.substr(begin, end - begin));
        if (!number) {
            return {};
        }
        numbers.push_back(*number);
        begin = end + 1;
    }
    return numbers;
}

shr::Box2d BoxIn(const std::string& text) {
    const std::vector<double> numbers = NumbersIn(text);
    if (numbers.size() != 4 || numbers[0] == numbers[2] || numbers[1] == numbers[3] ||
        !IsDrawable(numbers[0], numbers[1]) || !IsDrawable(numbers[2], numbers[3])) {
        throw UsageError("--bbox must be x1,y1,x2,y2 with two different corners, such as "
                         "24.5,59.3,25,59.5; found '" +
                         text + "'");
    }
    return {std::min(numbers[0], numbers[2]), std::min(numbers[1], numbers[3]),
            std::max(numbers[0], numbers[2]), std::max(numbers[1], numbers[3])};
}

std::string DefinitionOf(const std::string& crs) {
    return crs == "wgs84" ? "EPSG:4326" : crs;
}

}  // namespace

MapRequest CheckedMapRequest(const MapArguments& arguments) {
    if (arguments.files.size() < 2) {
        throw UsageError("draw needs one or more files and, as the last one, the picture or page");
    }
    MapRequest request;
    request.map.paths.assign(arguments.files.begin(), arguments.files.end() - 1);
    request.output = arguments.files.back();
    if (!arguments.bbox.empty()) {
        request.bbox = BoxIn(arguments.bbox);
    }
    const std::optional<shr::Color4b> background = ParseColor(arguments.background);
    if (!background) {
        throw UsageError("--background must be a name such as white, none, or #rrggbb; found '" +
                         arguments.background + "'");
    }
    request.background = *background;
    if (arguments.crs != "keep") {
        request.map.crs = DefinitionOf(arguments.crs);
    }
    request.map.assumedCrs = DefinitionOf(arguments.assumedCrs);
    request.map.asIs = arguments.asIs;
    request.map.encoding = arguments.encoding;
    request.map.labels = arguments.labels;
    request.map.where = arguments.where;
    request.styleSource = arguments.ignoreStyles ? StyleSource::Layers : StyleSource::Objects;
    request.ifExists = arguments.overwrite ? IfExists::Overwrite : IfExists::Refuse;
    return request;
}

}  // namespace app
