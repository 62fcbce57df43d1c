// What the command line of qolf convert says.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace app {

struct ConvertOptions {
    std::vector<std::string> paths;  // inputs, then the output unless there is an output folder
    std::string format;              // --to: of the output; empty: by its extension
    std::string outputFolder;        // --output-dir: a file for each input; empty: one output
    std::size_t jobs = 1;
    bool resume = false;

    bool overwrite = false;
    bool asIs = false;
    bool noStore = false;
    bool withStyles = false;
    int segments = 64;        // edges of a full turn, for ellipses and rounded corners
    std::string crs;          // empty: what suits the output; "keep"; or a definition for PROJ
    std::string assumedCrs;   // --assume-crs: of a MIF input, whatever its header says
    bool isRepaired = false;  // --fix: a MIF input is read with its faults repaired
    std::string encoding;
    std::string layer;
    std::vector<std::string> select;
    std::vector<double> box;  // empty, or four numbers
    std::optional<std::uint64_t> limit;

    // For the export filter.
    std::optional<std::string> optionString;
    bool areasToCurves = false;
    bool noRenderText = false;
    bool noRenderMarkers = false;
    bool useDefaults = false;

    std::string modulePath;
};

// The formats that convert reads and writes.
enum class Format { Mif, GeoJson, GeoJsonLines, GeoJsonSequence, GeoPackage };

// By the name that --to takes, or by a path's extension; "-" is GeoJSON. Throws UsageError, with
// the choices, for others.
Format FormatOfName(const std::string& name);
Format FormatOfPath(const std::string& path);

// The extension of the format's files, with its full stop.
const char* ExtensionOf(Format format);

// What the export filter's option string says for these options. Options of one command are not
// remembered for the next.
std::optional<std::string> ExportOptionString(const ConvertOptions& options);

}  // namespace app
