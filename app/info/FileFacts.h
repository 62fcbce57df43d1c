// The facts about one MIF file, or about a layer of another format, that qolf info shows.
#pragma once

#include "app/base/Reporter.h"
#include "app/feature/Source.h"
#include "app/info/ObjectCounter.h"
#include "app/mif/Cares.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace app {

// What is known of one file. Texts are UTF-8; what the header does not say is empty, absent or
// null.
struct FileFacts {
    std::filesystem::path path;  // of the .mif file, also when the user named the .mid
    std::string format;          // its name, "gpkg"; empty for a pair, as the next two
    std::string words;           // "GeoPackage"
    std::string layer;
    std::uintmax_t fileSize = 0;  // bytes
    bool canImport = false;       // what the module answers of the file as it is
    int version = 0;
    std::string charset;
    std::string delimiter;
    bool isEarth = false;              // the CoordSys clause names a system of the Earth
    std::optional<shr::Box2d> bounds;  // as the header has them, in the file's own units
    bool areBoundsOfCoordSys = false;  // not on a line of their own
    std::string codePage;              // in which the texts were read
    bool hasMid = false;               // a .mid file lies beside it
    std::string coordSysText;          // the clause as in the file
    std::string coordSysLine;          // the same on one line
    bool isCareTaken = false;          // the file is not what the module takes it for
    std::vector<Care> cares;           // in what, one of each kind
    std::vector<LayerColumn> columns;  // in the header's order
    std::shared_ptr<const CoordinateSystem> coordinateSystem;  // null: the header names none
    std::optional<ObjectCounts> counts;                        // with `count` only
    std::string problem;  // why more is not known; empty when all is well
};

// Reads the header of the .mif file at `path`; with `count` passes over the whole pair, too.
// Warnings go to the reporter. With options.asIs all answers are the module's: what it makes of the
// header, and the objects of an import. Throws Failure when there is no header.
FileFacts CollectFacts(const std::filesystem::path& path, const SourceOptions& options, bool count,
                       Reporter& reporter);

// The same for a layer of another format. With `count` all features are read.
FileFacts CollectLayerFacts(const SourceWithFormat& input, std::size_t layer,
                            const std::filesystem::path& path, bool count, Reporter& reporter);

}  // namespace app
