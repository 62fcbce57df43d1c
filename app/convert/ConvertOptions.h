// The options of qolf convert as plain data, and what they mean for sources and targets.
#pragma once

#include "app/base/Reporter.h"
#include "app/feature/Source.h"
#include "app/feature/Target.h"
#include "app/formats/Formats.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace app {

struct ConvertOptions {
    std::vector<std::string> paths;  // inputs, then the output unless there is an output folder
    std::string format;              // --to, of the output; empty: by its extension
    std::string outputFolder;        // --output-dir: a file for each input; empty: one output
    std::size_t jobs = 1;
    bool resume = false;
    std::string shard;  // --shard, such as 3/8; empty: all

    bool overwrite = false;
    bool asIs = false;
    bool noStore = false;
    bool withStyles = false;
    int segments = 64;           // edges of a full turn, for ellipses and rounded corners
    std::string crs;             // empty: what suits the output; "keep"; or a definition for PROJ
    std::string assumedCrs;      // --assume-crs: of a MIF input, whatever its header says
    std::string encoding;        // of a MIF input, and of a MIF output from another format
    std::string outputEncoding;  // of a MIF output; empty: `encoding`, or what suits it
    std::optional<int>
        precision;  // --precision: decimals of coordinates; absent: all that they have
    // --layer: layers to read, each a name or several with commas; of an input that has one layer
    // and no names, the name to write. Empty: all that the output can hold.
    std::vector<std::string> layers;
    bool merge = false;             // --merge: all inputs become one layer
    bool withSourceColumn = false;  // --source-column: it says of which input each object is
    std::vector<std::string> select;
    std::string where;        // empty: every feature
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

// What the options mean for every input and for the output. SourceOptionsOf finds the system of
// --assume-crs: it throws Failure for one that MIF can't express, and warns of what will differ.
SourceOptions SourceOptionsOf(const ConvertOptions& options, Reporter& reporter);
TargetOptions TargetOptionsOf(const ConvertOptions& options);

// Returns the option string for the export filter: the user's own with the options of this command
// behind it. Without a string of the user's own, the filter is told to forget the options
// afterwards. Absent when there is nothing to tell the filter.
std::optional<std::string> ExportOptionString(const ConvertOptions& options);

// Throws UsageError for --styles where the output's format does not leave styles to the user.
void CheckStyles(const ConvertOptions& options, const Format& output);

}  // namespace app
