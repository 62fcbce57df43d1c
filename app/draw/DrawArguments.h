// qolf draw: the command line of the drawing.
#pragma once

#include "app/draw/DrawRun.h"

#include <optional>
#include <string>
#include <vector>

namespace app {

// The options as given on the command line.
struct DrawArguments {
    std::vector<std::string> files;  // the inputs, then the output
    std::string format;              // empty: by the output's extension
    std::optional<int> width;        // none: what suits the map
    std::optional<int> height;
    double margin = 12.0;
    std::string bbox;  // empty: none
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

// Throws UsageError, which names the option, what it must be and what was found.
DrawOptions CheckedDrawOptions(const DrawArguments& arguments);

}  // namespace app
