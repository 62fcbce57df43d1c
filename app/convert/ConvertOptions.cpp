#include "app/convert/ConvertOptions.h"

#include "app/base/Errors.h"
#include "app/base/Paths.h"

#include <array>
#include <string_view>

namespace app {

namespace {

struct FormatRow {
    std::string_view name;
    const char* extension;
    Format format;
};

// The first row of a format is the one that is written.
constexpr std::array kFormats = {
    FormatRow{"mif", ".mif", Format::Mif},
    FormatRow{"geojson", ".geojson", Format::GeoJson},
    FormatRow{"json", ".json", Format::GeoJson},
    FormatRow{"geojsonl", ".geojsonl", Format::GeoJsonLines},
    FormatRow{"ndjson", ".ndjson", Format::GeoJsonLines},
    FormatRow{"geojsons", ".geojsons", Format::GeoJsonSequence},
    FormatRow{"gpkg", ".gpkg", Format::GeoPackage},
};

}  // namespace

Format FormatOfName(const std::string& name) {
    for (const FormatRow& row : kFormats) {
        if (row.name == name) {
            return row.format;
        }
    }
    throw UsageError("--to " + name +
                     ": the formats are mif, geojson, geojsonl, geojsons and gpkg");
}

Format FormatOfPath(const std::string& path) {
    if (path == "-") {
        return Format::GeoJson;
    }
    const std::string extension = LowerExtension(PathFromArgument(path));
    for (const FormatRow& row : kFormats) {
        if (extension == row.extension) {
            return row.format;
        }
    }
    throw UsageError(path + ": the extension tells the format, and it must be .mif, .geojson, "
                            ".geojsonl, .geojsons or .gpkg");
}

const char* ExtensionOf(Format format) {
    for (const FormatRow& row : kFormats) {
        if (row.format == format) {
            return row.extension;
        }
    }
    return "";
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

}  // namespace app
