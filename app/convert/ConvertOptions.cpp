#include "app/convert/ConvertOptions.h"

#include "app/base/Errors.h"
#include "app/crs/Definitions.h"

namespace app {

SourceOptions SourceOptionsOf(const ConvertOptions& options, Reporter& reporter) {
    SourceOptions result;
    result.asIs = options.asIs;
    result.noStore = options.noStore;
    result.encoding = options.encoding;
    if (!options.assumedCrs.empty()) {
        result.assumedSystem = SystemOfOption("--assume-crs", options.assumedCrs, reporter);
    }
    result.modulePath = options.modulePath;
    return result;
}

TargetOptions TargetOptionsOf(const ConvertOptions& options) {
    TargetOptions result;
    result.ifExists = options.overwrite || options.append ? IfExists::Overwrite : IfExists::Refuse;
    result.isAppended = options.append;
    result.asIs = options.asIs;
    result.encoding = options.outputEncoding;
    result.withStyles = options.withStyles;
    result.noStore = options.noStore;
    result.optionString = ExportOptionString(options);
    result.modulePath = options.modulePath;
    return result;
}

std::optional<std::string> ExportOptionString(const ConvertOptions& options) {
    std::string text = options.optionString.value_or("");
    const auto add = [&text](bool isWanted, const char* option) {
        if (isWanted) {
            text += (text.empty() ? "" : ";") + std::string(option);
        }
    };
    add(options.useDefaults, "Defaults=1");
    add(options.areasToCurves, "AreasToCurves=1");
    add(options.noRenderText, "RenderText=0");
    add(options.noRenderMarkers, "RenderMarkers=0");
    if (text.empty()) {
        return std::nullopt;
    }
    add(!options.optionString, "ForgetOptions=1");
    return text;
}

void CheckStyles(const ConvertOptions& options, const Format& output) {
    if (options.withStyles && !output.holds.styles) {
        throw UsageError("--styles is for GeoJSON and GeoPackages; a MIF file always has its "
                         "styles");
    }
}

}  // namespace app
