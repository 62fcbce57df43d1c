#include "app/draw/DrawArguments.h"

#include "app/base/Errors.h"
#include "app/base/Paths.h"

#include <string>

namespace app {

namespace {

PictureFormat FormatFor(const DrawArguments& arguments, const std::string& output) {
    const bool isNamed = !arguments.format.empty();
    const std::optional<PictureFormat> format = isNamed
                                                    ? PictureFormatOf("picture." + arguments.format)
                                                    : PictureFormatOf(PathFromArgument(output));
    if (format) {
        return *format;
    }
    if (isNamed) {
        throw UsageError("--to must be svg, png, pdf or html; found '" + arguments.format + "'");
    }
    if (output == "-") {
        throw UsageError("a map for standard output needs --to svg, png, pdf or html");
    }
    throw UsageError("'" + output +
                     "': the picture comes last and ends in .svg, .png or .pdf; a page "
                     "for the browser ends in .html");
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
    DrawOptions options;
    static_cast<MapRequest&>(options) = CheckedMapRequest(arguments);
    options.format = FormatFor(arguments, options.output);
    options.page.width = CheckedSide("--width", arguments.width);
    options.page.height = CheckedSide("--height", arguments.height);
    if (!(arguments.margin >= 0.0) || !(arguments.margin <= kLargestPageSide)) {
        throw UsageError("--margin must be a number of pixels, 0 or more");
    }
    options.page.margin = arguments.margin;
    options.furniture = {arguments.title, arguments.legend, arguments.scaleBar};
    return options;
}

}  // namespace app
