// qolf draw: what the command line says of a map, for pictures and for pages.
#pragma once

#include "app/base/Output.h"
#include "app/feature/DrawnStyle.h"
#include "app/map/MapReader.h"

#include <optional>
#include <string>
#include <vector>

namespace app {

// The options as given on the command line.
struct MapArguments {
    std::vector<std::string> files;  // the inputs, then the output
    std::string format;              // empty: by the output's extension
    std::string bbox;                // empty: all there is
    std::string background = "white";
    std::string crs = "keep";
    std::string assumedCrs;  // empty: the files' own
    bool ignoreStyles = false;
    std::vector<std::string> labels;
    std::string where;  // empty: every object
    bool legend = false;
    bool scaleBar = false;
    std::string title;
    bool overwrite = false;
    bool asIs = false;
    std::string encoding;
};

// The same, understood.
struct MapRequest {
    MapInput map;
    std::string output;              // a path, or "-"
    std::optional<shr::Box2d> bbox;  // in the map's coordinate system; absent: all there is
    shr::Color4b background{255, 255, 255};
    StyleSource styleSource = StyleSource::Objects;
    IfExists ifExists = IfExists::Refuse;
};

// Leaves the format to the caller. Throws UsageError, which names the option, what it must be and
// what was found.
MapRequest CheckedMapRequest(const MapArguments& arguments);

}  // namespace app
