// The formats that features come from and go to: one table, from which the command line, its help
// and its messages are made.
#pragma once

#include "app/feature/Source.h"
#include "app/feature/Target.h"

#include <filesystem>
#include <memory>
#include <span>
#include <string>
#include <string_view>

namespace app {

// Which coordinate system a format's files have.
enum class SystemRule {
    AsClause,        // the input's, or one that the user names, as a MIF clause expresses it
    Wgs84IfUnnamed,  // longitude and latitude of WGS 84 unless the user names another
    Wgs84Expected,   // the same; readers expect no other
};

// What a format can hold.
struct FormatHolds {
    bool curves = false;       // rectangles, ellipses and arcs as they are
    bool layers = false;       // several in one file
    bool emptyLayers = false;  // a layer without features; without it there is then no file
    bool styles = false;       // when the user asks for them
    bool encodings = false;    // texts in one of many encodings; without it they are UTF-8
};

struct Format {
    // With their full stops, in lower case. The first is that of files that are written, and all of
    // them without the full stop are names of the format.
    std::span<const std::string_view> extensions;
    std::string_view words;  // what it is, for help
    SystemRule systems = SystemRule::AsClause;
    FormatHolds holds;

    // Opens what the user named: a path, or "-" where that means the format. Throw Failure.
    std::unique_ptr<Source> (*openSource)(const std::string& argument,
                                          const SourceOptions& options);
    std::unique_ptr<Target> (*openTarget)(const std::string& argument, const TargetOptions& options,
                                          Reporter& reporter);

    // Throws UsageError for a name that a file of the format can't have.
    void (*checkTarget)(const std::string& argument) = nullptr;  // null: every name will do

    // The extension of the file beside each; who names that one as an input means both.
    std::string_view companion = {};  // none
    std::filesystem::path (*mainFile)(const std::filesystem::path& named) = nullptr;

    // Copies a file to another of the same format as its own program does (--as-is); false when
    // there was nothing to write. Null: there is no such way.
    bool (*copy)(const std::string& input, const SourceOptions& sourceOptions,
                 const std::string& output, const TargetOptions& targetOptions,
                 Reporter& reporter) = nullptr;

    std::string_view Name() const { return extensions.front().substr(1); }
};

std::span<const Format> Formats();

// By a name of the format: the value of --to. Throws UsageError, with the choices, for others.
const Format& FormatOfName(const std::string& name);

// By the extension of what the user named, in any case; "-" is GeoJSON. Throws UsageError, with the
// choices, for others.
const Format& FormatOfPath(const std::string& argument);

// By the extension of a file, which is not the companion of another; null for others.
const Format* FindFormatOfFile(const std::filesystem::path& file);

// "mif, geojson, geojsonl, geojsons, gpkg": one name per format.
std::string FormatNames();

// The table for help texts, a line for each format: "  .geojson, .json      GeoJSON".
std::string FormatLines();

}  // namespace app
