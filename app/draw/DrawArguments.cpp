#include "app/draw/DrawArguments.h"

#include "app/base/Errors.h"
#include "app/base/Paths.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <memory>

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

PictureFormat FormatFor(const DrawArguments& arguments, const std::string& output) {
    const bool isNamed = !arguments.format.empty();
    const std::optional<PictureFormat> format = isNamed
                                                    ? PictureFormatOf("picture." + arguments.format)
                                                    : PictureFormatOf(PathFromArgument(output));
    if (format) {
        return *format;
    }
    if (isNamed) {
        throw UsageError("--format must be svg, png or pdf; found '" + arguments.format + "'");
    }
    if (output == "-") {
        throw UsageError("a picture for standard output needs --format svg, png or pdf");
    }
    throw UsageError("'" + output + "': the picture comes last and ends in .svg, .png or .pdf");
}

// 0 for a side that is not given.
int CheckedSide(const char* option, std::optional<int> side) {
    if (side && (*side < 1 || *side > kLargestPageSide)) {
        throw UsageError(std::string(option) + " must be from 1 to " +
                         std::to_string(kLargestPageSide) + " pixels; found " +
                         std::to_string(*side));
    }
    return side.value_or(0);
}

}  // namespace

DrawOptions CheckedDrawOptions(const DrawArguments& arguments) {
    if (arguments.files.size() < 2) {
        throw UsageError("draw needs one or more files and, as the last one, the picture");
    }
    DrawOptions options;
    options.map.paths.assign(arguments.files.begin(), arguments.files.end() - 1);
    options.output = arguments.files.back();
    options.format = FormatFor(arguments, options.output);
    options.page.width = CheckedSide("--width", arguments.width);
    options.page.height = CheckedSide("--height", arguments.height);
    if (!(arguments.margin >= 0.0) || !(arguments.margin <= kLargestPageSide)) {
        throw UsageError("--margin must be a number of pixels, 0 or more");
    }
    options.page.margin = arguments.margin;
    if (!arguments.bbox.empty()) {
        options.bbox = BoxIn(arguments.bbox);
    }
    const std::optional<shr::Color4b> background = ParseColor(arguments.background);
    if (!background) {
        throw UsageError("--background must be a name such as white, none, or #rrggbb; found '" +
                         arguments.background + "'");
    }
    options.background = *background;
    if (arguments.crs != "keep") {
        options.map.crs = arguments.crs == "wgs84" ? "EPSG:4326" : arguments.crs;
    }
    options.map.assumedCrs = arguments.assumedCrs == "wgs84" ? "EPSG:4326" : arguments.assumedCrs;
    options.map.asIs = arguments.asIs;
    options.map.encoding = arguments.encoding;
    options.styleSource = arguments.ignoreStyles ? StyleSource::Layers : StyleSource::Objects;
    options.map.labels = arguments.labels;
    options.map.where = arguments.where;
    options.furniture = {arguments.title, arguments.legend, arguments.scaleBar};
    options.ifExists = arguments.overwrite ? IfExists::Overwrite : IfExists::Refuse;
    return options;
}

}  // namespace app
