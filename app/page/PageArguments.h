// qolf draw: the command line of pages.
#pragma once

#include "app/map/MapArguments.h"
#include "app/page/PageRun.h"

#include <string>

namespace app {

// The options as given on the command line.
struct PageArguments : MapArguments {
    std::string size;         // empty: the usual limit
    std::string tiles;        // empty: no base map
    std::string attribution;  // empty: what is known of the base map's server
};

// Whether the map is to be a page: by --to, or else by the output's extension.
bool IsPage(const MapArguments& arguments);

// Throws UsageError, which names the option, what it must be and what was found.
PageOptions CheckedPageOptions(const PageArguments& arguments);

}  // namespace app
