#include "app/formats/Formats.h"

#include "app/base/Errors.h"
#include "app/base/Output.h"
#include "app/base/Paths.h"
#include "app/formats/geojson/GeoJsonReader.h"
#include "app/formats/geojson/GeoJsonWriter.h"
#include "app/formats/gpkg/GeoPackageReader.h"
#include "app/formats/gpkg/GeoPackageWriter.h"
#include "app/formats/mif/MifSource.h"
#include "app/formats/mif/MifTarget.h"
#include "app/formats/mif/ModuleTarget.h"
#include "app/formats/mif/PairCopy.h"
#include "app/mif/PairPass.h"

#include <algorithm>
#include <array>
#include <vector>

namespace app {
namespace {

constexpr std::array<std::string_view, 1> kMif = {".mif"};
constexpr std::array<std::string_view, 2> kGeoJson = {".geojson", ".json"};
constexpr std::array<std::string_view, 2> kGeoJsonLines = {".geojsonl", ".ndjson"};
constexpr std::array<std::string_view, 1> kGeoJsonSequence = {".geojsons"};
constexpr std::array<std::string_view, 1> kGeoPackage = {".gpkg"};

std::unique_ptr<Source> OpenMif(const std::string& argument, const SourceOptions& options) {
    return std::make_unique<MifSource>(PathFromArgument(argument), options);
}

std::unique_ptr<Target> WriteMif(const std::string& argument, const TargetOptions& options,
                                 Reporter& reporter) {
    const std::filesystem::path path = PathFromArgument(argument);
    if (options.asIs) {
        return std::make_unique<ModuleTarget>(path, options, reporter);
    }
    return std::make_unique<MifTarget>(path, options, reporter);
}

bool CopyMif(const std::string& input, const SourceOptions& sourceOptions,
             const std::string& output, const TargetOptions& targetOptions, Reporter& reporter) {
    return CopyPair(PathFromArgument(input), sourceOptions, PathFromArgument(output), targetOptions,
                    reporter);
}

std::unique_ptr<Source> OpenGeoJson(const std::string& argument, const SourceOptions& options) {
    return std::make_unique<GeoJsonReader>(PathFromArgument(argument), options.onDamage);
}

template <GeoJsonForm form>
std::unique_ptr<Target> WriteGeoJson(const std::string& argument, const TargetOptions& options,
                                     Reporter& reporter) {
    return std::make_unique<GeoJsonWriter>(PathFromArgument(argument), options.ifExists, form,
                                           options.withStyles, reporter);
}

std::unique_ptr<Source> OpenPackage(const std::string& argument, const SourceOptions& options) {
    return std::make_unique<GeoPackageReader>(PathFromArgument(argument), options.onDamage);
}

std::unique_ptr<Target> WritePackage(const std::string& argument, const TargetOptions& options,
                                     Reporter& reporter) {
    return std::make_unique<GeoPackageWriter>(PathFromArgument(argument), options.ifExists,
                                              options.withStyles, reporter);
}

void RefuseStandardStream(const std::string& argument) {
    if (argument == "-") {
        throw UsageError("a GeoPackage is a database and can't go to standard output; name a .gpkg "
                         "file");
    }
}

constexpr FormatHolds kGeoJsonHolds = {.emptyLayers = true, .styles = true};

constexpr std::array kFormats = {
    Format{.extensions = kMif,
           .words = "a pair of .mif and .mid",
           .systems = SystemRule::AsClause,
           .holds = {.curves = true, .emptyLayers = true, .encodings = true},
           .openSource = OpenMif,
           .openTarget = WriteMif,
           .checkTarget = CheckMifOutput,
           .companion = ".mid",
           .mainFile = MifBeside,
           .copy = CopyMif},
    Format{.extensions = kGeoJson,
           .words = "GeoJSON",
           .systems = SystemRule::Wgs84Expected,
           .holds = kGeoJsonHolds,
           .openSource = OpenGeoJson,
           .openTarget = WriteGeoJson<GeoJsonForm::Collection>},
    Format{.extensions = kGeoJsonLines,
           .words = "GeoJSON, one feature per line",
           .systems = SystemRule::Wgs84Expected,
           .holds = kGeoJsonHolds,
           .openSource = OpenGeoJson,
           .openTarget = WriteGeoJson<GeoJsonForm::Lines>},
    Format{.extensions = kGeoJsonSequence,
           .words = "GeoJSON as a text sequence",
           .systems = SystemRule::Wgs84Expected,
           .holds = kGeoJsonHolds,
           .openSource = OpenGeoJson,
           .openTarget = WriteGeoJson<GeoJsonForm::Sequence>},
    Format{.extensions = kGeoPackage,
           .words = "GeoPackage",
           .systems = SystemRule::Wgs84IfUnnamed,
           .holds = {.layers = true, .emptyLayers = true, .styles = true},
           .openSource = OpenPackage,
           .openTarget = WritePackage,
           .checkTarget = RefuseStandardStream},
};

const Format* FindFormat(std::string_view extension) {
    for (const Format& format : kFormats) {
        if (std::ranges::count(format.extensions, extension) > 0) {
            return &format;
        }
    }
    return nullptr;
}

// "a", "a or b", "a, b or c".
std::string Listed(const std::vector<std::string>& words, const std::string& last) {
    std::string text;
    for (std::size_t i = 0; i < words.size(); ++i) {
        text += i == 0 ? "" : i + 1 == words.size() ? " " + last + " " : ", ";
        text += words[i];
    }
    return text;
}

}  // namespace

std::span<const Format> Formats() {
    return kFormats;
}

const Format& FormatOfName(const std::string& name) {
    if (const Format* format = FindFormat("." + name)) {
        return *format;
    }
    std::vector<std::string> names;
    for (const Format& format : kFormats) {
        for (const std::string_view extension : format.extensions) {
            names.emplace_back(extension.substr(1));
        }
    }
    throw UsageError("--to " + name + ": the formats are " + Listed(names, "and"));
}

const Format& FormatOfPath(const std::string& argument) {
    const std::string extension = argument == "-" ? std::string(kGeoJson.front())
                                                  : LowerExtension(PathFromArgument(argument));
    if (const Format* format = FindFormat(extension)) {
        return *format;
    }
    for (const Format& format : kFormats) {
        if (!extension.empty() && extension == format.companion) {
            return format;
        }
    }
    std::vector<std::string> extensions;
    for (const Format& format : kFormats) {
        extensions.insert(extensions.end(), format.extensions.begin(), format.extensions.end());
    }
    throw UsageError(argument + ": the format follows from the extension, which must be " +
                     Listed(extensions, "or"));
}

const Format* FindFormatOfFile(const std::filesystem::path& file) {
    return FindFormat(LowerExtension(file));
}

std::string FormatNames() {
    std::string names;
    for (const Format& format : kFormats) {
        names.append(names.empty() ? "" : ", ").append(format.Name());
    }
    return names;
}

std::string FormatLines() {
    constexpr std::size_t kWordsAt = 22;
    std::string text;
    for (const Format& format : kFormats) {
        std::string line = " ";
        for (const std::string_view extension : format.extensions) {
            line.append(line.size() == 1 ? " " : ", ").append(extension);
        }
        line.resize(kWordsAt, ' ');
        text += line.append(format.words) + "\n";
    }
    return text;
}

}  // namespace app
